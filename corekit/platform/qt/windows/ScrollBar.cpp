#include "corekit/platform/qt/windows/ScrollBar.h"

#include <algorithm>
#include <memory>

namespace corekit::detail {

ScrollBar::ScrollBar(QScrollBar* bar, Tell tell) : m_bar(bar), m_tell(std::move(tell))
{
    QObject::connect(bar, &QAbstractSlider::actionTriggered, bar, [this](int action) { onAction(action); });
    QObject::connect(bar, &QAbstractSlider::sliderPressed, bar, [this] { m_isDragging = true; });
    QObject::connect(bar, &QAbstractSlider::sliderReleased, bar, [this] {
        m_isDragging = false;
        const int position = m_tracked;
        const auto use = m_tell; // the bar may go meanwhile
        const QPointer<QScrollBar> still = m_bar;
        put();
        use(SB_THUMBPOSITION, position);
        if (still) use(SB_ENDSCROLL, 0);
    });
    put();
}

ScrollBar::~ScrollBar()
{
    if (m_bar) m_bar->disconnect();
}

void ScrollBar::onAction(int action)
{
    if (m_isPutting) return;
    static constexpr int codes[] = {-1,        SB_LINEDOWN, SB_LINEUP, SB_PAGEDOWN,
                                    SB_PAGEUP, SB_TOP,      SB_BOTTOM, SB_THUMBTRACK};
    if (action <= 0 || action >= static_cast<int>(std::size(codes))) return;
    const int code = codes[action];
    const auto use = m_tell;
    const QPointer<QScrollBar> still = m_bar;
    if (code == SB_THUMBTRACK) {
        m_tracked = m_bar->sliderPosition();
        use(m_isDragging ? SB_THUMBTRACK : SB_THUMBPOSITION, m_tracked);
        if (!m_isDragging && still) use(SB_ENDSCROLL, 0);
        return;
    }
    m_bar->setSliderPosition(m_position); // the program moves it, if it wants to
    use(code, 0);
    if (still) use(SB_ENDSCROLL, 0);
}

int ScrollBar::set(const SCROLLINFO& info)
{
    if (info.fMask & SIF_RANGE) {
        m_minimum = info.nMin;
        m_maximum = std::max(info.nMin, info.nMax);
    }
    if (info.fMask & SIF_PAGE) m_page = info.nPage;
    if (info.fMask & SIF_POS) m_position = info.nPos;
    const long long span = static_cast<long long>(m_maximum) - m_minimum + 1;
    m_page = static_cast<UINT>(std::min<long long>(m_page, span));
    const long long last =
        static_cast<long long>(m_maximum) - (m_page ? static_cast<long long>(m_page) - 1 : 0);
    m_position = static_cast<int>(std::clamp<long long>(m_position, m_minimum, last));
    if (!m_isDragging) m_tracked = m_position;
    put();
    return m_position;
}

bool ScrollBar::get(SCROLLINFO& info) const
{
    if (info.fMask & SIF_RANGE) {
        info.nMin = m_minimum;
        info.nMax = m_maximum;
    }
    if (info.fMask & SIF_PAGE) info.nPage = m_page;
    if (info.fMask & SIF_POS) info.nPos = m_position;
    if (info.fMask & SIF_TRACKPOS) info.nTrackPos = m_isDragging ? m_tracked : m_position;
    return info.fMask & SIF_ALL;
}

bool ScrollBar::hasRange() const
{
    return static_cast<long long>(m_maximum) - m_minimum + 1 > static_cast<long long>(m_page) &&
           m_maximum > m_minimum;
}

void ScrollBar::put()
{
    if (!m_bar) return;
    m_isPutting = true;
    const int page = static_cast<int>(std::min<UINT>(m_page, 0x7FFFFFFF));
    m_bar->setRange(m_minimum, page ? std::max(m_minimum, m_maximum - page + 1) : m_maximum);
    m_bar->setPageStep(std::max(page, 1));
    if (!m_isDragging) m_bar->setValue(m_position);
    m_isPutting = false;
}

} // namespace corekit::detail
