// A small host of the window components.
//
//     workbench                    opens the window, as it was left
//     workbench --settings FILE    keeps layout, keys and tool bars there
//     workbench --picture FILE     moves its bars about by itself, without a display, and writes a picture
#include "Resources.h"
#include "Workbench.h"

#include "Commands.h"

#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "examples/shared/Scripts.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

std::string UsualSettings()
{
    const char* const home = std::getenv("HOME");
    return std::string(home ? home : ".") + "/.corekit-workbench";
}

class WorkbenchApp : public CWinApp {
public:
    explicit WorkbenchApp(std::string settings) : m_window(new Workbench(std::move(settings))) {}

    BOOL InitInstance() override
    {
        RegisterResources();
        MakeIndicFonts();
        CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
        manager->OverrideSettings({.biDi = TRUE});
        manager->OverrideControlsFont(FontWithAllScripts("Noto Sans", 14));
        m_pMainWnd = m_window;
        return m_window->Open();
    }

    Workbench* m_window; // deletes itself with its window
};

CPoint PointOnTab(const PaneStack& stack, int tab)
{
    CRect client;
    stack.GetClientRect(&client);
    CPoint point(0, client.bottom - 5);
    while (point.x < client.right && stack.HitTestTab(point) != tab) ++point.x;
    return point + CSize(20, 0);
}

// What a user would do first.
void MoveAbout(Workbench& window)
{
    using namespace corekit::test;
    RunWaiting();
    window.SendMessage(WM_COMMAND, commandPlay);
    window.SendMessage(WM_COMMAND, commandFaster);
    window.Stack(0).SetActivePane(2);
    RunWaiting();
    // The Bengali story goes below, dragged by its tab.
    const CPoint start = PointOnTab(window.Stack(0), 5);
    CPoint end = PointOnTab(window.Stack(1), 0) + CSize(0, -50);
    window.Stack(1).ClientToScreen(&end);
    window.Stack(0).ScreenToClient(&end);
    Drag(window.Stack(0).m_hWnd, start, end);
    window.Stack(1).SetActivePane(0);
    window.Stack(0).SetActivePane(2);
    RunWaiting();
    window.SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE);
    RunWaiting();
}

} // namespace

int main(int argc, char** argv)
{
    const auto option = [&](const char* name) {
        return argc == 3 && std::strcmp(argv[1], name) == 0 ? argv[2] : nullptr;
    };
    const char* const picture = option("--picture");
    const char* const settings = option("--settings");
    if (!StartToolkit(picture ? ToolkitDisplay::offscreen : ToolkitDisplay::automatic)) return 1;
    WorkbenchApp app(picture ? std::string() : settings ? settings : UsualSettings());
    try {
        if (!app.InitInstance()) return 1;
        if (!picture) return app.Run();
        MoveAbout(*app.m_window);
        const bool saved = SavePicture(*app.m_window, picture);
        app.m_window->DestroyWindow();
        return saved ? 0 : 1;
    } catch (CException* e) {
        char text[256] = "";
        e->GetErrorMessage(text, sizeof text);
        std::fprintf(stderr, "workbench: %s\n", text);
        e->Delete();
        return 1;
    }
}
