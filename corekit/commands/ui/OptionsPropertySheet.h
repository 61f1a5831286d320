// The settings of a program: a tree of categories beside the pages of the one picked.
//
// Picking another category saves what was changed in the present one, after asking, or drops it; one that
// cannot be saved stays picked. OK saves the present category, Cancel drops its changes; those that were
// left before are not brought back. User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/platform/TreeViews.h"

class CLogTarget;
class COptionsCategory;

class COREKIT_API COptionsPropertySheet : public CAXPropertySheet {
    DECLARE_DYNAMIC(COptionsPropertySheet)
public:
    // The tree begins with `root`, which must outlive the sheet. The caption is a number in the string
    // table. The log may be null; it gets a trace line for each step. A page must be added before the sheet
    // is shown, as no category is picked at first.
    COptionsPropertySheet(UINT captionId, CWnd* parent, COptionsCategory& root, CLogTarget* log);

    // Widens the sheet by 200 pixels for the tree, and fills it.
    BOOL OnInitDialog() override;

protected:
    void OnOK(); // ends the sheet unless the category cannot be saved
    void OnCancel();
    void OnSelChangedOptionsList(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    // Widens the frame, moves everything in it to the right, and makes the tree.
    void MakeRoomForTree();
    void FillTree();
    HTREEITEM InsertCategory(COptionsCategory& category, HTREEITEM parent); // with all below it
    void InsertChildren(COptionsCategory& category, HTREEITEM parent);
    COptionsCategory* CategoryOf(HTREEITEM item) const; // null for no item
    // Null before the first pick.
    COptionsCategory* Current() const { return m_current ? CategoryOf(m_current) : nullptr; }
    int PickAnother();                 // the tree has another item selected; 0 if the present one stays
    int LeaveCategory();               // saves or drops; 0 to stay
    int SaveCategory();                // 0 if a page or the category refuses
    void LoadCategory(HTREEITEM item); // puts its pages in place of those there
    void Log(const WCHAR* text) const;

    CLogTarget* m_log;
    COptionsCategory* m_root;      // not owned
    HTREEITEM m_current = nullptr; // of the category picked
};
