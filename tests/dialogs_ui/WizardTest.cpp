#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/commands/ui/AXPropertySheet.h"

#include "Modal.h"

#include <string>

namespace {

constexpr UINT firstTemplate = 4017, secondTemplate = 4007; // two that are there

std::string journal; // what the pages were asked, in order

class Step : public CAXPropertyPage {
public:
    Step(UINT id, long next) : CAXPropertyPage(id), m_next(next) {}
    void LoadPage() override { journal += Name() + "load "; }
    int CommitPage() override
    {
        journal += Name() + "commit ";
        return std::exchange(refusals, 0) == 0;
    }
    void UpdateControls() override {}
    long WizardGetNextPage() override { return m_next; }
    int WizardEnableNextButton() override { return m_next > 0; }
    int WizardEnableFinishButton() override { return m_next == 0; }
    int WizardFinish() override
    {
        journal += Name() + "finish ";
        return 1;
    }

    static inline int refusals = 0;

private:
    std::string Name() const { return m_next ? "first:" : "second:"; }
    long m_next;
};

class Plain : public CPropertyPage {
public:
    using CPropertyPage::CPropertyPage;
    BOOL OnKillActive() override
    {
        journal += "left ";
        return CPropertyPage::OnKillActive();
    }
};

TEST(Wizards, TakeTheFieldsOfAPageThatIsLeft)
{
    ASSERT_TRUE(StartToolkit());
    journal.clear();
    Plain first(firstTemplate), second(secondTemplate);
    CPropertySheet sheet("Wizard");
    sheet.SetWizardMode();
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    const auto press = [&sheet](int button) { return [&sheet, button] { sheet.PressButton(button); }; };
    Acts acts{press(PSBTN_NEXT), press(PSBTN_BACK), press(PSBTN_NEXT), press(PSBTN_FINISH)};
    EXPECT_EQ(sheet.DoModal(), ID_WIZFINISH);
    EXPECT_EQ(journal, "left left left left ");
}

TEST(Wizards, GoOnAndBackAndEndWhereTheyMay)
{
    ASSERT_TRUE(StartToolkit());
    journal.clear();
    CAXPropertySheet sheet("Wizard");
    sheet.SetWizardMode();
    sheet.SetAutoDeleteMode(1);
    sheet.AddPage(new Step(firstTemplate, secondTemplate));
    sheet.AddPage(new Step(secondTemplate, 0));
    const auto press = [&sheet](int button) { return [&sheet, button] { sheet.PressButton(button); }; };
    std::string at;
    const auto note = [&] {
        const auto isOn = [&](int id) { return sheet.GetDlgItem(id)->IsWindowEnabled() != 0; };
        at += std::to_string(sheet.GetActiveIndex());
        at += isOn(ID_WIZBACK) ? "b" : "-";
        at += isOn(ID_WIZNEXT) ? "n" : "-";
        at += isOn(ID_WIZFINISH) ? "f " : "- ";
    };
    Step::refusals = 1; // the first page stays once
    Acts acts{note,
              press(PSBTN_NEXT),
              note,
              press(PSBTN_NEXT),
              note,
              press(PSBTN_BACK),
              note,
              press(PSBTN_NEXT),
              press(PSBTN_FINISH)};
    EXPECT_EQ(sheet.DoModal(), ID_WIZFINISH);
    EXPECT_EQ(at, "0-n- 0-n- 1b-f 0-n- ");
    EXPECT_EQ(journal,
              "first:load first:commit first:commit second:load first:commit second:commit second:finish ");
}

} // namespace
