#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/platform/Messages.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "tests/support/CaseRows.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <string>
#include <vector>

namespace {

// Index 0 is the one layout that there is without a display.
enum Index {
    own,
    devanagari,
    alternate,
    bengali,
    persian,
    arabic,
    urdu,
    indicUrdu,
    hebrew,
    welsh,
    tamil,
    inscript,
    assamese
};

class ManagerKeyboards : public testing::Test {
protected:
    ManagerKeyboards()
    {
        manager.EnableKeyboardSwitching(TRUE);
        manager.ActivateKeyboard(own, FALSE);
    }
    ~ManagerKeyboards() override
    {
        for (int i = 0; i < count; ++i) Enable(i, TRUE);
        manager.ActivateKeyboard(own, FALSE);
        manager.EnableKeyboardSwitching(FALSE);
    }

    void Enable(int index, BOOL enabled) { manager.GetKeyboard(index)->SetEnabled(enabled); }
    // What the hook makes of a message, and what then arrives at its window, as hexadecimal numbers.
    bool Pass(UINT message, WPARAM wParam)
    {
        MSG msg{};
        msg.hwnd = window.GetSafeHwnd();
        msg.message = message;
        msg.wParam = wParam;
        arrived.clear();
        return manager.TranslateMessageHook(&msg);
    }

