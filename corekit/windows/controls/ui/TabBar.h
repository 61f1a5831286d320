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
    // A child of `parent` without tabs; 0 on failure. The id is that of the command.
    BOOL Create(CWnd* parent, const CRect& rect, UINT id, DWORD style = WS_CHILD | WS_VISIBLE);

    // Before the tab at the index, or at the end for one beyond; the index of the new one. The first one
    // becomes selected; later the same tab stays so. The title is copied; a tab is as wide as its title.
    // Needs the window.
    int InsertTab(int index, const WCHAR* title);
    int AddTab(const WCHAR* title) { return InsertTab(GetTabCount(), title); }
    // Nothing for a tab that does not exist. If the selected one goes, the tab that takes
    // its place is selected, or the last. The parent does not hear of it.
    void DeleteTab(int index);

    void SetSelected(int index); // no command to the parent; nothing for a tab that does not exist
    int GetSelected() const { return m_selected; } // -1 without tabs
    int GetTabCount() const { return static_cast<int>(m_tabs.size()); }
    StringW GetTitle(int index) const; // empty for a tab that does not exist
    int TabAt(CPoint client) const;    // -1 for none
    // In client pixels; tabs beyond the right edge cannot be scrolled to.
    CRect GetTabRect(int index) const;

protected:
    void OnPaint();                                    // all tabs, the selected one sunken
    void OnLButtonDown(UINT flags, CPoint point);      // takes the focus and chooses
    UINT OnGetDlgCode();                               // wants the arrow keys
    void OnKeyDown(UINT key, UINT repeat, UINT flags); // left and right choose the neighbour
    DECLARE_MESSAGE_MAP()

private:
    // A title with the pixels that its tab takes.
    struct Tab {
        StringW title;
        int width;
    };
    void Choose(int index);            // as the user does
    int WidthOf(const StringW& title); // pixels, with margins

    std::vector<Tab> m_tabs; // from the left
    int m_selected = -1;     // -1 without tabs
};
