// The base of every sheet and wizard here. It has no Apply button, knows whether data has changed, and can
// own its pages.
#pragma once

#include "corekit/framework/ui/PropertySheet.h"

#include <vector>

class CAXPropertyPage;

namespace corekit::detail {
// A page as its sheet sees it.
class COREKIT_API CommittingPage {
public:
    virtual int CommitPage() = 0; // stores what the page holds; 0 refuses

protected:
    ~CommittingPage() = default;
};
} // namespace corekit::detail

class COREKIT_API CAXPropertySheet : public CPropertySheet {
    DECLARE_DYNAMIC(CAXPropertySheet)
public:
    CAXPropertySheet(); // with the caption "No Caption Set"
    explicit CAXPropertySheet(UINT captionId, CWnd* parent = nullptr, UINT selectPage = 0);
    explicit CAXPropertySheet(const char* caption, CWnd* parent = nullptr, UINT selectPage = 0);
    ~CAXPropertySheet() override; // in auto delete mode deletes the pages, from the first

    void SetAutoDeleteMode(int on) { m_autoDelete = on; } // pages were made with new and are the sheet's
    void SetMultilineTabs(int on) { m_multilineTabs = on; }
    void SetDataChanged(int changed) { m_dataChanged = changed; }
    int DataChanged() const { return m_dataChanged; }
    int CancelDisabled() const { return !m_cancelEnabled; }
    // A change of the state hides Cancel in a modal sheet; in a modeless one, which lies in a dialog, it
    // shows or hides that dialog's.
    void SetCancelState(int enabled);

    CAXPropertyPage* GetPageEx(int index) const; // null for a page of another kind
    CAXPropertyPage* GetActivePageEx() const;
    CAXPropertyPage* FindPageEx(CRuntimeClass* pageClass) const; // the first of that class
    void RemovePage(CPropertyPage* page); // deletes it in auto delete mode, like the next two
    void RemovePage(int index);
    void RemoveAllPages(); // from the last

    // Pages in order, those left out that have never been shown; 0 at the first that refuses.
    int CommitAllPages();
    int UpdateDataAllPages(int save);

    // The road back through a wizard: templates of the pages left behind.
    void SetWizardStackLimit(int limit) { m_stackLimit = limit; } // the oldest are forgotten; 0: none are
    void WizardPushPageID(UINT id);
    long WizardPopPageID(); // -1: there is none
    int WizardAllowBack() const { return !m_stack.empty(); }
    int IsWizard() const { return (m_psh.dwFlags & PSH_WIZARD) != 0; }
    void SetWizardMode() { m_psh.dwFlags |= PSH_WIZARD | PSH_WIZARDHASFINISH; }

    INT_PTR DoModal() override;
    BOOL OnInitDialog() override;

private:
    std::vector<UINT> m_stack;
    int m_stackLimit = 0;
    int m_autoDelete = 0;
    int m_multilineTabs = 0;
    int m_dataChanged = 0;
    int m_cancelEnabled = 1;
    bool m_isModal = false;
};
