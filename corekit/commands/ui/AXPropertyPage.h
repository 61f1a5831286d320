// The base of every page here: it loads itself, commits itself and keeps its controls up to date.
//
// A derived class supplies LoadPage, CommitPage and UpdateControls, and DoDataExchange between its variables
// and the controls. It calls SetModified(1) when the user has changed something.
#pragma once

#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/framework/ui/PropertyPage.h"

class COREKIT_API CAXPropertyPage : public CPropertyPage, public corekit::detail::CommittingPage {
    DECLARE_DYNAMIC(CAXPropertyPage)
public:
    explicit CAXPropertyPage(UINT templateId, UINT captionId = 0);
    explicit CAXPropertyPage(const char* templateName, UINT captionId = 0);
    ~CAXPropertyPage() override;

    virtual void LoadPage() = 0;       // fills the variables, once, before they go to the controls
    int CommitPage() override = 0;     // stores the variables; 0 refuses
    virtual void UpdateControls() = 0; // enabled states and the like, from the variables

    virtual long WizardPreviousPage();
    virtual long WizardNextPage();
    virtual int WizardFinish() { return 1; }
    virtual DWORD WizardGetButtons();
    virtual long WizardGetNextPage() { return 0; } // template of the next page; 0: none
    virtual int WizardEnableFinishButton() { return 0; }
    virtual int WizardEnableNextButton() { return 0; }

    // Tells the sheet that data has changed; in a wizard the buttons are looked at again. While the page
    // loads, nothing has.
    void SetModified(int changed);
    void CancelToClose(); // what was changed is saved without asking from now on
    // With a nonzero flag the page commits whenever it is left, and may refuse that.
    void CommitOnKill(int commit) { m_commitOnKill = commit; }
    CAXPropertySheet* GetSheet() const; // null without a window

    BOOL OnInitDialog() override;
    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    BOOL OnApply() override;
    LRESULT OnWizardBack() override;
    LRESULT OnWizardNext() override;
    BOOL OnWizardFinish() override;

private:
    void RefreshWizardButtons();

    int m_commitOnKill = 0;
    bool m_isLoading = false;
};
