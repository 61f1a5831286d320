// A header: titles of columns.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Headers.h. User-interface thread only.
//
// Columns count from 0 and keep their number wherever the user puts them. The parent hears HDN_
// notifications of clicks, widths and places. An item's mask says which of its members count.
//
//     HDITEMA item{};
//     item.mask = HDI_TEXT | HDI_WIDTH;
//     item.pszText = title; // a char array of the caller's
//     item.cxy = 120;
//     header.InsertItem(0, &item);
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Headers.h"

class COREKIT_API CHeaderCtrl : public CWnd {
    DECLARE_DYNAMIC(CHeaderCtrl)

    // A child of `parent`. HDS_BUTTONS makes columns clickable, HDS_DRAGDROP movable.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_HEADERA, nullptr, style, rect, parent, id);
    }
    int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT, 0, 0)); } // columns
    // In front of `before`, at the end for a larger number; answers the column, -1 on failure.
    int InsertItem(int before, HDITEMA* item)
    {
        return static_cast<int>(
            SendMessage(HDM_INSERTITEMA, static_cast<WPARAM>(before), reinterpret_cast<LPARAM>(item)));
    }
    // Fills what the mask names; text is copied to pszText, cut to cchTextMax. False for a column that does
    // not exist.
    BOOL GetItem(int column, HDITEMA* item) const
    {
        return SendMessage(HDM_GETITEMA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(item)) != 0;
    }
    // Changes what the mask names. The owner hears HDN_ITEMCHANGED of a new width.
    BOOL SetItem(int column, HDITEMA* item)
    {
        return SendMessage(HDM_SETITEMA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(item)) != 0;
    }
    // Those behind move to the front.
    BOOL DeleteItem(int column) { return SendMessage(HDM_DELETEITEM, static_cast<WPARAM>(column), 0) != 0; }
    // In the control's client area, scrolled as it is now.
    BOOL GetItemRect(int column, RECT* rect) const
    {
        return SendMessage(HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(rect)) != 0;
    }
};
