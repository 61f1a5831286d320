#include "corekit/windows/TabStrip.h"

#include <algorithm>

namespace corekit::detail {

void TabStrip::SetTabs(std::span<const int> widths)
{
    m_tabs.clear();
    int left = firstLeft;
    for (const int width : widths) {
        m_tabs.push_back({left, left + width});
        left += width;
    }
}

void TabStrip::Resize(CSize client, int stripHeight)
{
    m_client = client;
    m_height = stripHeight;
    m_area = {0, PaneHeight(), client.cx, client.cy};
    if (m_hasScrollBar) {
        m_splitter = std::max(splitterMargin, std::min(m_splitter, client.cx - splitterMargin));
        m_area.right = m_splitter;
    }
    m_buttonsShown = Width() > m_area.Width();
    if (m_buttonsShown) {
        m_area.left = 2 * m_height;
        m_offset = std::min(m_offset, Width() - m_area.Width()); // no gap behind the last tab
    } else {
        m_offset = 0;
    }
    Snap();
    if (m_height > 0) return;
    m_area = {};
    m_buttonsShown = false;
}

void TabStrip::Snap()
{
    const auto tab = std::ranges::find_if(m_tabs, [&](const Extent& t) { return t.left >= m_offset; });
    if (tab != m_tabs.end()) m_offset = tab->left;
}

void TabStrip::FindFirstVisible()
{
    const auto tab = std::ranges::find_if(m_tabs, [&](const Extent& t) { return t.left >= m_offset; });
    m_firstVisible = tab == m_tabs.end() ? Count() - 1 : static_cast<int>(tab - m_tabs.begin());
}

void TabStrip::BringIntoView(int tab)
{
    FindFirstVisible();
    if (m_height <= 0 || tab < 0 || tab >= Count()) return;
    m_offset = std::max(m_offset, Right(tab) - m_area.Width());
    m_offset = std::min(m_offset, Left(tab));
    Snap();
    FindFirstVisible();
}

bool TabStrip::Step(TabStep direction)
{
    const int next = m_firstVisible + (direction == TabStep::left ? -1 : 1);
    if (next < 0 || next >= Count()) return false;
    m_firstVisible = next;
    m_offset = Left(next);
    return true;
}

int TabStrip::TabAt(POINT point) const
{
    if (!m_area.PtInRect(point)) return -1;
    for (int tab = 0; tab < Count(); ++tab)
        if (TabRect(tab).PtInRect(point)) return tab;
    return -1;
}

CRect TabStrip::TabRect(int tab) const
{
    const int shift = m_area.left - m_offset;
    return {Left(tab) + shift, m_area.top, Right(tab) + shift, m_area.bottom};
}

CRect TabStrip::ScrollBarRect() const
{
    if (!m_hasScrollBar || m_height <= 0) return {};
    return {m_splitter + splitterWidth, PaneHeight(), m_client.cx, m_client.cy};
}

CRect TabStrip::SplitterRect() const
{
    if (!m_hasScrollBar || m_height <= 0) return {};
    return {m_splitter, PaneHeight(), m_splitter + splitterWidth, m_client.cy};
}

CRect TabStrip::ButtonRect(TabStep button) const
{
    if (!m_buttonsShown) return {};
    const int left = button == TabStep::left ? 0 : m_height;
    return {left, PaneHeight(), left + m_height, m_client.cy};
}

bool TabStrip::ButtonEnabled(TabStep button) const
{
    if (!m_buttonsShown) return false;
    return button == TabStep::left ? m_firstVisible > 0 : m_firstVisible < Count() - 1;
}

} // namespace corekit::detail
