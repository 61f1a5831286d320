#include "corekit/windows/controls/ui/AXStatusBar.h"

#include "corekit/framework/ui/DC.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CAXStatusBar, CStatusBar)

BEGIN_MESSAGE_MAP(CAXStatusBar, CStatusBar)
ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

BOOL CAXStatusBar::Change(int pane, const Look& look)
{
    if (pane < 0 || pane >= GetPaneCount()) return FALSE;
    if (look.text == usualColour && look.ground == usualColour && look.percent == noProgress)
        m_looks.erase(pane);
    else
        m_looks[pane] = look;
    ShowPane(static_cast<std::size_t>(pane));
    return TRUE;
}

BOOL CAXStatusBar::SetPaneColours(int pane, COLORREF text, COLORREF ground)
{
    const auto known = m_looks.find(pane);
    Look look = known == m_looks.end() ? Look() : known->second;
    look.text = text;
    look.ground = ground;
    return Change(pane, look);
}

BOOL CAXStatusBar::SetPaneProgress(int pane, int percent)
{
    const auto known = m_looks.find(pane);
    Look look = known == m_looks.end() ? Look() : known->second;
    look.percent = percent < 0 ? noProgress : std::min(percent, 100);
    return Change(pane, look);
}

int CAXStatusBar::GetPaneProgress(int pane) const
{
    const auto known = m_looks.find(pane);
    return known == m_looks.end() ? noProgress : known->second.percent;
}

void CAXStatusBar::ShowPane(std::size_t pane)
{
    if (!m_looks.contains(static_cast<int>(pane))) return CStatusBar::ShowPane(pane);
    SendMessage(SB_SETTEXTA, pane | SBT_OWNERDRAW, static_cast<LPARAM>(pane));
}

// The control asks its parent to draw, which asks back.
BOOL CAXStatusBar::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message != WM_DRAWITEM) return CStatusBar::OnChildNotify(message, wParam, lParam, result);
    Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return TRUE;
}

void CAXStatusBar::Draw(const DRAWITEMSTRUCT& item) const
{
    const int pane = static_cast<int>(item.itemID);
    const auto known = m_looks.find(pane);
    if (known == m_looks.end()) return;
    const Look& look = known->second;
    CDC& dc = *CDC::FromHandle(item.hDC);
    CRect rect(item.rcItem);
    dc.FillSolidRect(&rect, look.ground == usualColour ? GetSysColor(COLOR_BTNFACE) : look.ground);
    if (look.percent > 0)
        dc.FillSolidRect(rect.left, rect.top, rect.Width() * look.percent / 100, rect.Height(),
                         GetSysColor(COLOR_HIGHLIGHT));
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(look.text == usualColour ? GetSysColor(COLOR_BTNTEXT) : look.text);
    rect.DeflateRect(2, 0);
    dc.DrawText(GetPaneText(pane), &rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void CAXStatusBar::OnLButtonDblClk(UINT flags, CPoint point)
{
    const UINT id = GetItemID(PaneAt(point));
    const CWnd* const owner = GetOwner();
    if (id && owner) owner->SendMessage(WM_COMMAND, id, 0);
    CStatusBar::OnLButtonDblClk(flags, point);
}
