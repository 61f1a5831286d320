// A header: titles of columns.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Headers.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Headers.h"

class COREKIT_API CHeaderCtrl : public CWnd {
    DECLARE_DYNAMIC(CHeaderCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_HEADERA, nullptr, style, rect, parent, id);
    }
    int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT, 0, 0)); }
    int InsertItem(int before, HDITEMA* item)
    {
        return static_cast<int>(
            SendMessage(HDM_INSERTITEMA, static_cast<WPARAM>(before), reinterpret_cast<LPARAM>(item)));
    }
    BOOL GetItem(int column, HDITEMA* item) const
    {
        return SendMessage(HDM_GETITEMA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL SetItem(int column, HDITEMA* item)
    {
        return SendMessage(HDM_SETITEMA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(item)) != 0;
    }
    BOOL DeleteItem(int column) { return SendMessage(HDM_DELETEITEM, static_cast<WPARAM>(column), 0) != 0; }
    BOOL GetItemRect(int column, RECT* rect) const
    {
        return SendMessage(HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(rect)) != 0;
    }
};
