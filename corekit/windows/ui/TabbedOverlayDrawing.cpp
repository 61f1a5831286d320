// How the strip looks.
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/MulDiv.h"
#include "corekit/windows/ui/TabbedOverlayWnd.h"

using namespace corekit::detail;

namespace {

constexpr COLORREF inactiveBack = RGB(0xC0, 0xC0, 0xC0);
constexpr COLORREF activeBack = RGB(0xFF, 0xFF, 0xFF);

void drawLine(CDC& dc, CPen& pen, CPoint from, CPoint to)
{
    CPen* const former = dc.SelectObject(&pen);
    dc.MoveTo(from.x, from.y);
    dc.LineTo(to.x, to.y);
    dc.SelectObject(former);
}

} // namespace

void CTabbedOverlayWnd::OnPaint()
{
    CPaintDC dc(this);
    DrawTabs(dc);
    DrawSplitter(dc);
}

void CTabbedOverlayWnd::RedrawStrip()
{
    if (m_strip.Height() <= 0) return;
    CRect strip;
    GetClientRect(&strip);
    strip.top = m_strip.PaneHeight();
    RedrawWindow(&strip, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN);
}

void CTabbedOverlayWnd::DrawTabs(CDC& dc)
{
    if (m_strip.Height() <= 0) return;
    const CRect area = m_strip.TabArea();
    const int saved = dc.SaveDC();
    dc.IntersectClipRect(&area);
    dc.FillSolidRect(&area, SysColourMetricCache().m_scrollBar);
    drawLine(dc, m_blackPen, {area.left, area.top}, {area.right, area.top});
    for (int tab = 0; tab < m_strip.Count(); ++tab) {
        const CRect place = m_strip.TabRect(tab);
        if (place.right + m_strip.Height() > area.left && place.left - m_strip.Height() < area.right)
            DrawTab(dc, tab, TabLook::inactive);
    }
    if (m_active >= 0 && m_active < m_strip.Count()) DrawTab(dc, m_active, TabLook::active);
    dc.RestoreDC(saved);
    DrawButtons(dc);
}

// A trapezoid that is wide at the top, where it joins the panes.
void CTabbedOverlayWnd::DrawTab(CDC& dc, int tab, TabLook look)
{
    const bool isActive = look == TabLook::active;
    const CRect r = m_strip.TabRect(tab);
    const int slant = m_strip.Height() / 4, height = r.Height();
    for (int row = 0; isActive && row < height; ++row) {
        const int inset = MulDiv(2 * slant, row, height);
        drawLine(dc, m_whitePen, {r.left - slant + inset, r.top + row},
                 {r.right + slant - inset, r.top + row});
    }
    drawLine(dc, m_blackPen, {r.left - slant, r.top}, {r.left + slant, r.bottom - 1});
    drawLine(dc, m_blackPen, {r.right - slant, r.bottom - 1}, {r.right + slant, r.top});
    drawLine(dc, m_greyPen, {r.left + slant + 1, r.bottom - 1}, {r.right - slant, r.bottom - 1});
    if (!isActive) drawLine(dc, m_greyPen, {r.right - slant, r.bottom - 1}, {r.right + slant - 1, r.top});

    const CRect text(r.left + 2 * slant, r.top + 2, r.right - 2 * slant, r.bottom - 2);
    dc.SetTextColor(0);
    dc.SetBkColor(isActive ? activeBack : inactiveBack);
    CUniRender& font = isActive ? m_activeFont : m_font;
    font.AttachDC(dc);
    font.DrawLogicalString(text.left, text.top, ETO_OPAQUE | ETO_CLIPPED, text, Pane(tab).title, -1, 0);
    font.DetachDC();
}

void CTabbedOverlayWnd::DrawButtons(CDC& dc)
{
    if (!m_strip.ButtonsShown()) return;
    const bool isHeld = IsOnHeldButton();
    for (const TabStep button : {TabStep::left, TabStep::right}) {
        UINT state = button == TabStep::left ? DFCS_SCROLLLEFT : DFCS_SCROLLRIGHT;
        if (!m_strip.ButtonEnabled(button)) state |= DFCS_INACTIVE;
        if (isHeld && m_scrolling == button) state |= DFCS_PUSHED;
        CRect place = m_strip.ButtonRect(button);
        dc.DrawFrameControl(&place, DFC_SCROLL, state);
    }
}

void CTabbedOverlayWnd::DrawSplitter(CDC& dc)
{
    const CRect place = m_strip.SplitterRect();
    if (place.IsRectEmpty()) return;
    const CSysColourMetricCache& colours = SysColourMetricCache();
    drawLine(dc, m_blackPen, {place.left, place.top + 1}, {place.left, place.bottom});
    const CRect bar(place.left + 1, place.top + 1, place.right, place.bottom);
    dc.FillSolidRect(&bar, colours.m_buttonFace);
    dc.Draw3dRect(&bar, colours.m_buttonHighlight, colours.m_buttonShadow);
}
