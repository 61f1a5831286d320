// A combo box.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ComboBoxes.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ComboBoxes.h"

#include <string>

class COREKIT_API CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_COMBOBOXA, nullptr, style, rect, parent, id);
    }
    int AddString(const char* text)
    {
        return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
    }
    int AddString(const WCHAR* text);
    int InsertString(int index, const WCHAR* text);
    int InsertString(int index, const char* text)
    {
        return static_cast<int>(
            SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
    int DeleteString(UINT index) { return static_cast<int>(SendMessage(CB_DELETESTRING, index, 0)); }
    void ResetContent() { SendMessage(CB_RESETCONTENT, 0, 0); }
    int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT, 0, 0)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL, 0, 0)); }
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index), 0));
    }
    DWORD_PTR GetItemData(int index) const
    {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
    }
    int SetItemData(int index, DWORD_PTR data)
    {
        return static_cast<int>(
            SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
    }
    void* GetItemDataPtr(int index) const { return reinterpret_cast<void*>(GetItemData(index)); }
    int SetItemDataPtr(int index, void* data)
    {
        return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
    }
    int FindString(int after, const char* beginning) const
    {
        return static_cast<int>(
            SendMessage(CB_FINDSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    int FindStringExact(int after, const char* text) const
    {
        return static_cast<int>(
            SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(text)));
    }
    int SelectString(int after, const char* beginning)
    {
        return static_cast<int>(
            SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(beginning)));
    }
    int SetItemHeight(int index, UINT pixels)
    {
        return static_cast<int>(SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(index), pixels));
    }
    int GetItemHeight(int index) const
    {
        return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(index), 0));
    }
    int GetLBText(int index, char* buffer) const
    {
        return static_cast<int>(
            SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer)));
    }
    void GetLBText(int index,
                   CString& text) const; // empty for an index that does not exist, as the wide form
    void GetLBText(int index, std::u16string& text) const;
    int GetLBTextLen(int index) const
    {
        return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0));
    }
    void ShowDropDown(BOOL show = TRUE) { SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(show), 0); }
    BOOL GetDroppedState() const { return SendMessage(CB_GETDROPPEDSTATE, 0, 0) != 0; }
    void GetDroppedControlRect(RECT* rect) const
    {
        SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(rect));
    }
    int SetDroppedWidth(UINT pixels) { return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, pixels, 0)); }
    BOOL LimitText(int units) { return SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(units), 0) > 0; }
    DWORD GetEditSel() const { return static_cast<DWORD>(SendMessage(CB_GETEDITSEL, 0, 0)); }
    BOOL SetEditSel(int start, int end)
    {
        return SendMessage(CB_SETEDITSEL, 0,
                           static_cast<LPARAM>(MAKELONG(static_cast<WORD>(start), static_cast<WORD>(end)))) >
               0;
    }
    void Cut() { SendMessage(WM_CUT, 0, 0); }
    void Copy() { SendMessage(WM_COPY, 0, 0); }
    void Paste() { SendMessage(WM_PASTE, 0, 0); }
    void Clear() { SendMessage(WM_CLEAR, 0, 0); }

    // Of rows that the owner draws; they do nothing here.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}
    virtual void MeasureItem(MEASUREITEMSTRUCT*) {}
    virtual int CompareItem(COMPAREITEMSTRUCT*) { return 0; }
    virtual void DeleteItem(DELETEITEMSTRUCT*) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
