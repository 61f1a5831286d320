// The settings of a program: a tree of categories beside the pages of the one picked.
//
// Picking another category saves what was changed in the present one, after asking, or drops it; one that
// cannot be saved stays picked.
#pragma once

#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/platform/TreeViews.h"

class CLogTarget;
class COptionsCategory;

class COREKIT_API COptionsPropertySheet : public CAXPropertySheet {
    DECLARE_DYNAMIC(COptionsPropertySheet)
public:
    // The log may be null.
    COptionsPropertySheet(UINT captionId, CWnd* parent, COptionsCategory& root, CLogTarget* log);

    BOOL OnInitDialog() override;

protected:
    void OnOK();
    void OnCancel();
    void OnSelChangedOptionsList(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    void MakeRoomForTree();
    void FillTree();
    HTREEITEM InsertCategory(COptionsCategory& category, HTREEITEM parent);
    void InsertChildren(COptionsCategory& category, HTREEITEM parent);
    COptionsCategory* CategoryOf(HTREEITEM item) const;
    COptionsCategory* Current() const { return m_current ? CategoryOf(m_current) : nullptr; }
    void PickAnother();
    int LeaveCategory();
    int SaveCategory();
    void LoadCategory(HTREEITEM item);
    void Log(const WCHAR* text) const;

    CLogTarget* m_log;
    COptionsCategory* m_root;
    HTREEITEM m_current = nullptr;
};
