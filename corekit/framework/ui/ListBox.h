// A list box.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ListBoxes.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ListBoxes.h"

#include <string>

class COREKIT_API CListBox : public CWnd {
    DECLARE_DYNAMIC(CListBox)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_LISTBOXA, nullptr, style, rect, parent, id);
    }
    int AddString(const char* text)
    {
        return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
    }
    int AddString(const WCHAR* text);
    int InsertString(int index, const WCHAR* text);
    int InsertString(int index, const char* text)
    {
        return static_cast<int>(
            SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
    int DeleteString(UINT index) { return static_cast<int>(SendMessage(LB_DELETESTRING, index, 0)); }
    void ResetContent() { SendMessage(LB_RESETCONTENT, 0, 0); }
    int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT, 0, 0)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL, 0, 0)); }
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(index), 0));
    }
    DWORD_PTR GetItemData(int index) const
    {
        return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(index), 0));
    }
    int SetItemData(int index, DWORD_PTR data)
    {
        return static_cast<int>(
            SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
    }
    void* GetItemDataPtr(int index) const { return reinterpret_cast<void*>(GetItemData(index)); }
    int SetItemDataPtr(int index, void* data)
    {
        return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
    }
    int FindString(int after, const char* beginning) const
    {
        return static_cast<int>(
            SendMessage(LB_FINDSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    int FindStringExact(int after, const char* text) const
    {
        return static_cast<int>(
            SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(text)));
    }
    int SelectString(int after, const char* beginning)
    {
        return static_cast<int>(
            SendMessage(LB_SELECTSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    int SetItemHeight(int index, UINT pixels)
    {
        return static_cast<int>(SendMessage(LB_SETITEMHEIGHT, static_cast<WPARAM>(index), pixels));
    }
    int GetItemHeight(int index) const
    {
        return static_cast<int>(SendMessage(LB_GETITEMHEIGHT, static_cast<WPARAM>(index), 0));
    }
    int GetText(int index, char* buffer) const
    {
        return static_cast<int>(
            SendMessage(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer)));
    }
    void GetText(int index, CString& text) const; // empty for an index that does not exist, as the wide form
    void GetText(int index, std::u16string& text) const;
    int GetTextLen(int index) const
    {
        return static_cast<int>(SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(index), 0));
    }
    int GetSel(int index) const
    {
        return static_cast<int>(SendMessage(LB_GETSEL, static_cast<WPARAM>(index), 0));
    }
    int SetSel(int index, BOOL select = TRUE)
    {
        return static_cast<int>(SendMessage(LB_SETSEL, static_cast<WPARAM>(select), index));
    }
    int GetSelCount() const { return static_cast<int>(SendMessage(LB_GETSELCOUNT, 0, 0)); }
    int GetSelItems(int count, int* rows) const
    {
        return static_cast<int>(
            SendMessage(LB_GETSELITEMS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(rows)));
    }
    int SelItemRange(BOOL select, int first, int last)
    {
        return static_cast<int>(select ? SendMessage(LB_SELITEMRANGEEX, static_cast<WPARAM>(first), last)
                                       : SendMessage(LB_SELITEMRANGEEX, static_cast<WPARAM>(last), first));
    }
    int GetTopIndex() const { return static_cast<int>(SendMessage(LB_GETTOPINDEX, 0, 0)); }
    int SetTopIndex(int index)
    {
        return static_cast<int>(SendMessage(LB_SETTOPINDEX, static_cast<WPARAM>(index), 0));
    }
    int GetCaretIndex() const { return static_cast<int>(SendMessage(LB_GETCARETINDEX, 0, 0)); }
    int SetCaretIndex(int index, BOOL = TRUE)
    {
        return static_cast<int>(SendMessage(LB_SETCARETINDEX, static_cast<WPARAM>(index), 0));
    }
    int GetItemRect(int index, RECT* rect) const
    {
        return static_cast<int>(
            SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(rect)));
    }
    UINT ItemFromPoint(POINT point, BOOL& outside) const;
    void SetColumnWidth(int pixels) { SendMessage(LB_SETCOLUMNWIDTH, static_cast<WPARAM>(pixels), 0); }
    void SetHorizontalExtent(int pixels)
    {
        SendMessage(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(pixels), 0);
    }
    int GetHorizontalExtent() const { return static_cast<int>(SendMessage(LB_GETHORIZONTALEXTENT, 0, 0)); }

    // Of rows that the owner draws; they do nothing here.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}
    virtual void MeasureItem(MEASUREITEMSTRUCT*) {}
    virtual int CompareItem(COMPAREITEMSTRUCT*) { return 0; }
    virtual void DeleteItem(DELETEITEMSTRUCT*) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
