// A combo box.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ComboBoxes.h. User-interface thread only.
//
// Rows count from 0, positions in the field in UTF-16 units. Operations answer CB_ERR (-1) for a row that
// does not exist. Narrow text is in the active code page; the wide forms take any. The parent hears CBN_
// codes of what the user does, not of these operations.
//
//     CComboBox size;
//     size.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(10, 10, 90, 150), this, idSize);
//     for (const char* each : {"24", "36", "48"}) size.AddString(each);
//     size.SetCurSel(1);
//     ...
//     CString chosen;
//     size.GetWindowText(chosen); // what the field shows: a row, or what the user entered
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ComboBoxes.h"

#include <string>

class COREKIT_API CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)

    // A child of `parent`. `style` has CBS_SIMPLE, CBS_DROPDOWN or CBS_DROPDOWNLIST; the rectangle is that
    // of field and open list together.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_COMBOBOXA, nullptr, style, rect, parent, id);
    }
    // At the end, or with CBS_SORT where it belongs. Answers the row. For rows that the owner draws without
    // CBS_HASSTRINGS the pointer itself is the row's data.
    int AddString(const char* text)
    {
        return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
    }
    int AddString(const WCHAR* text);
    // In front of the row, -1 at the end; CBS_SORT is disregarded.
    int InsertString(int index, const WCHAR* text);
    int InsertString(int index, const char* text)
    {
        return static_cast<int>(
            SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
    // Answers how many rows are left. The choice is none afterwards if it was that row.
    int DeleteString(UINT index) { return static_cast<int>(SendMessage(CB_DELETESTRING, index, 0)); }
    // Takes all rows and the field's text away.
    void ResetContent() { SendMessage(CB_RESETCONTENT, 0, 0); }
    // Rows.
    int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT, 0, 0)); }
    // The chosen row; -1 if there is none, and once text has been entered in the field.
    int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL, 0, 0)); }
    // Shows the row in the field; -1 chooses none and empties it. Answers the choice.
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index), 0));
    }
    // A value of the caller's at the row, 0 at first; nothing is done with it.
    DWORD_PTR GetItemData(int index) const
    {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
    }
    // CB_OKAY (0).
    int SetItemData(int index, DWORD_PTR data)
    {
        return static_cast<int>(
            SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
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
            SendMessage(CB_FINDSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    // The whole text, case disregarded.
    int FindStringExact(int after, const char* text) const
    {
        return static_cast<int>(
            SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(text)));
    }
    // As FindString, and chooses it.
    int SelectString(int after, const char* beginning)
    {
        return static_cast<int>(
            SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    // Pixels, 1 to 32,767; row -1 is the field. Rows have one height unless they are drawn with
    // CBS_OWNERDRAWVARIABLE.
    int SetItemHeight(int index, UINT pixels)
    {
        return static_cast<int>(SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(index), pixels));
    }
    // -1: the field's.
    int GetItemHeight(int index) const
    {
        return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(index), 0));
    }
    // Copies the row's text with its terminator and answers its length; the buffer must hold GetLBTextLen
    // and one more.
    int GetLBText(int index, char* buffer) const
    {
        return static_cast<int>(
            SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer)));
    }
    void GetLBText(int index,
                   CString& text) const; // empty for an index that does not exist, as the wide form
    void GetLBText(int index, std::u16string& text) const;
    // Bytes in the active code page, without the terminator.
    int GetLBTextLen(int index) const
    {
        return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0));
    }
    // Opens or closes the list; one that is always open stays as it is.
    void ShowDropDown(BOOL show = TRUE) { SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(show), 0); }
    // Always true for CBS_SIMPLE.
    BOOL GetDroppedState() const { return SendMessage(CB_GETDROPPEDSTATE, 0, 0) != 0; }
    // Field and open list together, on the screen.
    void GetDroppedControlRect(RECT* rect) const
    {
        SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(rect));
    }
    // The open list is at least so wide, never narrower than the control. Answers the width in pixels.
    int SetDroppedWidth(UINT pixels) { return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, pixels, 0)); }
    // What the user can enter in the field, in units; 0 is the greatest. What stands there stays.
    BOOL LimitText(int units) { return SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(units), 0) > 0; }
    // Start in the low and end in the high word; 0xFFFFFFFF without a field or beyond 65,535.
    DWORD GetEditSel() const { return static_cast<DWORD>(SendMessage(CB_GETEDITSEL, 0, 0)); }
    // End -1 is the end of the text, start -1 selects nothing. False without a field.
    BOOL SetEditSel(int start, int end)
    {
        return SendMessage(CB_SETEDITSEL, 0,
                           static_cast<LPARAM>(MAKELONG(static_cast<WORD>(start), static_cast<WORD>(end)))) >
               0;
    }
    // On the field's selection, by way of the clipboard. Nothing happens without a field.
    void Cut() { SendMessage(WM_CUT, 0, 0); }
    void Copy() { SendMessage(WM_COPY, 0, 0); }
    void Paste() { SendMessage(WM_PASTE, 0, 0); }
    void Clear() { SendMessage(WM_CLEAR, 0, 0); }

    // Of rows that the owner draws; they do nothing here. DrawItem draws a row or, with ODS_COMBOBOXEDIT,
    // the field; MeasureItem sets itemHeight in pixels; CompareItem answers below 0, 0 or above 0 for the
    // order of two rows of CBS_SORT; DeleteItem hears that a row goes.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}
    virtual void MeasureItem(MEASUREITEMSTRUCT*) {}
    virtual int CompareItem(COMPAREITEMSTRUCT*) { return 0; }
    virtual void DeleteItem(DELETEITEMSTRUCT*) {}

protected:
    // Sends the messages of drawn rows to the four above.
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
