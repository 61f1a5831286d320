#include "corekit/platform/ProgressBars.h"

#include "corekit/platform/qt/controls/Make.h"

#include <QProgressBar>

#include <algorithm>
#include <utility>

namespace corekit::detail {

namespace {

class ProgressBar final : public Control {
public:
    explicit ProgressBar(QWidget* parent) : Control(new QProgressBar(parent))
    {
        face()->setTextVisible(false);
        face()->setFocusPolicy(Qt::NoFocus);
    }
    void begin(const CREATESTRUCTA&) override
    {
        face()->setOrientation(style() & PBS_VERTICAL ? Qt::Vertical : Qt::Horizontal);
        show();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    QProgressBar* face() const { return as<QProgressBar>(); }
    LRESULT setRange(int low, int high);
    LRESULT moveTo(long long position);
    LRESULT step();
    void show();

    int m_low = 0, m_high = 100, m_position = 0, m_step = 10;
    bool m_runs = false;
};

void ProgressBar::show()
{
    if (!face()) return;
    // An empty range is what makes the toolkit's bar run.
    if (m_runs) return face()->setRange(0, 0);
    // Counted from 0, as a range may be wider than the toolkit can count in.
    const long long length = std::max(1LL, static_cast<long long>(m_high) - m_low);
    constexpr int ticks = 1 << 20;
    const int whole = static_cast<int>(std::min<long long>(length, ticks));
    face()->setRange(0, whole);
    face()->setValue(static_cast<int>((static_cast<long long>(m_position) - m_low) * whole / length));
}

LRESULT ProgressBar::setRange(int low, int high)
{
    const LRESULT former = inWords(m_low, m_high);
    std::tie(m_low, m_high) = std::minmax(low, high);
    m_position = std::clamp(m_position, m_low, m_high);
    show();
    return former;
}

LRESULT ProgressBar::moveTo(long long position)
{
    const int former =
        std::exchange(m_position, static_cast<int>(std::clamp<long long>(position, m_low, m_high)));
    show();
    return former;
}

LRESULT ProgressBar::step()
{
    const long long length = static_cast<long long>(m_high) - m_low;
    long long next = static_cast<long long>(m_position) + m_step;
    if (length > 0 && next > m_high)
        next = m_low + (next - m_high) % length;
    else if (length > 0 && next < m_low)
        next = m_high - (m_low - next) % length;
    return moveTo(next);
}

LRESULT ProgressBar::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case PBM_SETRANGE: {
        const auto words = static_cast<DWORD_PTR>(lParam);
        return setRange(LOWORD(words), HIWORD(words));
    }
    case PBM_SETRANGE32:
        return setRange(static_cast<int>(wParam), static_cast<int>(lParam));
    case PBM_GETRANGE:
        if (auto* const range = reinterpret_cast<PBRANGE*>(lParam)) *range = {m_low, m_high};
        return wParam ? m_low : m_high;
    case PBM_SETPOS:
        return moveTo(static_cast<int>(wParam));
    case PBM_DELTAPOS:
        return moveTo(static_cast<long long>(m_position) + static_cast<int>(wParam));
    case PBM_GETPOS:
        return m_position;
    case PBM_SETSTEP:
        return std::exchange(m_step, static_cast<int>(wParam));
    case PBM_GETSTEP:
        return m_step;
    case PBM_STEPIT:
        return step();
    case PBM_SETMARQUEE:
        m_runs = wParam && style() & PBS_MARQUEE;
        show();
        return 1;
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

} // namespace

std::unique_ptr<Window> makeProgressBar(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<ProgressBar>(parent);
}

} // namespace corekit::detail
