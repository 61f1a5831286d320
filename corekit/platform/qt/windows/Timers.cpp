#include "corekit/platform/Timers.h"

#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <algorithm>
#include <map>
#include <utility>

namespace corekit::detail {
namespace {

class Timers final : public QObject {
public:
    using Key = std::pair<HWND, UINT_PTR>;

    static Timers& instance()
    {
        static QPointer<Timers> only;
        if (!only) {
            only = new Timers;
            only->setParent(QCoreApplication::instance());
        }
        return *only;
    }

    UINT_PTR start(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
    {
        if (!window && !m_timers.contains({window, id})) id = ++m_lastFreeId;
        stop({window, id});
        const int interval = static_cast<int>(std::clamp<UINT>(milliseconds, USER_TIMER_MINIMUM, 0x7FFFFFFF));
        const int number = startTimer(interval, Qt::PreciseTimer);
        if (!number) return 0;
        m_timers[{window, id}] = {number, procedure};
        m_keys[number] = {window, id};
        return id ? id : 1;
    }

    bool stop(const Key& key)
    {
        const auto found = m_timers.find(key);
        if (found == m_timers.end()) return false;
        killTimer(found->second.first);
        m_keys.erase(found->second.first);
        m_timers.erase(found);
        return true;
    }

    void stopAllOf(HWND window)
    {
        for (auto at = m_timers.lower_bound({window, 0});
             at != m_timers.end() && at->first.first == window;) {
            killTimer(at->second.first);
            m_keys.erase(at->second.first);
            at = m_timers.erase(at);
        }
    }

protected:
    void timerEvent(QTimerEvent* event) override
    {
        const auto found = m_keys.find(event->timerId());
        if (found == m_keys.end()) return killTimer(event->timerId());
        const auto [window, id] = found->second;
        const TIMERPROC procedure = m_timers[found->second].second;
        MSG tick{window, WM_TIMER, id, reinterpret_cast<LPARAM>(procedure), messageTime(), pointerPlace()};
        bool wasConsumed = false;
        offerAndSend(tick, &wasConsumed);
        if (!window && procedure && !wasConsumed) procedure(nullptr, WM_TIMER, id, tick.time);
    }

private:
    std::map<Key, std::pair<int, TIMERPROC>> m_timers;
    std::map<int, Key> m_keys; // by the toolkit's number
    UINT_PTR m_lastFreeId = 0x7FFF;
};

} // namespace

void forgetTimers(HWND window)
{
    if (QCoreApplication::instance()) Timers::instance().stopAllOf(window);
}

} // namespace corekit::detail

using namespace corekit::detail;

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    if (!onToolkitThread() || !QCoreApplication::instance() || (window && !requireWindow(window))) return 0;
    return Timers::instance().start(window, id, milliseconds, procedure);
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    return onToolkitThread() && QCoreApplication::instance() && Timers::instance().stop({window, id});
}
