#include "corekit/windows/ui/DockBarEx.h"

#include "corekit/framework/ResourceException.h"
#include "corekit/framework/ui/DockState.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/WindowDC.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/windows/BarRecords.h"

#include <memory>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CDockBarEx, CDockBar)

BEGIN_MESSAGE_MAP(CDockBarEx, CDockBar)
ON_WM_CREATE()
ON_WM_PAINT()
END_MESSAGE_MAP()

namespace {

constexpr int edgeWidth = 6, edgeHeight = 6;
constexpr COLORREF edgeFill = 0xC0C0C0;
constexpr DWORD sideFlags[] = {CBRS_LEFT, CBRS_TOP, CBRS_RIGHT, CBRS_BOTTOM};

BarRecord recordOf(const CControlBarInfo& info)
{
    BarRecord bar;
    bar.id = info.m_nBarID;
    bar.visible = info.m_bVisible;
    bar.horizontal = info.m_bHorz;
    bar.floating = info.m_bFloating;
    bar.position = info.m_pointPos;
    bar.mruWidth = info.m_nMRUWidth;
    bar.hasDocking = info.m_bDocking;
    bar.docking = {info.m_uMRUDockID, info.m_rectMRUDockPos, info.m_dwMRUFloatStyle, info.m_ptMRUFloatPos};
    bar.isDockBar = info.m_bDockBar;
    bar.children.assign(info.m_arrBarID.begin(), info.m_arrBarID.end());
    return bar;
}

CControlBarInfo infoOf(const BarRecord& bar)
{
    CControlBarInfo info;
    info.m_nBarID = bar.id;
    info.m_bVisible = bar.visible;
    info.m_bHorz = bar.horizontal;
    info.m_bFloating = bar.floating;
    info.m_pointPos = bar.position;
    info.m_nMRUWidth = bar.mruWidth;
    info.m_bDocking = bar.hasDocking;
    info.m_uMRUDockID = bar.docking.dockBarId;
    info.m_rectMRUDockPos = bar.docking.rect;
    info.m_dwMRUFloatStyle = bar.docking.floatStyle;
    info.m_ptMRUFloatPos = bar.docking.floatPosition;
    info.m_bDockBar = bar.isDockBar;
    info.m_arrBarID.assign(bar.children.begin(), bar.children.end());
    return info;
}

} // namespace

// ---- Edges

void CDockBarEx::SetEdgeBorder(DWORD sides, int enable, int second)
{
    for (std::size_t i = 0; i < std::size(sideFlags); ++i)
        if (sides & sideFlags[i] & CBRS_ALIGN_ANY) m_edges[i] = !enable ? 0 : second ? 2 : 1;
    if (m_hWnd) Invalidate();
}

int CDockBarEx::GetEdgeMode(DWORD side) const
{
    for (std::size_t i = 0; i < std::size(sideFlags); ++i)
        if (side & sideFlags[i] & CBRS_ALIGN_ANY) return m_edges[i];
    return 0;
}

CRect CDockBarEx::RoomAround() const
{
    return {m_edges[0] ? edgeWidth : 0, m_edges[1] ? edgeHeight : 0, m_edges[2] ? edgeWidth : 0,
            m_edges[3] ? edgeHeight : 0};
}

int CDockBarEx::OnCreate(CREATESTRUCTA* create)
{
    if (CDockBar::OnCreate(create) == -1) return -1;
    m_white.CreatePen(PS_SOLID, 1, 0xFFFFFF);
    m_black.CreatePen(PS_SOLID, 1, 0);
    m_grey.CreatePen(PS_SOLID, 1, 0x808080);
    return 0;
}

void CDockBarEx::OnPaint()
{
    CPaintDC dc(this);
    if (IsVisible()) DoPaint(&dc);
    PaintEdges(dc);
}

