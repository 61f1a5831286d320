#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/CustomMessageBox.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/Dialog.h"
#include "corekit/logging/ui/DLG_Progress.h"
#include "corekit/logging/ui/DLG_ProgressWithCancel.h"
#include "corekit/resources/Messages.h"

#include "Modal.h"

namespace {

constexpr int escape = 0x1B, tab = 0x09;

class Dialogs : public testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(StartToolkit(ToolkitDisplay::automatic)); }
};

TEST_F(Dialogs, ABoxAnswersTheIndexOfItsButtonOrMinusOne)
{
    const struct {
        int tabs;
        int last; // key
        int answer;
    } cases[] = {{0, VK_RETURN, 0}, {1, VK_RETURN, 1}, {2, VK_SPACE, 2}, {3, VK_RETURN, 3},
                 {4, VK_RETURN, 4}, {5, VK_RETURN, 0}, {2, escape, -1}};
    for (const auto& c : cases) {
        Acts acts{[&c] {
            for (int i = 0; i < c.tabs; ++i) corekit::test::PressKey(tab);
            corekit::test::PressKey(c.last);
        }};
        EXPECT_EQ(CustomMessageBox(nullptr, "Five ways on", nullptr, "a", "b", "c", "d", "e"), c.answer)
            << c.tabs;
        EXPECT_TRUE(acts.AllDone());
    }
    Acts second{Press(tab), Press(VK_RETURN)};
    EXPECT_EQ(CustomMessageBox(nullptr, "Two", nullptr, "a", "b"), 1);
    Acts third{Press('B', {VK_MENU})};
    EXPECT_EQ(CustomMessageBox(nullptr, "By its letter", nullptr, "&Alpha", "&Beta", "&Gamma"), 1);
}

TEST_F(Dialogs, AStockBoxHasThePlatformsAnswers)
{
    Acts yes{Press(VK_RETURN)};
    EXPECT_EQ(StockMessageBox(nullptr, "Yes?", MB_YESNO | MB_ICONQUESTION), IDYES);
    Acts no{Press('N', {VK_MENU})};
    EXPECT_EQ(StockMessageBox(nullptr, "No?", MB_YESNO), IDNO);
    Acts cancel{Press(escape)};
    EXPECT_EQ(StockMessageBox(nullptr, "Yes?", MB_YESNOCANCEL), IDCANCEL);
}

TEST_F(Dialogs, ProgressShowsPercentAndReportsACancelOnce)
{
    CWnd owner;
    ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                               400, 300, nullptr, nullptr));
    DLG_ProgressWithCancel progress("Copying");
    progress.SetRange(10, 5); // becomes 10 to 11
    ASSERT_TRUE(progress.Create(&owner));
    EXPECT_FALSE(owner.IsWindowEnabled());
    const auto percent = [&progress] {
        CString text;
        progress.GetDlgItemText(1004, text);
        return std::string(text);
    };
    const struct {
        int lower, upper, position;
        const char* shown;
    } cases[] = {{10, 5, 11, "100%"},   {0, 200, 0, "0%"},    {0, 200, 100, "50%"},
                 {0, 200, 200, "100%"}, {0, 200, 300, "50%"}, {-50, 50, 0, "50%"}};
    for (const auto& c : cases) {
        progress.SetRange(c.lower, c.upper);
        progress.SetPos(c.position);
        EXPECT_EQ(percent(), c.shown) << c.position;
    }
    EXPECT_EQ(progress.CheckCancelButton(), 0);
    ::SendMessageA(progress.m_hWnd, WM_COMMAND, IDCANCEL, 0);
    CProgressSink* const sink = progress.GetProgressSink();
    EXPECT_EQ(sink->CancelPressed(), 1);
    EXPECT_EQ(sink->CancelPressed(), 0);
    progress.DestroyWindow();
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST_F(Dialogs, ProgressThatNobodySeesGoesNowhere)
{
    static DLG_Progress* volatile none = nullptr;
    DLG_Progress* const progress = none;
    EXPECT_EQ(progress->Create(nullptr), 0);
    progress->SetStatus("text");
    progress->SetStatus1(message::saveCategoryChanges, "1");
    progress->SetRange(0, 10);
    progress->SetStep(2);
    progress->SetPos(1);
    progress->OffsetPos(1);
    progress->StepIt();
    progress->EnablePumpMessages(0);
    EXPECT_EQ(progress->GetProgressSink(), nullptr);
}

TEST_F(Dialogs, AWizardForgetsItsOldestPages)
{
    CAXPropertySheet sheet("Wizard");
    sheet.SetWizardMode();
    EXPECT_TRUE(sheet.IsWizard());
    EXPECT_EQ(sheet.WizardPopPageID(), -1);
    sheet.SetWizardStackLimit(2);
    for (const UINT id : {1u, 2u, 3u}) sheet.WizardPushPageID(id);
    EXPECT_EQ(sheet.WizardPopPageID(), 3);
    EXPECT_EQ(sheet.WizardPopPageID(), 2);
    EXPECT_EQ(sheet.WizardPopPageID(), -1);
}

} // namespace
