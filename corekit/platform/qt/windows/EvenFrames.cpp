#include "corekit/platform/EvenFrames.h"

#include "corekit/platform/qt/windows/PaintInHand.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QBackingStore>
#include <QSocketNotifier>
#include <QSurfaceFormat>
#include <QWindow>

#include <algorithm>
#include <cstdint>
#include <sys/timerfd.h>
#include <unistd.h>

namespace corekit {

using namespace detail;

// A timer of the system that the loop watches among its other descriptors: no thread has to wake this one.
struct FrameTimer::Alarm {
    explicit Alarm(std::function<void()> call)
        : onDue(std::move(call)), descriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC))
    {
        if (descriptor < 0) return;
        notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, [this] { ring(); });
    }
    ~Alarm()
    {
        notifier.reset();
        if (descriptor >= 0) ::close(descriptor);
    }
    Alarm(const Alarm&) = delete;
    Alarm& operator=(const Alarm&) = delete;

    void ring()
    {
        std::uint64_t times = 0;
        if (::read(descriptor, &times, sizeof times) != sizeof times) return;
        const std::function<void()> call = onDue; // which may end this
        call();
    }

    std::function<void()> onDue;
    int descriptor;
    std::unique_ptr<QSocketNotifier> notifier;
};

FrameTimer::FrameTimer(std::function<void()> onDue) : m_alarm(std::make_unique<Alarm>(std::move(onDue))) {}

FrameTimer::~FrameTimer() = default;

void FrameTimer::SetDue(std::chrono::steady_clock::time_point due)
{
    using namespace std::chrono;
    const nanoseconds::rep at = std::max<nanoseconds::rep>(nanoseconds(due.time_since_epoch()).count(), 1);
    itimerspec alarm{};
    alarm.it_value = {at / std::nano::den, at % std::nano::den};
    ::timerfd_settime(m_alarm->descriptor, TFD_TIMER_ABSTIME, &alarm, nullptr);
}

// The toolkit waits for the server where a paint begins that covers what was sent before.
void AwaitShown(HWND handle)
{
    Window* const window = windowTables().find(handle);
    QWidget* const widget = window ? window->widget() : nullptr;
    if (!widget || !widget->isVisible() || PaintInHand::isAny()) return;
    QWidget* const top = widget->window();
    QBackingStore* const store = widget->backingStore();
    if (!shownBy(store) || !top->windowHandle()) return;  // nothing has been painted yet
    if (top->windowHandle()->format().hasAlpha()) return; // the beginning would clear what is there
    store->beginPaint(QRect(widget->mapTo(top, QPoint()), widget->size()));
    store->endPaint();
}

} // namespace corekit
