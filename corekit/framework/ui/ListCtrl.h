// A list view.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ListViews.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ListViewNotifications.h"
#include "corekit/platform/ListViews.h"

class COREKIT_API CListCtrl : public CWnd {
    DECLARE_DYNAMIC(CListCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_LISTVIEWA, nullptr, style, rect, parent, id);
    }
    int InsertColumn(int column, const LVCOLUMNA* what)
    {
        return static_cast<int>(
            SendMessage(LVM_INSERTCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(what)));
    }
    int InsertColumn(int column, const char* title, int format = LVCFMT_LEFT, int width = -1,
                     int subItem = -1);
    int InsertItem(int row, const char* text);
    int InsertItem(int row, const char* text, int image);
    CString GetItemText(int row, int column) const;
    BOOL SetItemText(int row, int column, const char* text);
    DWORD_PTR GetItemData(int row) const; // 0 for a row that does not exist
    BOOL SetItemData(int row, DWORD_PTR data);
    BOOL SetItemState(int row, UINT state, UINT mask);
    int InsertItem(const LVITEMA* item)
    {
        return static_cast<int>(SendMessage(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(item)));
    }
    BOOL GetColumn(int column, LVCOLUMNA* what) const
    {
        return SendMessage(LVM_GETCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(what)) != 0;
    }
    BOOL SetColumn(int column, const LVCOLUMNA* what)
    {
        return SendMessage(LVM_SETCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(what)) != 0;
    }
    BOOL DeleteColumn(int column)
    {
        return SendMessage(LVM_DELETECOLUMN, static_cast<WPARAM>(column), 0) != 0;
    }
    int GetColumnWidth(int column) const
    {
        return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    BOOL SetColumnWidth(int column, int pixels)
    {
        return SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column),
                           static_cast<LPARAM>(static_cast<WORD>(pixels))) != 0;
    }
    HWND GetHeader() const { return reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER, 0, 0)); }
    BOOL GetItem(LVITEMA* item) const
    {
        return SendMessage(LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL SetItem(const LVITEMA* item)
    {
        return SendMessage(LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    int GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT, 0, 0)); }
    void SetItemCount(int rows) { SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(rows), 0); }
    BOOL DeleteItem(int row) { return SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(row), 0) != 0; }
    BOOL DeleteAllItems() { return SendMessage(LVM_DELETEALLITEMS, 0, 0) != 0; }
    UINT GetItemState(int row, UINT mask) const
    {
        return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
    }
    int GetNextItem(int after, int which) const
    {
        return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(after), which));
    }
    UINT GetSelectedCount() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT, 0, 0)); }
    int GetSelectionMark() const { return static_cast<int>(SendMessage(LVM_GETSELECTIONMARK, 0, 0)); }
    int SetSelectionMark(int row) { return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, row)); }
    // For a walk over the selected rows; null behind the last.
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& position) const;
    int FindItem(const LVFINDINFOA* what, int after = -1) const
    {
        return static_cast<int>(
            SendMessage(LVM_FINDITEMA, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(what)));
    }
    BOOL SortItems(PFNLVCOMPARE compare, LPARAM parameter)
    {
        return SendMessage(LVM_SORTITEMS, static_cast<WPARAM>(parameter),
                           reinterpret_cast<LPARAM>(compare)) != 0;
    }
    BOOL EnsureVisible(int row, BOOL partial)
    {
        return SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), partial) != 0;
    }
    BOOL RedrawItems(int first, int last)
    {
        return SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last) != 0;
    }
    BOOL Update(int row) { return SendMessage(LVM_UPDATE, static_cast<WPARAM>(row), 0) != 0; }
    int HitTest(LVHITTESTINFO* info) const
    {
        return static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    int SubItemHitTest(LVHITTESTINFO* info) const
    {
        return static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    BOOL GetItemRect(int row, RECT* rect, UINT part) const
    {
        rect->left = static_cast<LONG>(part);
        return SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(rect)) != 0;
    }
    int GetTopIndex() const { return static_cast<int>(SendMessage(LVM_GETTOPINDEX, 0, 0)); }
    int GetCountPerPage() const { return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE, 0, 0)); }
    DWORD GetExtendedStyle() const
    {
        return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    }
    DWORD SetExtendedStyle(DWORD style)
    {
        return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style));
    }
    BOOL SetCheck(int row, BOOL checked = TRUE)
    {
        return SetItemState(row, INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), LVIS_STATEIMAGEMASK);
    }
    BOOL GetCheck(int row) const { return GetItemState(row, LVIS_STATEIMAGEMASK) >> 12 > 1; }
    HIMAGELIST SetImageList(HIMAGELIST list, int which)
    {
        return reinterpret_cast<HIMAGELIST>(
            SendMessage(LVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list)));
    }
    HWND EditLabel(int row)
    {
        return reinterpret_cast<HWND>(SendMessage(LVM_EDITLABELA, static_cast<WPARAM>(row), 0));
    }

    // Of rows that the owner draws; they do nothing here.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}
    virtual void MeasureItem(MEASUREITEMSTRUCT*) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
