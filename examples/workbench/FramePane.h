// Where on the screen the text is to stand: a rectangle that the user moves and sizes, and a button that puts
// it back.
#pragma once

#include "corekit/windows/controls/ui/ImageButton.h"
#include "corekit/windows/controls/ui/RectTracker.h"

class FramePane : public CWnd {
public:
    bool Create(CWnd& parent, UINT id);
    // In thousandths of the screen.
    CRect GetPlace() const { return m_place; }
    void SetPlace(const CRect& place);

protected:
    int OnCreate(CREATESTRUCTA* create);
    void OnSize(UINT how, int width, int height);
    void OnPaint();
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* next);
    void OnReset();
    DECLARE_MESSAGE_MAP()

private:
    CRect Screen() const;
    void Lay();

    CRectTracker m_tracker;
    CImageButton m_reset;
    CRect m_place{100, 150, 900, 850};
};
