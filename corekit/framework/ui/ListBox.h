// A list box.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ListBoxes.h. User-interface thread only.
//
// Rows count from 0. Operations answer LB_ERR (-1) for a row that does not exist. Narrow text is in the
// active code page; the wide forms take any. With LBS_NOTIFY the parent hears LBN_ codes of what the user
// does, not of these operations.
//
//     CListBox list;
//     list.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY | LBS_SORT, place, this, idList);
//     list.SetItemDataPtr(list.AddString("Evening news"), &story);
//     ...
//     if (const int row = list.GetCurSel(); row >= 0) Open(list.GetItemDataPtr(row)); // at LBN_SELCHANGE
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ListBoxes.h"

#include <string>

class COREKIT_API CListBox : public CWnd {
    DECLARE_DYNAMIC(CListBox)

    // A child of `parent`. LBS_ styles choose between one selected row, several (LBS_MULTIPLESEL,
    // LBS_EXTENDEDSEL) and rows that the owner draws.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_LISTBOXA, nullptr, style, rect, parent, id);
    }
    // At the end, or with LBS_SORT where it belongs. Answers the row. For rows that the owner draws without
    // LBS_HASSTRINGS the pointer itself is the row's data.
    int AddString(const char* text)
    {
        return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
    }
    int AddString(const WCHAR* text);
    // In front of the row, -1 at the end; LBS_SORT is disregarded.
    int InsertString(int index, const WCHAR* text);
    int InsertString(int index, const char* text)
    {
        return static_cast<int>(
            SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
    // Answers how many rows are left.
    int DeleteString(UINT index) { return static_cast<int>(SendMessage(LB_DELETESTRING, index, 0)); }
    // Takes all rows away.
    void ResetContent() { SendMessage(LB_RESETCONTENT, 0, 0); }
    int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT, 0, 0)); } // rows
    // The selected row, -1 without one; where several can be selected the row in focus.
    int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL, 0, 0)); }
    // Selects one row and brings it into view; -1 selects none and answers LB_ERR. Only where one row can be
    // selected. The parent is not told.
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(index), 0));
    }
    // A value of the caller's at the row, 0 at first; nothing is done with it.
    DWORD_PTR GetItemData(int index) const
    {
        return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(index), 0));
    }
    // LB_OKAY (0).
    int SetItemData(int index, DWORD_PTR data)
    {
        return static_cast<int>(
            SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
    }
    // The same value as a pointer; not owned.
    void* GetItemDataPtr(int index) const { return reinterpret_cast<void*>(GetItemData(index)); }
    int SetItemDataPtr(int index, void* data)
    {
        return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
    }
    // The first row behind `after` that begins with the text, case disregarded; the search goes round to the
    // top. -1 for `after` begins there; -1 if there is none.
    int FindString(int after, const char* beginning) const
    {
        return static_cast<int>(
            SendMessage(LB_FINDSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    // The whole text, case disregarded.
    int FindStringExact(int after, const char* text) const
    {
        return static_cast<int>(
            SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(text)));
    }
    // As FindString, and selects it; only where one row can be selected.
    int SelectString(int after, const char* beginning)
    {
        return static_cast<int>(
            SendMessage(LB_SELECTSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    // Pixels. Of that row with LBS_OWNERDRAWVARIABLE, else of all rows.
    int SetItemHeight(int index, UINT pixels)
    {
        return static_cast<int>(SendMessage(LB_SETITEMHEIGHT, static_cast<WPARAM>(index), pixels));
    }
    // In pixels.
    int GetItemHeight(int index) const
    {
        return static_cast<int>(SendMessage(LB_GETITEMHEIGHT, static_cast<WPARAM>(index), 0));
    }
    // Copies the row's text with its terminator and answers its length; the buffer must hold GetTextLen and
    // one more.
    int GetText(int index, char* buffer) const
    {
        return static_cast<int>(
            SendMessage(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer)));
    }
    void GetText(int index, CString& text) const; // empty for an index that does not exist, as the wide form
    void GetText(int index, std::u16string& text) const;
    // Bytes in the active code page, without the terminator.
    int GetTextLen(int index) const
    {
        return static_cast<int>(SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(index), 0));
    }
    // Above 0 for a selected row, 0 for another.
    int GetSel(int index) const
    {
        return static_cast<int>(SendMessage(LB_GETSEL, static_cast<WPARAM>(index), 0));
    }
    // Selects the row or not; -1 all rows. Only where several can be selected.
    int SetSel(int index, BOOL select = TRUE)
    {
        return static_cast<int>(SendMessage(LB_SETSEL, static_cast<WPARAM>(select), index));
    }
    // Only where several can be selected, as the next two.
    int GetSelCount() const { return static_cast<int>(SendMessage(LB_GETSELCOUNT, 0, 0)); }
    // Stores at most `count` selected rows, ascending; answers how many were stored.
    int GetSelItems(int count, int* rows) const
    {
        return static_cast<int>(
            SendMessage(LB_GETSELITEMS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(rows)));
    }
    // Both ends included.
    int SelItemRange(BOOL select, int first, int last)
    {
        return static_cast<int>(select ? SendMessage(LB_SELITEMRANGEEX, static_cast<WPARAM>(first), last)
                                       : SendMessage(LB_SELITEMRANGEEX, static_cast<WPARAM>(last), first));
    }
    // The first row in view.
    int GetTopIndex() const { return static_cast<int>(SendMessage(LB_GETTOPINDEX, 0, 0)); }
    // Scrolls it to the top, as far as there are rows behind it.
    int SetTopIndex(int index)
    {
        return static_cast<int>(SendMessage(LB_SETTOPINDEX, static_cast<WPARAM>(index), 0));
    }
    // The row in focus, -1 without one.
    int GetCaretIndex() const { return static_cast<int>(SendMessage(LB_GETCARETINDEX, 0, 0)); }
    // Leaves the selection as it is.
    int SetCaretIndex(int index, BOOL = TRUE)
    {
        return static_cast<int>(SendMessage(LB_SETCARETINDEX, static_cast<WPARAM>(index), 0));
    }
    // In the control's client area, also for rows out of view.
    int GetItemRect(int index, RECT* rect) const
    {
        return static_cast<int>(
            SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(rect)));
    }
    // The nearest row in view to a point of the client area, and whether the point lies outside of the rows'
    // area. 0xFFFF in an empty list.
    UINT ItemFromPoint(POINT point, BOOL& outside) const;
    // Of LBS_MULTICOLUMN, in pixels.
    void SetColumnWidth(int pixels) { SendMessage(LB_SETCOLUMNWIDTH, static_cast<WPARAM>(pixels), 0); }
    // Pixels that can be scrolled to, with WS_HSCROLL; 0 at first.
    void SetHorizontalExtent(int pixels)
    {
        SendMessage(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(pixels), 0);
    }
    int GetHorizontalExtent() const { return static_cast<int>(SendMessage(LB_GETHORIZONTALEXTENT, 0, 0)); }

    // Of rows that the owner draws; they do nothing here. DrawItem draws a row; MeasureItem sets itemHeight
    // in pixels, once for all rows or with LBS_OWNERDRAWVARIABLE for each; CompareItem answers below 0, 0 or
    // above 0 for the order of two rows of LBS_SORT; DeleteItem hears that a row goes.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}
    virtual void MeasureItem(MEASUREITEMSTRUCT*) {}
    virtual int CompareItem(COMPAREITEMSTRUCT*) { return 0; }
    virtual void DeleteItem(DELETEITEMSTRUCT*) {}

protected:
    // Sends the messages of drawn rows to the four above.
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
