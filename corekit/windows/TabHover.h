// What waits over a tab until it opens: something dragged that stays at one point for half a second.
//
// Times are milliseconds of one clock, which may wrap. The owner passes on what a drag does and asks at
// every step whether a tab is due. User-interface thread.
#pragma once

#include "corekit/framework/Geometry.h"

namespace corekit::detail {

// At most one tab waits.
class TabHover {
public:
    static constexpr DWORD openAfter = 500; // milliseconds

    // Waiting over the tab starts at this moment and point; -1, for no tab, ends it.
    void Enter(int tab, CPoint point, DWORD now)
    {
        m_tab = tab;
        m_point = point;
        m_since = now;
    }
    // Nothing is waited for any more.
    void Leave() { m_tab = -1; }
    // Whether the drag is still where it was: any move starts the wait anew.
    bool IsWaitingAt(CPoint point) const { return m_tab >= 0 && m_point == point; }
    // The tab whose time has come, which is forgotten then, so that it opens once; -1 for none.
    int Due(DWORD now)
    {
        if (m_tab < 0 || now - m_since < openAfter) return -1;
        const int due = m_tab;
        m_tab = -1;
        return due;
    }

private:
    int m_tab = -1;    // -1: nothing waits
    CPoint m_point;    // where the wait began
    DWORD m_since = 0; // when
};

} // namespace corekit::detail
