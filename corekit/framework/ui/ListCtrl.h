// A list view.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ListViews.h. User-interface thread only.
//
// Rows and columns count from 0; column 0 is the item itself. Structures say by their mask which members
// count. Text of rows is in the active code page. With LVS_OWNERDATA the control keeps the number of rows
// only and asks the parent for what it shows; operations that set contents fail then. The parent hears LVN_
// notifications.
//
//     CListCtrl stories;
//     stories.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 400, 300), this, idStories);
//     stories.InsertColumn(0, "Story", LVCFMT_LEFT, 250);
//     stories.InsertColumn(1, "Length", LVCFMT_RIGHT, 80);
//     const int row = stories.InsertItem(0, "Weather");
//     stories.SetItemText(row, 1, "0:45");
//
//     // A walk over the selected rows:
//     for (POSITION at = stories.GetFirstSelectedItemPosition(); at;) Use(stories.GetNextSelectedItem(at));
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ListViewNotifications.h"
#include "corekit/platform/ListViews.h"

class COREKIT_API CListCtrl : public CWnd {
    DECLARE_DYNAMIC(CListCtrl)

    // A child of `parent`. LVS_REPORT shows rows with columns, LVS_ICON, LVS_SMALLICON and LVS_LIST only
    // items; the kind stays.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_LISTVIEWA, nullptr, style, rect, parent, id);
    }
    // Of a report: in front of the column, at the end for a larger number. Answers the column, -1 on
    // failure.
    int InsertColumn(int column, const LVCOLUMNA* what)
    {
        return static_cast<int>(
            SendMessage(LVM_INSERTCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(what)));
    }
    // Width in pixels; -1 leaves it to the control. `format`: LVCFMT_. `subItem` is kept and given back.
    int InsertColumn(int column, const char* title, int format = LVCFMT_LEFT, int width = -1,
                     int subItem = -1);
    // In front of the row, or with LVS_SORTASCENDING and LVS_SORTDESCENDING where it belongs. Answers the
    // row, -1 on failure. LPSTR_TEXTCALLBACK: the parent gives the text when it is shown.
    int InsertItem(int row, const char* text);
    // `image` counts in the list given to SetImageList.
    int InsertItem(int row, const char* text, int image);
    // Up to 1,023 bytes; empty for a row or column that does not exist. May ask the parent.
    CString GetItemText(int row, int column) const;
    // False for a row or column that does not exist.
    BOOL SetItemText(int row, int column, const char* text);
    DWORD_PTR GetItemData(int row) const; // 0 for a row that does not exist
    // A value of the caller's at the row.
    BOOL SetItemData(int row, DWORD_PTR data);
    // LVIS_ bits of the mask; row -1 sets all rows. The parent hears LVN_ITEMCHANGING, which may refuse, and
    // LVN_ITEMCHANGED.
    BOOL SetItemState(int row, UINT state, UINT mask);
    // With all that the mask names. Sub-items are set by SetItemText or SetItem.
    int InsertItem(const LVITEMA* item)
    {
        return static_cast<int>(SendMessage(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(item)));
    }
    // False for a column that does not exist and unless it is a report.
    BOOL GetColumn(int column, LVCOLUMNA* what) const
    {
        return SendMessage(LVM_GETCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(what)) != 0;
    }
    BOOL SetColumn(int column, const LVCOLUMNA* what)
    {
        return SendMessage(LVM_SETCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(what)) != 0;
    }
    // Takes its texts along.
    BOOL DeleteColumn(int column)
    {
        return SendMessage(LVM_DELETECOLUMN, static_cast<WPARAM>(column), 0) != 0;
    }
    // In pixels; 0 on failure.
    int GetColumnWidth(int column) const
    {
        return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    // LVSCW_AUTOSIZE: as wide as its contents and title; LVSCW_AUTOSIZE_USEHEADER: the last column also
    // takes what is left.
    BOOL SetColumnWidth(int column, int pixels)
    {
        return SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column),
                           static_cast<LPARAM>(static_cast<WORD>(pixels))) != 0;
    }
    // The header's window, made when first asked for; null unless it is a report.
    HWND GetHeader() const { return reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER, 0, 0)); }
    // iItem and iSubItem name the cell; text is copied to pszText, cut to cchTextMax.
    BOOL GetItem(LVITEMA* item) const
    {
        return SendMessage(LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    // Changes what the mask names.
    BOOL SetItem(const LVITEMA* item)
    {
        return SendMessage(LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(item)) != 0;
    }
    int GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT, 0, 0)); } // rows
    // With LVS_OWNERDATA the number of rows, else a hint how many will come.
    void SetItemCount(int rows) { SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(rows), 0); }
    // The parent hears LVN_DELETEITEM before.
    BOOL DeleteItem(int row) { return SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(row), 0) != 0; }
    // The parent hears LVN_DELETEALLITEMS and, unless it answers other than 0, LVN_DELETEITEM for each row.
    BOOL DeleteAllItems() { return SendMessage(LVM_DELETEALLITEMS, 0, 0) != 0; }
    // LVIS_ bits of the mask; 0 for a row that does not exist.
    UINT GetItemState(int row, UINT mask) const
    {
        return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
    }
    // The first row behind `after` (-1: from the top) that has all LVNI_ states named; -1 if there is none.
    // Linear in the rows.
    int GetNextItem(int after, int which) const
    {
        return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(after), which));
    }
    // Kept, so it costs nothing.
    UINT GetSelectedCount() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT, 0, 0)); }
    // The row at which a selection with Shift begins; -1 for none.
    int GetSelectionMark() const { return static_cast<int>(SendMessage(LVM_GETSELECTIONMARK, 0, 0)); }
    // The former one.
    int SetSelectionMark(int row) { return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, row)); }
    // For a walk over the selected rows; null behind the last. Null for none.
    POSITION GetFirstSelectedItemPosition() const;
    // The row at the position, which moves on; -1 for a null position.
    int GetNextSelectedItem(POSITION& position) const;
    // By text (LVFI_STRING, LVFI_PARTIAL for a beginning, case disregarded) or by LVFI_PARAM; LVFI_WRAP goes
    // on at the top. -1 if there is none.
    int FindItem(const LVFINDINFOA* what, int after = -1) const
    {
        return static_cast<int>(
            SendMessage(LVM_FINDITEMA, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(what)));
    }
    // The procedure gets the data of two rows and the parameter; above 0: the first belongs behind the
    // second. Rows that are equal keep their order. False if the list was changed meanwhile.
    BOOL SortItems(PFNLVCOMPARE compare, LPARAM parameter)
    {
        return SendMessage(LVM_SORTITEMS, static_cast<WPARAM>(parameter),
                           reinterpret_cast<LPARAM>(compare)) != 0;
    }
    // Scrolls the row into view. `partial` is not used.
    BOOL EnsureVisible(int row, BOOL partial)
    {
        return SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), partial) != 0;
    }
    // Both ends included; drawn with the next paint.
    BOOL RedrawItems(int first, int last)
    {
        return SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last) != 0;
    }
    // One row.
    BOOL Update(int row) { return SendMessage(LVM_UPDATE, static_cast<WPARAM>(row), 0) != 0; }
    // The row at pt, -1 for none; flags says which part of it. Beside the item only where whole rows are
    // selected.
    int HitTest(LVHITTESTINFO* info) const
    {
        return static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    // The same with the column.
    int SubItemHitTest(LVHITTESTINFO* info) const
    {
        return static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    // `part`: LVIR_. In the client area; false for a row that does not exist.
    BOOL GetItemRect(int row, RECT* rect, UINT part) const
    {
        rect->left = static_cast<LONG>(part);
        return SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(rect)) != 0;
    }
    // The first row in view of a report, else 0.
    int GetTopIndex() const { return static_cast<int>(SendMessage(LVM_GETTOPINDEX, 0, 0)); }
    // Rows that fit into a report's height; of other kinds all rows.
    int GetCountPerPage() const { return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE, 0, 0)); }
    DWORD GetExtendedStyle() const
    {
        return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    }
    // All LVS_EX_ bits at once; answers the former ones.
    DWORD SetExtendedStyle(DWORD style)
    {
        return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style));
    }
    // With LVS_EX_CHECKBOXES.
    BOOL SetCheck(int row, BOOL checked = TRUE)
    {
        return SetItemState(row, INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), LVIS_STATEIMAGEMASK);
    }
    BOOL GetCheck(int row) const { return GetItemState(row, LVIS_STATEIMAGEMASK) >> 12 > 1; }
    // Of LVSIL_NORMAL for icons and LVSIL_SMALL for the other kinds; not owned. Answers the former.
    HIMAGELIST SetImageList(HIMAGELIST list, int which)
    {
        return reinterpret_cast<HIMAGELIST>(
            SendMessage(LVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list)));
    }
    // Opens the item's text for editing, with LVS_EDITLABELS: the edit control's window, null on failure.
    // The parent hears LVN_BEGINLABELEDIT, which may refuse, and LVN_ENDLABELEDIT.
    HWND EditLabel(int row)
    {
        return reinterpret_cast<HWND>(SendMessage(LVM_EDITLABELA, static_cast<WPARAM>(row), 0));
    }

    // Of rows that the owner draws; they do nothing here. With LVS_OWNERDRAWFIXED: DrawItem draws a whole
    // row of a report, MeasureItem sets the height of all in pixels.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}
    virtual void MeasureItem(MEASUREITEMSTRUCT*) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
