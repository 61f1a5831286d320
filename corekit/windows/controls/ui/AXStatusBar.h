// A status bar whose panes may have a colour of their own, show progress, and be double-clicked.
//
// A double click on a pane sends its id as a command to the bar's owner. User-interface thread only.
#pragma once

#include "corekit/framework/ui/StatusBar.h"

#include <map>

class COREKIT_API CAXStatusBar : public CStatusBar {
    DECLARE_DYNAMIC(CAXStatusBar)
public:
    static constexpr COLORREF usualColour = 0xFFFFFFFF; // no colour of its own
    static constexpr int noProgress = -1;               // no bar

    // Of text and ground; `usualColour` for those of the desktop. 0 for a pane that does not exist. Panes
    // are meant by their index, here and below.
    BOOL SetPaneColours(int pane, COLORREF text, COLORREF ground);
    // From 0 to 100, shown as a bar behind the text; `noProgress` takes it away. More counts as 100, less
    // as none; 0 for a pane that does not exist.
    BOOL SetPaneProgress(int pane, int percent);
    int GetPaneProgress(int pane) const; // `noProgress` without one

protected:
    void ShowPane(std::size_t pane) override; // hands a pane that looks different to Draw
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    void OnLButtonDblClk(UINT flags, CPoint point); // sends the pane's id to the owner
    DECLARE_MESSAGE_MAP()

private:
    // What sets a pane apart; one that looks as usual has no entry.
    struct Look {
        COLORREF text = usualColour, ground = usualColour;
        int percent = noProgress;
    };
    void Draw(const DRAWITEMSTRUCT& item) const; // ground, progress, text
    BOOL Change(int pane, const Look& look);     // 0 for a pane that does not exist

    std::map<int, Look> m_looks; // of panes that are drawn here
};
