// A tree view.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// TreeViews.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/TreeViews.h"

class COREKIT_API CTreeCtrl : public CWnd {
    DECLARE_DYNAMIC(CTreeCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_TREEVIEWA, nullptr, style, rect, parent, id);
    }
    HTREEITEM InsertItem(const TVINSERTSTRUCTA* what)
    {
        return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(what)));
    }
    HTREEITEM InsertItem(const char* text, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
    HTREEITEM InsertItem(const char* text, int image, int selectedImage, HTREEITEM parent = TVI_ROOT,
                         HTREEITEM after = TVI_LAST);
    BOOL DeleteItem(HTREEITEM item)
    {
        return SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL DeleteAllItems() { return DeleteItem(TVI_ROOT); }
    UINT GetCount() const { return static_cast<UINT>(SendMessage(TVM_GETCOUNT, 0, 0)); }
    BOOL GetItem(TVITEMA* item) const
    {
        return SendMessage(TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL SetItem(const TVITEMA* item)
    {
        return SendMessage(TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    CString GetItemText(HTREEITEM item) const;
    BOOL SetItemText(HTREEITEM item, const char* text);
    DWORD_PTR GetItemData(HTREEITEM item) const; // 0 for an item that does not exist
    BOOL SetItemData(HTREEITEM item, DWORD_PTR data);
    BOOL SetItemState(HTREEITEM item, UINT state, UINT mask);
    BOOL SetCheck(HTREEITEM item, BOOL checked = TRUE)
    {
        return SetItemState(item, INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), TVIS_STATEIMAGEMASK);
    }
    BOOL GetCheck(HTREEITEM item) const { return GetItemState(item, TVIS_STATEIMAGEMASK) >> 12 > 1; }
    UINT GetItemState(HTREEITEM item, UINT mask) const
    {
        return static_cast<UINT>(SendMessage(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), mask));
    }
    HTREEITEM GetNextItem(HTREEITEM item, UINT which) const
    {
        return reinterpret_cast<HTREEITEM>(
            SendMessage(TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
    }
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }
    HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
    HTREEITEM GetChildItem(HTREEITEM item) const { return GetNextItem(item, TVGN_CHILD); }
    HTREEITEM GetParentItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PARENT); }
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PREVIOUS); }
    BOOL ItemHasChildren(HTREEITEM item) const { return GetChildItem(item) != nullptr; }
    BOOL Select(HTREEITEM item, UINT how)
    {
        return SendMessage(TVM_SELECTITEM, how, reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL SelectItem(HTREEITEM item) { return Select(item, TVGN_CARET); }
    BOOL SelectDropTarget(HTREEITEM item) { return Select(item, TVGN_DROPHILITE); }
    BOOL Expand(HTREEITEM item, UINT how)
    {
        return SendMessage(TVM_EXPAND, how, reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL EnsureVisible(HTREEITEM item)
    {
        return SendMessage(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL SortChildren(HTREEITEM parent)
    {
        return SendMessage(TVM_SORTCHILDREN, 0, reinterpret_cast<LPARAM>(parent)) != 0;
    }
    BOOL SortChildrenCB(TVSORTCB* how)
    {
        return SendMessage(TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(how)) != 0;
    }
    HTREEITEM HitTest(TVHITTESTINFO* info) const
    {
        return reinterpret_cast<HTREEITEM>(SendMessage(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    HTREEITEM HitTest(POINT point, UINT* flags = nullptr) const;
    BOOL GetItemRect(HTREEITEM item, RECT* rect, BOOL onlyText) const;
    HWND EditLabel(HTREEITEM item)
    {
        return reinterpret_cast<HWND>(SendMessage(TVM_EDITLABELA, 0, reinterpret_cast<LPARAM>(item)));
    }
    HIMAGELIST SetImageList(HIMAGELIST list, int which = 0)
    {
        return reinterpret_cast<HIMAGELIST>(
            SendMessage(TVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list)));
    }
};
