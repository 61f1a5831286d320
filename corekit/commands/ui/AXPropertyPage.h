// The base of every page here: it loads itself, commits itself and keeps its controls up to date.
//
// A derived class supplies LoadPage, CommitPage and UpdateControls, and DoDataExchange between its variables
// and the controls. It calls SetModified(1) when the user has changed something.
//
//     class NamePage : public CAXPropertyPage {
//         void LoadPage() override { m_name = settings.name; }
//         int CommitPage() override { return settings.name = m_name, 1; }
//         void UpdateControls() override {}
//         void DoDataExchange(CDataExchange* exchange) override
//         {
//             CAXPropertyPage::DoDataExchange(exchange);
//             DDX_Text(exchange, nameControl, m_name);
//         }
//     };
#pragma once

#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/framework/ui/PropertyPage.h"

class COREKIT_API CAXPropertyPage : public CPropertyPage, public corekit::detail::CommittingPage {
    DECLARE_DYNAMIC(CAXPropertyPage)
public:
    // The controls are those of a dialog template; a caption of 0 is the template's own. User-interface
    // thread.
    explicit CAXPropertyPage(UINT templateId, UINT captionId = 0);
    explicit CAXPropertyPage(const char* templateName, UINT captionId = 0);

    ~CAXPropertyPage() override;

    virtual void LoadPage() = 0;       // fills the variables, once, before they go to the controls
    int CommitPage() override = 0;     // stores the variables; 0 refuses
    virtual void UpdateControls() = 0; // enabled states and the like, from the variables

    // In a wizard. The template of the page to go to, or -1 to stay: back, the page that was left last;
    // next, what WizardGetNextPage says, and this page is remembered.
    virtual long WizardPreviousPage();
    virtual long WizardNextPage();
    // Nonzero lets the wizard end; asked when the page has committed.
    virtual int WizardFinish() { return 1; }
    // The buttons that can be pressed (PSWIZB_), from the two answers below and from whether there is a way
    // back.
    virtual DWORD WizardGetButtons();

    virtual long WizardGetNextPage() { return 0; } // template of the next page; 0: none
    virtual int WizardEnableFinishButton() { return 0; }
    virtual int WizardEnableNextButton() { return 0; }

    // Tells the sheet that data has changed, or with 0 that it has not; in a wizard the buttons are looked
    // at again. While the page loads, nothing has.
    void SetModified(int changed);

    void CancelToClose(); // what was changed is saved without asking from now on
    // With a nonzero flag the page commits whenever it is left, and may refuse that.
    void CommitOnKill(int commit) { m_commitOnKill = commit; }
    CAXPropertySheet* GetSheet() const; // null without a window

    // Loads the page and fills the controls.
    BOOL OnInitDialog() override;
    // The page comes to the front: its controls and the wizard's buttons are brought up to date.
    BOOL OnSetActive() override;
    // The page is left, or OK was pressed while it was in front: 0 keeps it there.
    BOOL OnKillActive() override;

    BOOL OnApply() override; // commits; 0 refuses
    LRESULT OnWizardBack() override;
    LRESULT OnWizardNext() override;
    BOOL OnWizardFinish() override;

private:
    void RefreshWizardButtons();

    int m_commitOnKill = 0;   // see CommitOnKill
    bool m_isLoading = false; // during OnInitDialog
};
