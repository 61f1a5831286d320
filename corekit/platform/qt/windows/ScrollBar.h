// A scroll bar of the toolkit that obeys its program: it tells what the user did, and stays where it is until
// it is set. Serves the bars of bare windows and the control.
#pragma once

#include "corekit/platform/ScrollBars.h"

#include <QObject>
#include <QPointer>
#include <QScrollBar>

#include <functional>

namespace corekit::detail {

class ScrollBar {
public:
    // Tells SB_ codes, with the position of the thumb for the two that carry one.
    using Tell = std::function<void(int code, int position)>;

    // Uses the bar, which belongs to its parent.
    ScrollBar(QScrollBar* bar, Tell tell);
    ScrollBar(const ScrollBar&) = delete;
    ScrollBar& operator=(const ScrollBar&) = delete;
    ~ScrollBar();

    QScrollBar* widget() const { return m_bar; }
    // Returns the position in force.
    int set(const SCROLLINFO& info);
    bool get(SCROLLINFO& info) const;
    bool hasRange() const; // anything to scroll

private:
    void onAction(int action);
    void put();

    QPointer<QScrollBar> m_bar;
    Tell m_tell;
    int m_minimum = 0, m_maximum = 100, m_position = 0, m_tracked = 0;
    UINT m_page = 0;
    bool m_isPutting = false, m_isDragging = false;
};

} // namespace corekit::detail
