#include "XServer.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/keyboards/SystemKeyboard.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "tests/support/RegistryHome.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

// The manager starts once in a process, so one test holds all; its server lives as long as the toolkit.
class ManagerOnX : public RegistryHome {
protected:
    static HKL LayoutOf(int index)
    {
        return CUnicodeManager::GetObjectA()->GetKeyboard(index)->GetLayoutHandle();
    }

    void StartOnX(const char* layouts)
    {
        static XServer server;
        ASSERT_TRUE(server.IsRunning() && server.SetLayouts(layouts));
        setenv("QT_QPA_PLATFORM", "xcb", 1);
        ASSERT_TRUE(StartToolkit());
        CUnicodeManager::Initialise(TRUE)->EnableKeyboardSwitching(TRUE);
    }
    bool Pass(UINT message, WPARAM wParam)
    {
        MSG msg{};
        msg.hwnd = window.GetSafeHwnd();
        msg.message = message;
        msg.wParam = wParam;
        arrived.clear();
        return CUnicodeManager::GetObjectA()->TranslateMessageHook(&msg);
    }

    // A key, as the server gives it to the one window with its layout.
    static void PressOnLayout(unsigned group)
    {
        constexpr quint32 scanCode = 29, groupPlace = 13;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Y, {}, scanCode, 'y', group << groupPlace, "y");
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (widget->isVisible()) QCoreApplication::sendEvent(widget, &press);
    }

    std::u16string arrived;
    MessageWindow window{[this](const MSG& m) -> LRESULT {
        EXPECT_TRUE(m.wParam & finalCharacterMark);
        arrived += static_cast<WCHAR>(LOWORD(m.wParam));
        return 0;
    }};
};

enum Index { brazil, thailand, japan, britain, devanagari, welsh = 12 };

TEST_F(ManagerOnX, KeyboardsAndLayoutsOfTheServerMoveTogether)
{
    ASSERT_NO_FATAL_FAILURE(StartOnX("-layout br,th,jp,gb"));
    CUnicodeManager& manager = *CUnicodeManager::GetObjectA();
    ASSERT_GT(manager.GetKeyboardCount(), welsh);
    EXPECT_TRUE(manager.GetKeyboard(brazil)->IsKindOf(RUNTIME_CLASS(KBT_PortugueseExtension)));
    EXPECT_TRUE(manager.GetKeyboard(thailand)->IsKindOf(RUNTIME_CLASS(KBT_ThaiExtension)));
    EXPECT_TRUE(manager.GetKeyboard(japan)->IsKindOf(RUNTIME_CLASS(CSystemKeyboard)));
    EXPECT_EQ(manager.GetActiveKeyboard(), brazil);

    EXPECT_TRUE(manager.ActivateKeyboard(thailand, FALSE));
    EXPECT_EQ(GetKeyboardLayout(0), LayoutOf(thailand));
    EXPECT_EQ(manager.ConvertCharMessage(0xA1), 0x0E01); // code page 874
    EXPECT_TRUE(manager.ActivateKeyboard(devanagari, FALSE));
    EXPECT_EQ(GetKeyboardLayout(0), LayoutOf(thailand)); // a keyboard of our own leaves it alone
    EXPECT_TRUE(manager.ActivateKeyboard(welsh, FALSE));
    EXPECT_EQ(GetKeyboardLayout(0), LayoutOf(britain)); // but this one types on that
    manager.HandleInputLangChange(0, LayoutOf(brazil));
    EXPECT_EQ(manager.GetActiveKeyboard(), brazil);
    EXPECT_EQ(GetKeyboardLayout(0), LayoutOf(britain)) << "the platform has changed already";

    // What a keyboard of our own asks of the server is no choice of the user's.
    CWnd pane;
    ASSERT_TRUE(pane.CreateEx(0, AfxRegisterWndClass(0), "Text", WS_POPUP | WS_VISIBLE, 0, 0, 90, 90, nullptr,
                              nullptr));
    EXPECT_TRUE(manager.ActivateKeyboard(japan, FALSE));
    PressOnLayout(japan);
    EXPECT_TRUE(manager.ActivateKeyboard(welsh, FALSE));
    PressOnLayout(japan); // pressed before
    PressOnLayout(britain);
    EXPECT_EQ(manager.GetActiveKeyboard(), welsh);
    ActivateKeyboardLayout(LayoutOf(thailand), 0);
    EXPECT_EQ(manager.GetActiveKeyboard(), thailand);

    // Two bytes of code page 932 are one character.
    EXPECT_TRUE(manager.ActivateKeyboard(japan, FALSE));
    EXPECT_TRUE(Pass(WM_CHAR, 0x82));
    EXPECT_EQ(arrived, u"");
    EXPECT_FALSE(Pass(WM_CHAR, finalCharacterMark | 0x41)); // passes between the two
    EXPECT_TRUE(Pass(WM_CHAR, 0xA0));
    EXPECT_EQ(arrived, u"\u3042");
    EXPECT_TRUE(Pass(WM_CHAR, 0x82));
    EXPECT_TRUE(Pass(WM_CHAR, 0x82)); // whatever follows a lead byte is its trail
    EXPECT_EQ(arrived, u"\uFF42");
    EXPECT_FALSE(Pass(WM_CHAR, 0xB1)); // one byte
    EXPECT_EQ(manager.ConvertCharMessage(0xB1), 0xFF71);
    EXPECT_TRUE(Pass(WM_IME_CHAR, 0x82A0));
    EXPECT_EQ(arrived, u"\u3042");
    EXPECT_TRUE(Pass(WM_IME_CHAR, 0x41));
    EXPECT_EQ(arrived, u"A");
}

} // namespace
