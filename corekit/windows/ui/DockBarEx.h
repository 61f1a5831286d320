// Docks with bevelled edges, and the layout of a frame's bars in a property store.
//
//     EnableExtendedDocking(&frame, CBRS_ALIGN_ANY);
//     frame.DockControlBar(&bar, AFX_IDW_DOCKBAR_TOP);
//     ...
//     CDockBarEx::SaveControlBarStates(layout, &frame);
//
// User-interface thread only.
#pragma once

#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/DockBar.h"

class CPropertyStore;

class COREKIT_API CDockBarEx : public CDockBar {
    DECLARE_DYNAMIC(CDockBarEx)
public:
    // `sides`: CBRS_LEFT, CBRS_TOP, CBRS_RIGHT, CBRS_BOTTOM or-ed. The edges take their room from the dock
    // while bars stand in it. A second edge looks as the first and is told apart by GetEdgeMode.
    void SetEdgeBorder(DWORD sides, int enable, int second);
    int GetEdgeMode(DWORD side) const; // 0 for none, 1, 2

    // Empties the store first.
    static void SaveControlBarStates(CPropertyStore& store, CFrameWnd* frame);
    // Nothing happens where the store has no layout. Records of bars that the frame lacks are passed over;
    // places of another screen size are scaled to this one.
    static void LoadControlBarStates(CPropertyStore& store, CFrameWnd* frame);

    void PaintEdges(CDC& dc);
    void PaintHorzEdge(CDC& dc, int left, int top, int right, int bottom);
    void PaintVertEdge(CDC& dc, int left, int top, int right, int bottom);

protected:
    CRect RoomAround() const override;
    int OnCreate(CREATESTRUCTA* create);
    void OnPaint();
    DECLARE_MESSAGE_MAP()

private:
    int m_edges[4] = {};           // left, top, right, bottom
    CPen m_white, m_black, m_grey; // made with the window
};

// Docks at the sides named (CBRS_ALIGN_), where the frame has none yet; the frame's bars may float. Throws
// CResourceException where one cannot be made.
COREKIT_API void EnableExtendedDocking(CFrameWnd* frame, DWORD sides);
COREKIT_API CControlBar* GetExtendedDockBar(CFrameWnd* frame, UINT id); // null without one
