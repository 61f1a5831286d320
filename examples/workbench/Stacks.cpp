#include "Stacks.h"

namespace {

constexpr DWORD moves = 2, between = 0x10000;

bool IsWithin(const CWnd& stack, CPoint screen)
{
    const CWnd* const under = CWnd::WindowFromPoint(screen);
    return under && (under->m_hWnd == stack.m_hWnd || stack.IsChild(under));
}

int TabUnder(const PaneStack& stack, CPoint screen)
{
    stack.ScreenToClient(&screen);
    return stack.HitTestTab(screen);
}

} // namespace

void PaneStack::OnChangeActivePane(CWnd* pane, int)
{
    if (chosen) chosen(pane);
}

// To the other stack, or to another place in this one; over a tab, in front of it.
DWORD PaneStack::GetTabDragEffect(CWnd* pane, CPoint screenPoint, CWnd*& target)
{
    if (IsWithin(*m_partner, screenPoint)) {
        target = m_partner;
        return TabUnder(*m_partner, screenPoint) < 0 ? moves : moves | between;
    }
    const int tab = IsWithin(*this, screenPoint) ? TabUnder(*this, screenPoint) : -1;
    if (tab < 0 || tab == GetPaneIndex(pane)) return 0;
    target = this;
    return moves | between;
}

void PaneStack::DropTab(DWORD, CWnd* pane, CWnd* target, CPoint screenPoint)
{
    auto& to = *static_cast<PaneStack*>(target);
    const int from = GetPaneIndex(pane), tab = TabUnder(to, screenPoint);
    if (from < 0) return;
    const StringW title = GetPaneTitle(from);
    DetachPane(from, &to);
    to.AttachPane(tab, pane, 0, title, 1);
}
