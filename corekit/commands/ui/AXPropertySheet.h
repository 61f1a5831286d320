// The base of every sheet and wizard here. It has no Apply button, knows whether data has changed, and can
// own its pages.
//
//     CAXPropertySheet sheet("Settings", this);
//     sheet.SetAutoDeleteMode(1);
//     sheet.AddPage(new NamePage);
//     if (sheet.DoModal() == IDOK) ...
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
    // `selectPage` is the index of the page that is in front at first. User-interface thread.
    explicit CAXPropertySheet(UINT captionId, CWnd* parent = nullptr, UINT selectPage = 0);
    explicit CAXPropertySheet(const char* caption, CWnd* parent = nullptr, UINT selectPage = 0);

    ~CAXPropertySheet() override; // in auto delete mode deletes the pages, from the first

    void SetAutoDeleteMode(int on) { m_autoDelete = on; } // pages were made with new and are the sheet's
    // Tabs in several rows; before the sheet is shown. Else they are in one, with arrows.
    void SetMultilineTabs(int on) { m_multilineTabs = on; }
    // Set by SetModified of the pages; hosts take it back once they have stored everything.
    void SetDataChanged(int changed) { m_dataChanged = changed; }
    int DataChanged() const { return m_dataChanged; }

    int CancelDisabled() const { return !m_cancelEnabled; } // nonzero once what was done cannot be undone
    // A change of the state hides Cancel in a modal sheet; in a modeless one, which lies in a dialog, it
    // shows or hides that dialog's.
    void SetCancelState(int enabled);

    // The page at an index from 0, the one in front, and the first of a class; or of one derived from it;
    // null for a page of another kind and where there is none.
    CAXPropertyPage* GetPageEx(int index) const;
    CAXPropertyPage* GetActivePageEx() const;
    CAXPropertyPage* FindPageEx(CRuntimeClass* pageClass) const; // the first of that class

    void RemovePage(CPropertyPage* page); // deletes it in auto delete mode, like the next two
    void RemovePage(int index);
    void RemoveAllPages(); // from the last

    // Stores the variables of all pages, and moves data between controls and variables. Pages in order,
    // those left out that have never been shown; 0 at the first that refuses.
    int CommitAllPages();
    int UpdateDataAllPages(int save);

    // The road back through a wizard: templates of the pages left behind.
    void SetWizardStackLimit(int limit) { m_stackLimit = limit; } // the oldest are forgotten; 0: none are
    void WizardPushPageID(UINT id);
    long WizardPopPageID(); // -1: there is none
    int WizardAllowBack() const { return !m_stack.empty(); }
    int IsWizard() const { return (m_psh.dwFlags & PSH_WIZARD) != 0; }
    // Makes it a wizard, before it is shown.
    void SetWizardMode() { m_psh.dwFlags |= PSH_WIZARD | PSH_WIZARDHASFINISH; }

    INT_PTR DoModal() override; // IDOK or IDCANCEL; blocks until the sheet is closed
    BOOL OnInitDialog() override;

private:
    std::vector<UINT> m_stack; // templates, the last left behind at the end
    int m_stackLimit = 0;      // 0 for none
    int m_autoDelete = 0;
    int m_multilineTabs = 0;
    int m_dataChanged = 0;
    int m_cancelEnabled = 1;
    bool m_isModal = false; // during DoModal
};