    CUnicodeManager& manager = *CUnicodeManager::Initialise(TRUE);
    const int count = manager.GetKeyboardCount();
    std::u16string arrived;
    MessageWindow window{[this](const MSG& m) -> LRESULT {
        EXPECT_EQ(m.message, WM_CHAR);
        EXPECT_TRUE(m.wParam & finalCharacterMark);
        arrived += static_cast<WCHAR>(manager.ConvertCharMessage(static_cast<UINT>(m.wParam)));
        return 0;
    }};
};

TEST_F(ManagerKeyboards, ThoseOfThePlatformComeFirst)
{
    auto expected = CaseRows(TEST_DATA "/keyboard_facts.tsv");
    std::rotate(expected.begin(), expected.end() - 1, expected.end()); // the platform's one, and then ours
    expected.resize(13, CaseRow({}));
    ASSERT_GE(count, static_cast<int>(expected.size()));
    for (int i = 0; i <= assamese; ++i) {
        CaseRow& row = expected[static_cast<std::size_t>(i)];
        row.Word();
        CString name;
        WORD locale = 0;
        manager.GetKeyboardInfo(i, name, locale);
        EXPECT_EQ(locale, row.Number()) << row.Line();
        row.Word();
        EXPECT_STREQ(name, row.Word().c_str()) << row.Line();
    }
    EXPECT_EQ(manager.GetActiveKeyboard(), own);
    EXPECT_EQ(manager.GetKeyboard(-1), nullptr);
    EXPECT_EQ(manager.GetKeyboard(count), nullptr);
    EXPECT_STREQ(CUnicodeManager::GetKeyboardLanguageName(GetKeyboardLayout(0)), "English");
    EXPECT_EQ(CUnicodeManager::GetLayoutCodePage(reinterpret_cast<HKL>(0x041F)), 1254);
    EXPECT_EQ(CUnicodeManager::GetLayoutCodePage(reinterpret_cast<HKL>(0x03FF)), 0);
}

TEST_F(ManagerKeyboards, NothingChangesWhileSwitchingIsOff)
{
    manager.EnableKeyboardSwitching(FALSE);
    EXPECT_TRUE(manager.ActivateKeyboard(arabic, FALSE));
    EXPECT_TRUE(manager.ActivateKeyboard(-5, FALSE));
    EXPECT_TRUE(manager.ActivateNextKeyboard());
    EXPECT_TRUE(manager.ActivatePrevKeyboard());
    EXPECT_TRUE(manager.SetKeyboardFromLocale(0x0401, FALSE));
    EXPECT_EQ(manager.GetActiveKeyboard(), own);
}

TEST_F(ManagerKeyboards, SteppingGoesRoundPastThoseThatAreOff)
{
    Enable(devanagari, FALSE);
    Enable(count - 1, FALSE);
    EXPECT_TRUE(manager.ActivateNextKeyboard());
    EXPECT_EQ(manager.GetActiveKeyboard(), alternate);
    EXPECT_TRUE(manager.ActivatePrevKeyboard());
    EXPECT_EQ(manager.GetActiveKeyboard(), own);
    EXPECT_TRUE(manager.ActivatePrevKeyboard());
    EXPECT_EQ(manager.GetActiveKeyboard(), count - 2);
    EXPECT_TRUE(manager.ActivateNextKeyboard());
    EXPECT_EQ(manager.GetActiveKeyboard(), own);
    for (int i = 0; i < count; ++i) Enable(i, FALSE); // the active one, too
    EXPECT_TRUE(manager.ActivateNextKeyboard());
    EXPECT_TRUE(manager.ActivatePrevKeyboard());
    EXPECT_EQ(manager.GetActiveKeyboard(), own);
}

TEST_F(ManagerKeyboards, OneThatIsOffOrMissingIsRefused)
{
    Enable(hebrew, FALSE);
    for (const int index : {-1, count, int{hebrew}})
        EXPECT_FALSE(manager.ActivateKeyboard(index, FALSE)) << index;
    EXPECT_FALSE(manager.ActivateLayoutCore(count));
    EXPECT_EQ(manager.GetActiveKeyboard(), own);

    manager.SetDefaultKeyboard(0x0401);
    EXPECT_TRUE(manager.ActivateKeyboard(-1, TRUE));
    EXPECT_EQ(manager.GetActiveKeyboard(), arabic);
    EXPECT_EQ(manager.GetCurrentKeyboardLocale(), 0x0401);
    manager.SetDefaultKeyboard(0x040D); // its only keyboard is off
    EXPECT_FALSE(manager.ActivateKeyboard(tamil, TRUE));
    EXPECT_EQ(manager.GetActiveKeyboard(), arabic);
    manager.SetDefaultKeyboard(0x0809);
    EXPECT_TRUE(manager.ActivateKeyboard(-1, TRUE));
    EXPECT_EQ(manager.GetActiveKeyboard(), own);
}

TEST_F(ManagerKeyboards, LanguageMeansTheVeryOneThenAVariety)
{
    const std::map<std::string, int> numbers = {{"-", -1},
                                                {"Urdu (Internal)", urdu},
                                                {"Indic Urdu", indicUrdu},
                                                {"Bengali (Internal)", bengali},
                                                {"Bengali Inscript", inscript}};
    for (CaseRow row : CaseRows(TEST_DATA "/keyboard_choice.tsv", "language")) {
        manager.ActivateKeyboard(urdu, FALSE);
        const auto locale = row.Number<WORD>();
        const int off = numbers.at(row.Word());
        if (off >= 0) Enable(off, FALSE);
        EXPECT_EQ(manager.SetKeyboardFromLocale(locale, FALSE), locale != 0x0429) << row.Line();
        EXPECT_STREQ(manager.GetActiveKeyboardName(), row.Word().c_str()) << row.Line();
        if (off >= 0) Enable(off, TRUE);
    }
}

TEST_F(ManagerKeyboards, PlatformsChangeOfLayoutIsFollowed)
{
    const HKL layout = GetKeyboardLayout(0), foreign = reinterpret_cast<HKL>(0x04190419);
    manager.ActivateKeyboard(arabic, FALSE);
    EXPECT_EQ(manager.ConvertCharMessage(0xC8), 0x0628); // its code page is 1256
    EXPECT_TRUE(manager.HandleInputLangChange(0, foreign));
    EXPECT_EQ(manager.GetActiveKeyboard(), arabic);
    EXPECT_TRUE(manager.HandleInputLangChange(0, layout));
    EXPECT_EQ(manager.GetActiveKeyboard(), own);
    EXPECT_EQ(manager.ConvertCharMessage(0xC8), 0x00C8); // 1252
    EXPECT_TRUE(manager.AllowInputLangChangeRequest(layout, FALSE));
    EXPECT_FALSE(manager.AllowInputLangChangeRequest(foreign, FALSE));
}

TEST_F(ManagerKeyboards, HookGivesKeysToTheActiveKeyboardOnly)
{
    EXPECT_FALSE(Pass(WM_KEYDOWN, 'H')); // the platform translates
    EXPECT_EQ(arrived, u"");
    manager.ActivateKeyboard(arabic, FALSE);
    EXPECT_TRUE(Pass(WM_KEYDOWN, 'H'));
    EXPECT_EQ(arrived, u"\u0627");
    EXPECT_TRUE(Pass(WM_KEYDOWN, 'B'));
    EXPECT_EQ(arrived, u"\u0644\u0627");
    EXPECT_FALSE(Pass(WM_KEYDOWN, VK_RETURN));
    EXPECT_FALSE(Pass(WM_KEYDOWN + 1, 'H'));
    EXPECT_FALSE(manager.TranslateMessageHook(nullptr));
}

TEST_F(ManagerKeyboards, CtrlAltAndArrowsSwitch)
{
    RecordKeyMotion(VK_LCONTROL, KeyMotion::down);
    EXPECT_FALSE(Pass(WM_KEYDOWN, VK_RIGHT));
    RecordKeyMotion(VK_LMENU, KeyMotion::down);
    EXPECT_TRUE(Pass(WM_KEYDOWN, VK_RIGHT));
    EXPECT_EQ(manager.GetActiveKeyboard(), devanagari);
    EXPECT_TRUE(Pass(WM_KEYDOWN, VK_LEFT));
    EXPECT_TRUE(Pass(WM_KEYDOWN, VK_LEFT));
    EXPECT_EQ(manager.GetActiveKeyboard(), count - 1);
    EXPECT_FALSE(Pass(WM_KEYDOWN, 'K'));
    RecordKeyMotion(VK_LMENU, KeyMotion::up);
    RecordKeyMotion(VK_LCONTROL, KeyMotion::up);
    EXPECT_EQ(arrived, u"");
}

TEST_F(ManagerKeyboards, WhatIsTypedReachesFieldsOfTheToolkit)
{
    class Host : public CWnd {
        BOOL PreTranslateMessage(MSG* message) override
        {
            return CUnicodeManager::GetObjectA()->TranslateMessageHook(message);
        }
    } host;
    ASSERT_TRUE(host.CreateEx(0, AfxRegisterWndClass(0), "Host", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200,
                              nullptr, nullptr));
    for (const char* const field : {"EDIT", "COMBOBOX"}) {
        constexpr DWORD dropDown = 2; // the style of a combo box with a field
        const HWND control = CreateWindowExA(0, field, "", WS_CHILD | WS_VISIBLE | dropDown, 0, 0, 200, 60,
                                             host.m_hWnd, nullptr, nullptr, nullptr);
        corekit::test::RunWaiting();
        ::SetFocus(control);
        manager.ActivateKeyboard(arabic, FALSE);
        for (const int key : {'H', 'B'}) corekit::test::PressKey(key);
        corekit::test::PressKey(VK_LEFT, {VK_CONTROL, VK_MENU});
        EXPECT_EQ(manager.GetActiveKeyboard(), persian) << field;
        manager.ActivateKeyboard(own, FALSE);
        corekit::test::PressKey('Q');
        QKeyEvent two(QEvent::KeyPress, Qt::Key_B, {}, 56, 0, 0, "rs"); // a key of the layout may type two
        QCoreApplication::sendEvent(QApplication::focusWidget(), &two);
        WCHAR text[20] = {};
        GetWindowTextW(control, text, 20);
        EXPECT_EQ(std::u16string(text), u"\u0627\u0644\u0627qrs") << field;
    }
}

TEST_F(ManagerKeyboards, CharactersOfOneBytePassAndFinalOnesAreUnicode)
{
    for (const WPARAM character : {WPARAM{'a'}, WPARAM{0x82}, WPARAM{0xFF}, finalCharacterMark | 0x0905})
        EXPECT_FALSE(Pass(WM_CHAR, character)) << character;
    EXPECT_EQ(arrived, u"");
    EXPECT_EQ(manager.ConvertCharMessage(0x80000905), 0x0905);
    EXPECT_EQ(manager.ConvertCharMessage(0x80), 0x20AC);
    EXPECT_EQ(manager.ConvertCharMessage(0x12341), 0x41); // the low byte
}

} // namespace
