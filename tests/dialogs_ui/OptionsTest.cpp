#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/OptionsCategory.h"
#include "corekit/framework/ui/DataExchange.h"
#include "corekit/logging/LogTarget.h"
#include "corekit/platform/TreeViews.h"
#include "corekit/resources/Messages.h"

#include "Modal.h"
#include "tests/support/TempFolder.h"

#include <string>

namespace {

constexpr int down = 0x28, escape = 0x1B, field = 1017;
constexpr UINT treeId = 1400, anyPage = 4007; // a template that is there

std::string journal; // what the categories and pages were asked, in order

class Page : public CAXPropertyPage {
public:
    explicit Page(std::string name) : CAXPropertyPage(anyPage), m_name(std::move(name)) {}
    void LoadPage() override { journal += m_name + ":load "; }
    int CommitPage() override
    {
        journal += m_name + ":commit ";
        return accepts;
    }
    void UpdateControls() override {}

    static inline int accepts = 1;
    std::string m_name;
};

class Category : public COptionsCategory {
public:
    explicit Category(const char* name) : m_name(name) {}
    CString GetTitle() override { return m_name.c_str(); }
    int CheckSelectOK(CWnd*) override { return m_name != "Locked"; }
    void PreparePages(CWnd*, CAXPropertySheet& sheet) override { sheet.AddPage(new Page(m_name)); }
    int SavePageData(CWnd*) override
    {
        journal += m_name + ":save ";
        return 1;
    }
    void Cancel(CWnd*) override { journal += m_name + ":cancel "; }
    int HideIfRootCategory() override { return 1; }

private:
    std::string m_name;
};

class Options : public testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(StartToolkit(ToolkitDisplay::automatic)); }
    void SetUp() override
    {
        journal.clear();
        Page::accepts = 1;
        for (const char* name : {"Fonts", "Locked", "Network"}) m_root.AddChild(new Category(name));
    }
    static HWND Sheet() { return ::GetActiveWindow(); }
    static void Pick(int index) // a child of the hidden root
    {
        const HWND tree = ::GetDlgItem(Sheet(), treeId);
        auto item = reinterpret_cast<HTREEITEM>(::SendMessageA(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
        for (; index > 0; --index)
            item = reinterpret_cast<HTREEITEM>(
                ::SendMessageA(tree, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item)));
        ::SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    }
    static void Change()
    {
        CWnd* const sheet = CWnd::FromHandlePermanent(Sheet());
        static_cast<CAXPropertySheet*>(sheet)->SetDataChanged(1);
    }
    static void End(int button) { ::SendMessageA(Sheet(), WM_COMMAND, static_cast<WPARAM>(button), 0); }

    Category m_root{"Root"};
};

TEST_F(Options, PickingAnotherCategorySavesOrDropsTheLastOne)
{
    Acts acts{[] { Pick(0); },  [] { Change(); }, [] { Pick(2); },
              Press(VK_RETURN), [] { Pick(1); },  [] { End(IDOK); }};
    EXPECT_EQ(m_root.ShowOptionsDialog(message::saveCategoryChanges, nullptr, nullptr), 1);
    EXPECT_TRUE(acts.AllDone());
    EXPECT_EQ(journal, "Fonts:load Fonts:commit Fonts:save Network:load Network:cancel Locked:cancel ");
}

TEST_F(Options, ACategoryWithAFaultStaysPicked)
{
    Page::accepts = 0;
    const auto goDown = [] {
        ::SetFocus(::GetDlgItem(Sheet(), treeId));
        corekit::test::PressKey(down);
    };
    Acts acts{[] { Pick(0); }, [] { Change(); }, [] { Pick(2); },   Press(VK_RETURN),
              goDown,          Press(VK_RETURN), [] { End(IDOK); }, [] { End(IDCANCEL); }};
    EXPECT_EQ(m_root.ShowOptionsDialog(message::saveCategoryChanges, nullptr, nullptr), 0);
    EXPECT_EQ(journal, "Fonts:load Fonts:commit Fonts:commit Fonts:commit Fonts:cancel ")
        << "each way out asks once";
}

TEST_F(Options, AFieldThatCannotBeReadHasTheFocus)
{
    struct NumberPage final : Page {
        NumberPage() : Page("Numbers") {}
        void DoDataExchange(CDataExchange* exchange) override { DDX_Text(exchange, field, m_number); }
        int m_number = 3;
    };
    struct Numbers final : Category {
        using Category::Category;
        void PreparePages(CWnd*, CAXPropertySheet& sheet) override { sheet.AddPage(new NumberPage); }
    };
    m_root.AddChild(new Numbers("Numbers"));
    const auto spoilAndGoUp = [] {
        CWnd* const sheet = CWnd::FromHandlePermanent(Sheet());
        static_cast<CAXPropertySheet*>(sheet)->GetActivePage()->SetDlgItemText(field, "");
        Change();
        ::SetFocus(::GetDlgItem(Sheet(), treeId));
        corekit::test::PressKey(VK_UP);
    };
    int focused = 0;
    Acts acts{[] { Pick(3); },
              spoilAndGoUp,
              Press(VK_RETURN),
              Press(VK_RETURN), // the box of the field
              [&] { focused = ::GetDlgCtrlID(::GetFocus()); },
              [] { End(IDCANCEL); }};
    EXPECT_EQ(m_root.ShowOptionsDialog(message::saveCategoryChanges, nullptr, nullptr), 0);
    EXPECT_EQ(focused, field);
}

TEST_F(Options, EachStepLeavesItsLineInTheLog)
{
    const TempFolder folder;
    CLogTarget log;
    ASSERT_TRUE(log.CreateLogFile("options", folder.Path().c_str(), 0));
    Acts acts{[] { Pick(1); }, [] { End(IDOK); }};
    m_root.ShowOptionsDialog(message::saveCategoryChanges, nullptr, &log);
    log.CloseLogFile();
    const std::string text = ReadWhole(folder / "options.log");
    std::size_t at = 0;
    for (const char* line : {"1. COptionsPropertySheet::Init done",
                             "2. COptionsPropertySheet::OnSelChangedOptionsList STARTS:", "3. ",
                             "4. COptionsPropertySheet::Focus Set", "8. ", "9. ", "10. ", "11. ", "12. ",
                             "13. ", "17. ", "18. COptionsPropertySheet::DONE - LINE 158."}) {
        const std::size_t found = text.find(line, at);
        EXPECT_NE(found, text.npos) << line << " in\n" << text;
        if (found != text.npos) at = found;
    }
    EXPECT_EQ(text.find("14. "), text.npos);
}

TEST_F(Options, ARootWithoutChildrenIsAPlainSheet)
{
    Category alone("Alone");
    Acts acts{[] { Change(); }, [] { End(IDOK); }};
    EXPECT_EQ(alone.ShowOptionsDialog(message::saveCategoryChanges, nullptr, nullptr), 1);
    EXPECT_EQ(journal, "Alone:load Alone:commit Alone:save ");
}

} // namespace
