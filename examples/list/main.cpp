// Ten thousand names in seven scripts, shaped by the platform.
//
//     list                    opens the window
//     list --picture FILE     moves about by itself, without a display, and writes a picture of the window
#include "ListWindow.h"

#include "corekit/framework/WinApp.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "examples/shared/Scripts.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr int nameCount = 10000;

class ListApp : public CWinApp {
public:
    BOOL InitInstance() override
    {
        CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
        manager->OverrideSettings({.complexLanguage = TRUE});
        manager->OverrideControlsFont(FontWithAllScripts("Noto Sans", 19));
        m_pMainWnd = &m_window;
        return m_window.Open();
    }

    ListWindow m_window{MakeNames(nameCount)};
};

void MoveAbout(ListWindow& window)
{
    using namespace corekit::test;
    RunWaiting();
    PressKey(VK_NEXT);
    for (int i = 0; i < 4; ++i) PressKey(VK_DOWN);
    PressKey(VK_DOWN, {VK_SHIFT});
    PressKey(VK_DOWN, {VK_SHIFT});
    Click(window.List(), POINT{60, 140}, Button::left, Clicks::one, {VK_CONTROL});
    RunWaiting();
}

} // namespace

int main(int argc, char** argv)
{
    const char* const picture = argc == 3 && std::strcmp(argv[1], "--picture") == 0 ? argv[2] : nullptr;
    if (!StartToolkit(picture ? ToolkitDisplay::offscreen : ToolkitDisplay::automatic)) return 1;
    ListApp app;
    try {
        if (!app.InitInstance()) return 1;
        if (!picture) return app.Run();
        MoveAbout(app.m_window);
        return SavePicture(app.m_window, picture) ? 0 : 1;
    } catch (CException* e) {
        char text[256] = "";
        e->GetErrorMessage(text, sizeof text);
        std::fprintf(stderr, "list: %s\n", text);
        e->Delete();
        return 1;
    }
}
