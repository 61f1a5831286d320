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
    enum Direction { sideBySide, aboveEachOther };

    using CWnd::Create;
    BOOL Create(CWnd* parent, Direction direction, const CRect& rect, UINT id,
                DWORD style = WS_CHILD | WS_VISIBLE);
    void SetPanes(CWnd* first, CWnd* second);
    void SetLeastSizes(int first, int second); // of the panes, in pixels
    // Pixels of the first pane, kept within the least sizes.
    int GetPosition() const;
    void SetPosition(int pixels);
    // The share of the first pane in a thousand, to be kept from run to run.
    int GetShare() const { return m_share; }
    void SetShare(int thousandths);
    bool IsFolded() const { return m_isFolded; }
    void Fold(bool folded);

protected:
    virtual void OnSplitterMoved() {} // by the user

    void OnSize(UINT how, int width, int height);
    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* other);
    DECLARE_MESSAGE_MAP()

private:
    int Length() const;
    void Lay();

    Direction m_direction = sideBySide;
    HWND m_panes[2] = {};
    int m_least[2] = {20, 20};
    int m_share = 500;
    int m_before = 0; // the position before a drag
    int m_grip = -1;  // from the bar's edge to the mouse while it is dragged
    bool m_isFolded = false;
};
