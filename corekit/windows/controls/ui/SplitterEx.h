// Two windows with a bar between them that the user drags; a double click folds the first one away and brings
// it back.
//
// The panes become children of the splitter and stay their owners'. Resizing the splitter keeps the share of
// the panes. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"

class COREKIT_API CSplitterEx : public CWnd {
    DECLARE_DYNAMIC(CSplitterEx)
public:
    enum Direction { sideBySide, aboveEachOther }; // of the panes; the bar lies between

    using CWnd::Create;
    // A child of `parent` without panes; the bar is 5 pixels thick. 0 on failure.
    BOOL Create(CWnd* parent, Direction direction, const CRect& rect, UINT id,
                DWORD style = WS_CHILD | WS_VISIBLE);
    // Both may be null. Panes that were there before stay children of the splitter.
    void SetPanes(CWnd* first, CWnd* second);
    // Of the panes, in pixels, 20 at first; where both do not fit, the first pane gets its own.
    void SetLeastSizes(int first, int second);
    // Pixels of the first pane, kept within the least sizes; 0 while it is folded. What is kept is the
    // share, so a position comes back only as near as a thousandth of the length.
    int GetPosition() const;
    // Sets the share that comes nearest, and unfolds.
    void SetPosition(int pixels);
    // The share of the first pane in a thousand, 500 at first, to be kept from run to run. Setting it
    // unfolds; it is held within 0 and 1000.
    int GetShare() const { return m_share; }
    void SetShare(int thousandths);

    bool IsFolded() const { return m_isFolded; }
    // Takes the first pane out of sight, or brings it back at its former share. No notification.
    void Fold(bool folded);

protected:
    // Called when the user lets the bar go, moved or not, and after a double click.
    virtual void OnSplitterMoved() {}

    void OnSize(UINT how, int width, int height); // keeps the share
    void OnPaint();                               // the bar, raised
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* other);
    DECLARE_MESSAGE_MAP()

private:
    int Length() const; // of both panes, in the direction
    void Lay();         // places the panes

    Direction m_direction = sideBySide;
    HWND m_panes[2] = {}; // not owned
    int m_least[2] = {20, 20};
    int m_share = 500;       // thousandths of the first pane
    int m_before = 0;        // the position before a drag
    int m_grip = -1;         // from the bar's edge to the mouse while it is dragged
    bool m_isFolded = false; // the share is kept meanwhile
};
