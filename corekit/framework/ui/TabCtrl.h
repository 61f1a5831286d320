// A tab control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Tabs.h. User-interface thread only.
//
// Tabs count from 0. Pages are windows of the caller's, placed within AdjustRect and shown by it. The parent
// hears TCN_SELCHANGING, which may refuse, and TCN_SELCHANGE when the user changes the tab.
//
//     CTabCtrl tabs;
//     tabs.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), this, idTabs);
//     tabs.InsertItem(0, "Text");
//     tabs.InsertItem(1, "Colours");
//     CRect page(0, 0, 300, 200);    // the control's own place in its parent
//     tabs.AdjustRect(FALSE, &page); // the part of it where pages lie
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Tabs.h"

class COREKIT_API CTabCtrl : public CWnd {
    DECLARE_DYNAMIC(CTabCtrl)

    // A child of `parent`. TCS_BOTTOM and TCS_VERTICAL choose another side; TCS_MULTILINE shows all tabs at
    // once.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_TABCONTROLA, nullptr, style, rect, parent, id);
    }
    // In front of the tab, at the end for a larger index; answers the index, -1 below 0. The first tab is
    // selected by itself.
    int InsertItem(int index, const TCITEMA* item)
    {
        return static_cast<int>(
            SendMessage(TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)));
    }
    // `image` counts in the list given to SetImageList.
    int InsertItem(int index, const char* text, int image = -1);
    // What the mask names; text is copied to pszText, cut to cchTextMax. False for a tab that does not
    // exist.
    BOOL GetItem(int index, TCITEMA* item) const
    {
        return SendMessage(TCM_GETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)) != 0;
    }
    // Changes what the mask names.
    BOOL SetItem(int index, const TCITEMA* item)
    {
        return SendMessage(TCM_SETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)) != 0;
    }
    // If it was selected, the toolkit selects another; the parent is not told.
    BOOL DeleteItem(int index) { return SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(index), 0) != 0; }
    BOOL DeleteAllItems() { return SendMessage(TCM_DELETEALLITEMS, 0, 0) != 0; }
    int GetItemCount() const { return static_cast<int>(SendMessage(TCM_GETITEMCOUNT, 0, 0)); }
    // -1 without tabs.
    int GetCurSel() const { return static_cast<int>(SendMessage(TCM_GETCURSEL, 0, 0)); }
    // Answers the former; -1 for a tab that does not exist. Tells nobody, so the caller shows the page.
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(index), 0));
    }
    // As a click would: the parent is asked and told.
    void SetCurFocus(int index) { SendMessage(TCM_SETCURFOCUS, static_cast<WPARAM>(index), 0); }
    // Of the tab itself, in the client area.
    BOOL GetItemRect(int index, RECT* rect) const
    {
        return SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(rect)) != 0;
    }
    // From the rectangle of pages to that of the whole control (`larger`), or back.
    void AdjustRect(BOOL larger, RECT* rect) const
    {
        SendMessage(TCM_ADJUSTRECT, static_cast<WPARAM>(larger), reinterpret_cast<LPARAM>(rect));
    }
    // The tab at pt, -1 for none.
    int HitTest(TCHITTESTINFO* info) const
    {
        return static_cast<int>(SendMessage(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
    }
    // Not owned. Answers the former.
    HIMAGELIST SetImageList(HIMAGELIST list)
    {
        return reinterpret_cast<HIMAGELIST>(SendMessage(TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(list)));
    }
};
