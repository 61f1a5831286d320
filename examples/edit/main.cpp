// Type Arabic, Hebrew, Hindi, Tamil and English into one text, each with its own keyboard.
//
//     edit                    opens the window
//     edit --picture FILE     types by itself, without a display, and writes a picture of the window
#include "EditWindow.h"

#include "corekit/framework/WinApp.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "examples/shared/Scripts.h"

#include <cstdio>
#include <cstring>

namespace {

// A keyboard (null: the one of the machine), and the keys that are pressed on it, named as on a United States
// layout.
struct Line {
    const char* keyboard;
    const char16_t* keys;
};
constexpr Line lines[] = {
    {nullptr, u"News at 20:15 "},     {"Hebrew", u"akuo guko "}, {"Arabic", u"lvpfh fhguhgl "},
    {"Devanagari - Std", u"vcmdls "}, {"Tamil", u"bCkdkcd"},
};
constexpr Line below[] = {
    {"Hebrew", u"jsau, "}, // in a line that begins with Hebrew, English stands at its left
    {nullptr, u"BBC 4 "},
    {"Hebrew", u"vhuo"},
};

template <std::size_t count>
void Type(EditWindow& window, const Line (&keys)[count], int machineKeyboard)
{
    for (const Line& line : keys) {
        if (line.keyboard)
            window.UseKeyboard(line.keyboard);
        else
            CUnicodeManager::GetObjectA()->ActivateKeyboard(machineKeyboard, FALSE);
        corekit::test::TypeText(line.keys);
    }
}

void TypeSomething(EditWindow& window)
{
    using namespace corekit::test;
    RunWaiting();
    const int machineKeyboard = CUnicodeManager::GetObjectA()->GetActiveKeyboard();
    Type(window, lines, machineKeyboard);
    PressKey(VK_RETURN, {VK_CONTROL});
    Type(window, below, machineKeyboard);
    for (int i = 0; i < 3; ++i) PressKey(VK_RIGHT, {VK_SHIFT});
}

class EditApp : public CWinApp {
public:
    BOOL InitInstance() override
    {
        MakeIndicFonts();
        CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
        manager->OverrideSettings({.biDi = TRUE});
        manager->OverrideControlsFont(FontWithAllScripts("Noto Sans", 18));
        manager->EnableKeyboardSwitching(TRUE);
        m_pMainWnd = &m_window;
        return m_window.Open();
    }

    EditWindow m_window;
};

} // namespace

int main(int argc, char** argv)
{
    const char* const picture = argc == 3 && std::strcmp(argv[1], "--picture") == 0 ? argv[2] : nullptr;
    if (!StartToolkit(picture ? ToolkitDisplay::offscreen : ToolkitDisplay::automatic)) return 1;
    EditApp app;
    try {
        if (!app.InitInstance()) return 1;
        if (!picture) return app.Run();
        TypeSomething(app.m_window);
        return SavePicture(app.m_window, picture) ? 0 : 1;
    } catch (CException* e) {
        char text[256] = "";
        e->GetErrorMessage(text, sizeof text);
        std::fprintf(stderr, "edit: %s\n", text);
        e->Delete();
        return 1;
    }
}
