// What waits over a tab until it opens: something dragged that stays at one point for half a second.
#pragma once

#include "corekit/framework/Geometry.h"

namespace corekit::detail {

class TabHover {
public:
    static constexpr DWORD openAfter = 500; // milliseconds

    // Waiting over the tab starts; -1, for no tab, ends it.
    void Enter(int tab, CPoint point, DWORD now)
    {
        m_tab = tab;
        m_point = point;
        m_since = now;
    }
    void Leave() { m_tab = -1; }
    bool IsWaitingAt(CPoint point) const { return m_tab >= 0 && m_point == point; }
    // The tab whose time has come, which is forgotten then; -1 for none.
    int Due(DWORD now)
    {
        if (m_tab < 0 || now - m_since < openAfter) return -1;
        const int due = m_tab;
        m_tab = -1;
        return due;
    }

private:
    int m_tab = -1;
    CPoint m_point;
    DWORD m_since = 0;
};

} // namespace corekit::detail
