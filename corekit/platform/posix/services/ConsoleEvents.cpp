// Handlers of console events, and the thread that calls them.
#include "corekit/platform/Console.h"
#include "corekit/platform/posix/services/SignalReader.h"

#include <algorithm>
#include <csignal>
#include <memory>
#include <mutex>
#include <poll.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using corekit::detail::SignalReader;

DWORD eventOf(int signal)
{
    if (signal == SIGINT) return CTRL_C_EVENT;
    return signal == SIGQUIT ? CTRL_BREAK_EVENT : CTRL_CLOSE_EVENT;
}

bool isIgnored(int signal)
{
    struct sigaction now = {};
    return ::sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

class Events {
public:
    BOOL add(PHANDLER_ROUTINE handler);
    BOOL remove(PHANDLER_ROUTINE handler);

private:
    void watch();
    bool isHandled(DWORD event);

    std::mutex m_mutex;
    std::vector<PHANDLER_ROUTINE> m_handlers;
    bool m_isWatching = false;
};

Events& events()
{
    static auto* const only = new Events; // its thread may outlive every static object
    return *only;
}

BOOL Events::add(PHANDLER_ROUTINE handler)
{
    const std::scoped_lock lock(m_mutex);
    m_handlers.push_back(handler);
    if (!m_isWatching) watch();
    return TRUE;
}

BOOL Events::remove(PHANDLER_ROUTINE handler)
{
    const std::scoped_lock lock(m_mutex);
    const auto found = std::ranges::find(m_handlers, handler);
    if (found == m_handlers.end()) return FALSE;
    m_handlers.erase(found);
    return TRUE;
}

bool Events::isHandled(DWORD event)
{
    std::vector<PHANDLER_ROUTINE> handlers;
    {
        const std::scoped_lock lock(m_mutex);
        handlers = m_handlers;
    }
    return std::any_of(handlers.rbegin(), handlers.rend(), [event](auto handler) { return handler(event); });
}

// From the first handler on, for the life of the process.
void Events::watch()
{
    m_isWatching = true;
    auto reader = std::make_shared<SignalReader>();
    for (const int signal : {SIGINT, SIGQUIT, SIGTERM}) reader->claim(signal);
    if (!isIgnored(SIGHUP)) reader->claim(SIGHUP);
    std::thread([this, reader] {
        for (;;) {
            pollfd waiting{reader->descriptor(), POLLIN, 0};
            ::poll(&waiting, 1, -1);
            for (int signal; (signal = reader->next()) > 0;) {
                if (isHandled(eventOf(signal))) continue;
                ::signal(signal, SIG_DFL);
                ::kill(::getpid(), signal);
            }
        }
    }).detach();
}

} // namespace

BOOL SetConsoleCtrlHandler(PHANDLER_ROUTINE handler, BOOL add)
{
    if (handler == nullptr) return FALSE;
    return add ? events().add(handler) : events().remove(handler);
}
