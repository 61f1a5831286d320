// A tree of settings with every page that the library has.
//
//     options                                 opens the dialog; what it does is written to options.log
//     options --picture FILE [ITEM [PAGE]]    picks an item of the tree and a page by itself, both counted
//                                             from 1, without a display, and writes a picture of the dialog
#include "OptionsTree.h"

#include "corekit/framework/WinApp.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/platform/Windows.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "examples/shared/Scripts.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int treeControl = 1400;

struct Picture {
    std::string file;
    int item = 2, page = 1;
    bool isSaved = false;
};

class OptionsApp : public CWinApp {
public:
    BOOL InitInstance() override
    {
        SetTexts();
        m_settings.Load();
        CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
        manager->OverrideControlsFont(FontWithAllScripts("Noto Sans", 11));
        return TRUE;
    }

    void ShowOptions(CLogTarget& log)
    {
        m_settings.ApplyTo(log);
        if (MakeOptionsTree(m_settings)->ShowOptionsDialog(optionsText, nullptr, &log))
            m_settings.ApplyTo(log);
    }

    ProgramSettings m_settings;
};

// As a user would: down the tree by keys, through the tabs by Ctrl+Tab, Cancel.
void ShowPage(Picture& picture)
{
    using namespace corekit::test;
    RunWaiting();
    const HWND sheet = GetActiveWindow();
    SetFocus(GetDlgItem(sheet, treeControl));
    PressKey(VK_HOME);
    PressKey(VK_RIGHT); // opens the first one
    for (int i = 1; i < picture.item; ++i) PressKey(VK_DOWN);
    for (int i = 1; i < picture.page; ++i) PressKey(VK_TAB, {VK_CONTROL});
    RunWaiting();
    picture.isSaved = SavePicture(sheet, picture.file);
    PressKey(VK_ESCAPE);
}

int Draw(OptionsApp& app, Picture picture)
{
    CLogTarget none;
    const MessageWindow user([&](const MSG&) -> LRESULT {
        ShowPage(picture);
        return 0;
    });
    PostMessageA(user.GetSafeHwnd(), WM_USER, 0, 0);
    app.ShowOptions(none);
    return picture.isSaved ? 0 : 1;
}

int Show(OptionsApp& app)
{
    CLogTarget log;
    if (!log.CreateLogFile("options", ".", 0))
        std::fprintf(stderr, "options: no log file can be made here\n");
    app.ShowOptions(log);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const bool draws = argc >= 3 && std::strcmp(argv[1], "--picture") == 0;
    // Asked for, so that the dialog waits for its user although nobody sees it.
    if (draws) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (!StartToolkit()) return 1;
    OptionsApp app;
    try {
        app.InitInstance();
        if (!draws) return Show(app);
        return Draw(app, {argv[2], argc > 3 ? std::atoi(argv[3]) : 2, argc > 4 ? std::atoi(argv[4]) : 1});
    } catch (CException* e) {
        char text[256] = "";
        e->GetErrorMessage(text, sizeof text);
        std::fprintf(stderr, "options: %s\n", text);
        e->Delete();
        return 1;
    }
}
