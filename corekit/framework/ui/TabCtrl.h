// A tab control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Tabs.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Tabs.h"

class COREKIT_API CTabCtrl : public CWnd {
    DECLARE_DYNAMIC(CTabCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_TABCONTROLA, nullptr, style, rect, parent, id);
    }
    int InsertItem(int index, const TCITEMA* item)
    {
        return static_cast<int>(
            SendMessage(TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)));
    }
    int InsertItem(int index, const char* text, int image = -1);
    BOOL GetItem(int index, TCITEMA* item) const
    {
        return SendMessage(TCM_GETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL SetItem(int index, const TCITEMA* item)
    {
        return SendMessage(TCM_SETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL DeleteItem(int index) { return SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(index), 0) != 0; }
    BOOL DeleteAllItems() { return SendMessage(TCM_DELETEALLITEMS, 0, 0) != 0; }
    int GetItemCount() const { return static_cast<int>(SendMessage(TCM_GETITEMCOUNT, 0, 0)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(TCM_GETCURSEL, 0, 0)); }
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(index), 0));
    }
    void SetCurFocus(int index) { SendMessage(TCM_SETCURFOCUS, static_cast<WPARAM>(index), 0); }
    BOOL GetItemRect(int index, RECT* rect) const
    {
        return SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(rect)) != 0;
    }
    void AdjustRect(BOOL larger, RECT* rect) const
    {
        SendMessage(TCM_ADJUSTRECT, static_cast<WPARAM>(larger), reinterpret_cast<LPARAM>(rect));
    }
    int HitTest(TCHITTESTINFO* info) const
    {
        return static_cast<int>(SendMessage(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    HIMAGELIST SetImageList(HIMAGELIST list)
    {
        return reinterpret_cast<HIMAGELIST>(SendMessage(TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(list)));
    }
};