void CDockBarEx::PaintEdges(CDC& dc)
{
    CRect c;
    GetClientRect(&c);
    const int state = dc.SaveDC();
    if (m_edges[0]) PaintVertEdge(dc, c.left, c.top, c.left + edgeWidth, c.bottom);
    if (m_edges[2]) PaintVertEdge(dc, c.right - edgeWidth, c.top, c.right, c.bottom);
    if (m_edges[1]) PaintHorzEdge(dc, c.left, c.top, c.right, c.top + edgeHeight);
    if (m_edges[3]) PaintHorzEdge(dc, c.left, c.bottom - edgeHeight, c.right, c.bottom);
    dc.RestoreDC(state);
}

// The fill comes last and is as wide and high as the far edges' coordinates, so that it covers the inner
// lines, and all lines of a strip that lies away from the origin.
void CDockBarEx::PaintHorzEdge(CDC& dc, int left, int top, int right, int bottom)
{
    const auto line = [&](CPen& pen, int y) {
        dc.SelectObject(&pen);
        dc.MoveTo(left, y);
        dc.LineTo(right, y);
    };
    line(m_white, top);
    line(m_black, bottom - 1);
    line(m_grey, bottom - 2);
    dc.FillSolidRect(left, top + 1, right, bottom - 2, edgeFill);
}

void CDockBarEx::PaintVertEdge(CDC& dc, int left, int top, int right, int bottom)
{
    const auto line = [&](CPen& pen, int x) {
        dc.SelectObject(&pen);
        dc.MoveTo(x, top);
        dc.LineTo(x, bottom);
    };
    line(m_white, left);
    line(m_black, right - 1);
    line(m_grey, right - 2);
    dc.FillSolidRect(left + 1, top, right - 2, bottom, edgeFill);
}

// ---- The frame's docks

void EnableExtendedDocking(CFrameWnd* frame, DWORD sides)
{
    struct Dock {
        DWORD side;
        UINT id;
    };
    static constexpr Dock docks[] = {{CBRS_TOP, AFX_IDW_DOCKBAR_TOP},
                                     {CBRS_BOTTOM, AFX_IDW_DOCKBAR_BOTTOM},
                                     {CBRS_LEFT, AFX_IDW_DOCKBAR_LEFT},
                                     {CBRS_RIGHT, AFX_IDW_DOCKBAR_RIGHT}};
    frame->EnableDocking(0);
    for (const Dock& each : docks) {
        if (!(sides & each.side & CBRS_ALIGN_ANY) || frame->GetControlBar(each.id)) continue;
        auto dock = std::make_unique<CDockBarEx>();
        constexpr DWORD windowStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
        if (!dock->Create(frame, each.side | windowStyle, each.id)) AfxThrowResourceException();
        dock->m_bAutoDelete = TRUE;
        static_cast<void>(dock.release()); // goes with its window
    }
}

CControlBar* GetExtendedDockBar(CFrameWnd* frame, UINT id) { return frame->GetControlBar(id); }

// ---- The layout in a store

void CDockBarEx::SaveControlBarStates(CPropertyStore& store, CFrameWnd* frame)
{
    CDockState state;
    frame->GetDockState(state);
    BarLayout layout{state.GetScreenSize(), {}};
    for (const CControlBarInfo& info : state.m_arrBarInfo) layout.bars.push_back(recordOf(info));
    saveBarLayout(store, layout);
}

void CDockBarEx::LoadControlBarStates(CPropertyStore& store, CFrameWnd* frame)
{
    CDockState state;
    const CSize screen(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    state.SetScreenSize(screen);
    // A frame has as many floating docks as it needs.
    const auto isKnown = [frame](UINT id) { return id == AFX_IDW_DOCKBAR_FLOAT || frame->GetControlBar(id); };
    BarLayout layout;
    if (!loadBarLayout(store, screen, isKnown, layout)) return;
    for (const BarRecord& bar : layout.bars) state.m_arrBarInfo.push_back(infoOf(bar));
    frame->SetDockState(state);
}
