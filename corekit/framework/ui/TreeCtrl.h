// A tree view.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// TreeViews.h. User-interface thread only.
//
// An item is known by its handle, which stays the same until the item is deleted; a handle that is none of
// the tree's is refused. Structures say by their mask which members count. Text is in the active code page.
// The parent hears TVN_ notifications.
//
//     CTreeCtrl tree;
//     tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_LINESATROOT, place, this, idTree);
//     const HTREEITEM show = tree.InsertItem("Evening show");
//     tree.SetItemData(tree.InsertItem("Opening", show), number);
//     tree.Expand(show, TVE_EXPAND);
//
//     // A walk over the children of an item:
//     for (HTREEITEM at = tree.GetChildItem(show); at; at = tree.GetNextSiblingItem(at)) Use(at);
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/TreeViews.h"

class COREKIT_API CTreeCtrl : public CWnd {
    DECLARE_DYNAMIC(CTreeCtrl)

    // A child of `parent`. TVS_ styles: buttons, editing of labels, check boxes and so on.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_TREEVIEWA, nullptr, style, rect, parent, id);
    }
    // Null if the parent is no item. With TVI_SORT it is put among its siblings by text.
    HTREEITEM InsertItem(const TVINSERTSTRUCTA* what)
    {
        return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(what)));
    }
    // Behind `after`, an item or TVI_FIRST, TVI_LAST, TVI_SORT. LPSTR_TEXTCALLBACK: the parent gives the
    // text when it is shown.
    HTREEITEM InsertItem(const char* text, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
    // Pictures count in the list given to SetImageList.
    HTREEITEM InsertItem(const char* text, int image, int selectedImage, HTREEITEM parent = TVI_ROOT,
                         HTREEITEM after = TVI_LAST);
    // With all below it; the parent hears TVN_DELETEITEM for each, children first. A selection within goes
    // to a neighbour before.
    BOOL DeleteItem(HTREEITEM item)
    {
        return SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL DeleteAllItems() { return DeleteItem(TVI_ROOT); }
    // Items of the whole tree.
    UINT GetCount() const { return static_cast<UINT>(SendMessage(TVM_GETCOUNT, 0, 0)); }
    // hItem names it; text is copied to pszText, cut to cchTextMax.
    BOOL GetItem(TVITEMA* item) const
    {
        return SendMessage(TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    // Changes what the mask names.
    BOOL SetItem(const TVITEMA* item)
    {
        return SendMessage(TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    // Up to 1,023 bytes; may ask the parent.
    CString GetItemText(HTREEITEM item) const;
    BOOL SetItemText(HTREEITEM item, const char* text);
    DWORD_PTR GetItemData(HTREEITEM item) const; // 0 for an item that does not exist
    // A value of the caller's at the item.
    BOOL SetItemData(HTREEITEM item, DWORD_PTR data);
    // TVIS_ bits of the mask. Expanding in this way tells nobody; selecting does.
    BOOL SetItemState(HTREEITEM item, UINT state, UINT mask);
    // With TVS_CHECKBOXES. Neither this nor the user's click tells the parent.
    BOOL SetCheck(HTREEITEM item, BOOL checked = TRUE)
    {
        return SetItemState(item, INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), TVIS_STATEIMAGEMASK);
    }
    BOOL GetCheck(HTREEITEM item) const { return GetItemState(item, TVIS_STATEIMAGEMASK) >> 12 > 1; }
    // TVIS_ bits of the mask; 0 for an item that does not exist.
    UINT GetItemState(HTREEITEM item, UINT mask) const
    {
        return static_cast<UINT>(SendMessage(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), mask));
    }
    // TVGN_ relation; null if there is none.
    HTREEITEM GetNextItem(HTREEITEM item, UINT which) const
    {
        return reinterpret_cast<HTREEITEM>(
            SendMessage(TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
    }
    // The first item at the top; the others are its siblings.
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }
    // The topmost on show.
    HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
    HTREEITEM GetChildItem(HTREEITEM item) const { return GetNextItem(item, TVGN_CHILD); }
    HTREEITEM GetParentItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PARENT); }
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PREVIOUS); }
    // Children that are there.
    BOOL ItemHasChildren(HTREEITEM item) const { return GetChildItem(item) != nullptr; }
    // TVGN_CARET, TVGN_DROPHILITE or TVGN_FIRSTVISIBLE; null selects none. False where the parent refuses.
    BOOL Select(HTREEITEM item, UINT how)
    {
        return SendMessage(TVM_SELECTITEM, how, reinterpret_cast<LPARAM>(item)) != 0;
    }
    // The parent hears TVN_SELCHANGING and TVN_SELCHANGED.
    BOOL SelectItem(HTREEITEM item) { return Select(item, TVGN_CARET); }
    // Marked as the place of a drop; null takes the mark away.
    BOOL SelectDropTarget(HTREEITEM item) { return Select(item, TVGN_DROPHILITE); }
    // TVE_. False for an item without children and where the parent refuses. The parent is told of
    // collapsing and of the first time that an item opens.
    BOOL Expand(HTREEITEM item, UINT how)
    {
        return SendMessage(TVM_EXPAND, how, reinterpret_cast<LPARAM>(item)) != 0;
    }
    // Scrolls the item into view; 0 in any case.
    BOOL EnsureVisible(HTREEITEM item)
    {
        return SendMessage(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    // By text, case disregarded; null or TVI_ROOT: the top. Only one level.
    BOOL SortChildren(HTREEITEM parent)
    {
        return SendMessage(TVM_SORTCHILDREN, 0, reinterpret_cast<LPARAM>(parent)) != 0;
    }
    // By a procedure that gets the data of two items; below 0: the first goes before the second.
    BOOL SortChildrenCB(TVSORTCB* how)
    {
        return SendMessage(TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(how)) != 0;
    }
    // The item at pt, null for none; flags says which part of it, or on which side of the control pt lies.
    HTREEITEM HitTest(TVHITTESTINFO* info) const
    {
        return reinterpret_cast<HTREEITEM>(SendMessage(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    HTREEITEM HitTest(POINT point, UINT* flags = nullptr) const;
    // In the client area; false for an item out of sight in a collapsed one.
    BOOL GetItemRect(HTREEITEM item, RECT* rect, BOOL onlyText) const;
    // Opens the text for editing, with TVS_EDITLABELS: the edit control's window, null on failure.
    HWND EditLabel(HTREEITEM item)
    {
        return reinterpret_cast<HWND>(SendMessage(TVM_EDITLABELA, 0, reinterpret_cast<LPARAM>(item)));
    }
    // TVSIL_NORMAL or TVSIL_STATE; not owned. Answers the former.
    HIMAGELIST SetImageList(HIMAGELIST list, int which = 0)
    {
        return reinterpret_cast<HIMAGELIST>(
            SendMessage(TVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list)));
    }
};
