// A thin line of tabs without pages: the parent hears by a command with the bar's id that another one is
// selected. Titles may be in any script. User-interface thread only.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/ui/Wnd.h"

#include <vector>

class COREKIT_API CTabBar : public CWnd {
    DECLARE_DYNAMIC(CTabBar)
public:
    using CWnd::Create;
    BOOL Create(CWnd* parent, const CRect& rect, UINT id, DWORD style = WS_CHILD | WS_VISIBLE);

    // Before the tab at the index, or at the end; the index of the new one. The first one becomes selected.
    int InsertTab(int index, const WCHAR* title);
    int AddTab(const WCHAR* title) { return InsertTab(GetTabCount(), title); }
    void DeleteTab(int index); // nothing for one that does not exist, as the next
    void SetSelected(int index);
    int GetSelected() const { return m_selected; } // -1 without tabs
    int GetTabCount() const { return static_cast<int>(m_tabs.size()); }
    StringW GetTitle(int index) const;
    int TabAt(CPoint client) const; // -1 for none
    CRect GetTabRect(int index) const;

protected:
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    UINT OnGetDlgCode();
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()

private:
    struct Tab {
        StringW title;
        int width;
    };
    void Choose(int index); // as the user does
    int WidthOf(const StringW& title);

    std::vector<Tab> m_tabs;
    int m_selected = -1;
};
