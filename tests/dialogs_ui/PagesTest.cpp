#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/PPage_Miscellaneous.h"
#include "corekit/logging/LogTarget.h"
#include "corekit/platform/Buttons.h"
#include "corekit/platform/CodePages.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/unicode/codepages/ui/PPage_CodePage.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include "Modal.h"
#include "tests/support/RegistryHome.h"

namespace {

class Pages : public RegistryHome {
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(StartToolkit(ToolkitDisplay::automatic)); }

    static CWnd& Control(int id)
    {
        const CWnd* const sheet = CWnd::FromHandlePermanent(::GetActiveWindow());
        return *static_cast<const CAXPropertySheet*>(sheet)->GetActivePage()->GetDlgItem(id);
    }
    static Acts::Act Push(int id)
    {
        return [id] { corekit::test::Click(Control(id).m_hWnd, {8, 8}); };
    }
    static Acts::Act Write(int id, const char16_t* text)
    {
        return [id, text] {
            Control(id).SetFocus();
            corekit::test::PressKey('A', {VK_CONTROL});
            corekit::test::TypeText(text);
        };
    }
    static void EndSheet(int button)
    {
        CWnd* const sheet = CWnd::FromHandlePermanent(::GetActiveWindow());
        static_cast<CAXPropertySheet*>(sheet)->PressButton(button);
    }
    static Acts::Act Confirm()
    {
        return [] { EndSheet(PSBTN_OK); };
    }
    INT_PTR Show(const std::function<void(CAXPropertySheet&)>& addPages)
    {
        CAXPropertySheet sheet("Pages");
        sheet.SetAutoDeleteMode(1);
        addPages(sheet);
        return sheet.DoModal();
    }
    CUnicodeManager& m_manager = *CUnicodeManager::Initialise(1);
};

TEST_F(Pages, ReadRateIsKeptInTheRegistry)
{
    bool fieldsFollow = false;
    Acts acts{[&] { fieldsFollow = !Control(1015).IsWindowEnabled() && Control(1017).IsWindowEnabled(); },
              Push(1014),
              [&] { fieldsFollow = fieldsFollow && Control(1015).IsWindowEnabled(); },
              Write(1016, u"12"),
              Write(1017, u"40"),
              Confirm()};
    EXPECT_EQ(Show([](CAXPropertySheet& sheet) { sheet.AddPage(new PPage_Miscellaneous); }), IDOK);
    EXPECT_TRUE(fieldsFollow);
    CRegistryKey key;
    ASSERT_TRUE(key.Open(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Unicode Support"));
    const std::pair<const char*, int> values[] = {
        {"Use Seconds Per Line", 1}, {"Lines", 3}, {"Seconds", 12}, {"Characters Per Line", 40}};
    for (const auto& [name, wanted] : values) {
        int value = -1;
        key.GetValue(name, value);
        EXPECT_EQ(value, wanted) << name;
    }
}

TEST_F(Pages, LogLevelsComeBackAsAMask)
{
    int enabled = 1, days = 20;
    unsigned long mask = logWarning | logMajorError;
    Acts acts{Push(1017), Push(1014), Write(1058, u"7"), Push(1013), Push(1016), Confirm()};
    EXPECT_EQ(
        Show([&](CAXPropertySheet& sheet) { CLogTarget::AddPropertyPage(sheet, 0, &enabled, &mask, &days); }),
        IDOK);
    EXPECT_EQ(mask, logDebug | logMajorError) << "the last click met a level that was disabled";
    EXPECT_EQ(enabled, 0);
    EXPECT_EQ(days, 7);
}

TEST_F(Pages, TheCodePagePickedIsTheOneSelected)
{
    int codePage = 1255;
    Acts acts{[] {
                  Control(1005).SetFocus();
                  corekit::test::PressKey(VK_DOWN);
              },
              Confirm()};
    EXPECT_EQ(Show([&](CAXPropertySheet& sheet) { AddCodePagePropertyPage(sheet, &codePage, 0); }), IDOK);
    EXPECT_GT(codePage, 0);
    EXPECT_NE(codePage, 1255);
    codePage = 12345; // none
    Acts confirm{Confirm()};
    Show([&](CAXPropertySheet& sheet) { AddCodePagePropertyPage(sheet, &codePage, 0); });
    EXPECT_EQ(static_cast<UINT>(codePage), GetACP());
}

TEST_F(Pages, ComplexLanguagesAreAskedAboutAndUnderline)
{
    const auto underlined = [] { return Control(1012).SendMessage(BM_GETCHECK) == BST_CHECKED; };
    const auto choose = [](int id) { return Push(id); };
    std::string seen;
    const auto note = [&] { seen += underlined() ? "u" : "-"; };
    const Acts::Act next = Press(VK_TAB), take = Press(VK_RETURN); // No is the second button
    Acts acts{choose(1008), note,         choose(1010), next,         take, note,         choose(1010), take,
              note,         choose(1012), next,         take,         note, choose(1012), take,         note,
              choose(1010), take,         note,         choose(1012), take, choose(1009), Confirm()};
    EXPECT_EQ(Show([&](CAXPropertySheet& sheet) { m_manager.AddPropertyPages(sheet); }), IDOK);
    EXPECT_EQ(seen, "u-uu-u") << "the last by picking the same once more";
    EXPECT_TRUE(m_manager.WindowsComplexLanguageHandlingEnabled());
    EXPECT_FALSE(m_manager.IsBIDIEnabled(FALSE));
    EXPECT_TRUE(m_manager.ExtraLineHeight());
    EXPECT_FALSE(m_manager.IsUnderlineSelectEnabled());
}

TEST_F(Pages, AtLeastOneKeyboardStaysOn)
{
    const auto mark = [](int row) {
        return [row] {
            RECT place{};
            Control(1009).SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(row),
                                      reinterpret_cast<LPARAM>(&place));
            corekit::test::Click(Control(1009).m_hWnd, {place.left + 8, (place.top + place.bottom) / 2});
        };
    };
    const auto markAll = [&] {
        for (int k = 0; k < m_manager.GetKeyboardCount(); ++k) mark(k)();
    };
    int choices = -1;
    CString first;
    m_manager.EnableKeyboardSwitching(TRUE);
    m_manager.ActivateKeyboard(3, FALSE);
    Acts acts{Press(VK_TAB, {VK_CONTROL}),
              [&] { static_cast<CWnd&>(Control(1013)).GetWindowText(first); },
              markAll,
              [] { EndSheet(PSBTN_OK); }, // refused
              Press(VK_RETURN),
              mark(2),
              [&] { choices = static_cast<int>(Control(1013).SendMessage(CB_GETCOUNT)); },
              Confirm()};
    EXPECT_EQ(Show([&](CAXPropertySheet& sheet) { m_manager.AddPropertyPages(sheet); }), IDOK);
    EXPECT_EQ(first, m_manager.GetKeyboard(3)->GetName()) << "no default is set";
    EXPECT_EQ(choices, 1);
    for (int k = 0; k < m_manager.GetKeyboardCount(); ++k)
        EXPECT_EQ(m_manager.GetKeyboard(k)->IsEnabled() != 0, k == 2) << k;
}

} // namespace
