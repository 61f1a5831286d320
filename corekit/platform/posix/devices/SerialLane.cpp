#include "corekit/platform/posix/devices/SerialLane.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Overlapped.h"
#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>
#include <utility>

namespace corekit::detail {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

timespec toTimespec(nanoseconds time)
{
    const auto count = std::max<nanoseconds::rep>(time.count(), 0);
    return {static_cast<time_t>(count / 1'000'000'000), static_cast<long>(count % 1'000'000'000)};
}

// How long a number of bytes may take; nothing if both figures are 0.
std::optional<milliseconds> totalOf(DWORD multiplier, DWORD constant, DWORD bytes)
{
    if (multiplier == 0 && constant == 0) return {};
    return milliseconds(std::int64_t{multiplier} * bytes + constant);
}

// At once when the time is 0; a negative one stops the clock.
void setTimer(int timer, nanoseconds time)
{
    itimerspec alarm{};
    if (time >= nanoseconds(0)) alarm.it_value = toTimespec(std::max(time, nanoseconds(1)));
    ::timerfd_settime(timer, 0, &alarm, nullptr);
}

void drain(int timer)
{
    std::uint64_t count;
    static_cast<void>(!::read(timer, &count, sizeof count));
}

} // namespace

SerialLane::SerialLane(Direction direction, Descriptor line)
    : m_direction(direction), m_line(std::move(line)),
      m_timer(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC))
{
}

void SerialLane::setTimeouts(const COMMTIMEOUTS& timeouts)
{
    const std::lock_guard lock(m_lock);
    m_timeouts = timeouts;
}

bool SerialLane::bind(PortBinding binding)
{
    const std::lock_guard lock(m_lock);
    if (m_binding.queue != nullptr) return false;
    m_binding = std::move(binding);
    return true;
}

DWORD SerialLane::start(const Request& request)
{
    const std::lock_guard lock(m_lock);
    if (m_isClosed) return ERROR_OPERATION_ABORTED;
    const bool toPort = m_binding.queue != nullptr;
    if (toPort && !m_binding.queue->keepPlace()) return ERROR_NOT_ENOUGH_MEMORY;
    markPending(*request.overlapped);
    m_waiting.push_back({request, toPort});
    if (m_isCarried) return NO_ERROR;
    if (m_waiting.size() == 1) serve();
    if (!WaitsAtOnce::Holds()) watchOn();
    return NO_ERROR;
}

// From the front of the line, as far as it goes.
void SerialLane::serve()
{
    Transfer result;
    while (!m_waiting.empty() && advance(m_waiting.front(), result)) {
        const Pending done = m_waiting.front();
        m_waiting.pop_front();
        report(done, result);
        if (!m_waiting.empty()) m_waiting.front().begun = m_waiting.front().last = Clock::now();
    }
}

// False while bytes are missing and there is time.
bool SerialLane::advance(Pending& pending, Transfer& result)
{
    const auto& [direction, buffer, overlapped] = pending.request;
    DWORD error = NO_ERROR;
    while (pending.moved < buffer.count && error == NO_ERROR) {
        const Buffer rest{buffer.bytes + pending.moved, buffer.count - pending.moved};
        Transfer part;
        if (!moveNow(m_line.get(), Flow::line, direction, rest, part)) {
            const Deadline deadline = deadlineOf(pending);
            if (!deadline || Clock::now() < *deadline) return false;
            break;
        }
        error = part.error == NO_ERROR && part.moved == 0 ? ERROR_IO_DEVICE : part.error; // it is hung up
        pending.moved += part.moved;
        pending.last = Clock::now();
    }
    result = {pending.moved, pending.moved > 0 ? NO_ERROR : error};
    return true;
}

SerialLane::Deadline SerialLane::deadlineOf(const Pending& pending) const
{
    if (m_direction == Direction::read) return readDeadlineOf(pending);
    const auto total = totalOf(m_timeouts.WriteTotalTimeoutMultiplier, m_timeouts.WriteTotalTimeoutConstant,
                               pending.request.buffer.count);
    return total ? Deadline(pending.begun + *total) : std::nullopt;
}

SerialLane::Deadline SerialLane::readDeadlineOf(const Pending& pending) const
{
    const auto& [interval, multiplier, constant, writeMultiplier, writeConstant] = m_timeouts;
    if (interval == INFINITE && multiplier == 0 && constant == 0) return pending.begun;
    if (interval == INFINITE && multiplier == INFINITE)
        return pending.moved > 0 ? pending.begun : pending.begun + milliseconds(constant);
    Deadline deadline;
    if (const auto total = totalOf(multiplier, constant, pending.request.buffer.count))
        deadline = pending.begun + *total;
    if (interval > 0 && interval != INFINITE && pending.moved > 0) {
        const auto gap = pending.last + milliseconds(interval);
        deadline = deadline ? std::min(*deadline, gap) : gap;
    }
    return deadline;
}

void SerialLane::report(const Pending& pending, const Transfer& result)
{
    OVERLAPPED* const overlapped = pending.request.overlapped;
    settle(*overlapped, result);
    if (pending.toPort)
        m_binding.queue->fillPlace({m_binding.key, overlapped, result.moved, result.error},
                                   CompletionQueue::Wake::now);
}

bool SerialLane::watchLine()
{
    const std::uint32_t events = (m_direction == Direction::read ? EPOLLIN : EPOLLOUT) | EPOLLONESHOT;
    const int error = m_isWatched ? poller::rearm(m_line.get(), events)
                                  : poller::watch(m_line.get(), events, shared_from_this());
    m_isWatched = m_isArmed = error == 0;
    if (m_isWatched) return true;
    for (; !m_waiting.empty(); m_waiting.pop_front())
        report(m_waiting.front(), {m_waiting.front().moved, errorFromErrno(error)});
    return false;
}

// Leaves what is waiting to the polling thread.
void SerialLane::watchOn()
{
    if (m_waiting.empty() || !watchLine()) return;
    const Deadline deadline = deadlineOf(m_waiting.front());
    if (!deadline) return;
    if (!m_hasTimer) m_hasTimer = poller::watch(m_timer.get(), EPOLLIN | EPOLLET, shared_from_this()) == 0;
    setTimer(m_timer.get(), *deadline - Clock::now());
}

void SerialLane::onReady(std::uint32_t)
{
    const std::lock_guard lock(m_lock);
    if (m_isClosed || m_isCarried) return;
    if (m_hasTimer) drain(m_timer.get());
    serve();
    watchOn();
}

bool SerialLane::isWaitingFor(const OVERLAPPED& overlapped) const
{
    return !m_isClosed && !m_waiting.empty() && m_waiting.front().request.overlapped == &overlapped;
}

// Does nothing where another transfer goes first or another thread is at it: then the event tells.
void SerialLane::carryOut(const OVERLAPPED& overlapped)
{
    std::unique_lock lock(m_lock);
    if (m_isCarried || !isWaitingFor(overlapped)) return;
    m_isCarried = true;
    if (std::exchange(m_isArmed, false)) poller::rearm(m_line.get(), EPOLLONESHOT);
    while (isWaitingFor(overlapped)) waitHere(lock);
    m_isCarried = false;
    if (!m_isClosed) watchOn();
    m_left.notify_all();
}

// Waits for the line, for the deadline or to be woken, without the lock, and then serves.
void SerialLane::waitHere(std::unique_lock<std::mutex>& lock)
{
    const Deadline deadline = deadlineOf(m_waiting.front());
    const timespec limit = deadline ? toTimespec(*deadline - Clock::now()) : timespec{};
    const short wanted = m_direction == Direction::read ? POLLIN : POLLOUT;
    pollfd watched[] = {{m_line.get(), wanted, 0}, {m_timer.get(), POLLIN, 0}};
    lock.unlock();
    ::ppoll(watched, 2, deadline ? &limit : nullptr, nullptr);
    lock.lock();
    if (watched[1].revents != 0) drain(m_timer.get());
    if (!m_isClosed) serve();
}

void SerialLane::wake()
{
    if (m_isCarried) setTimer(m_timer.get(), nanoseconds(0));
}

bool SerialLane::cancel(const OVERLAPPED* which)
{
    const std::lock_guard lock(m_lock);
    const auto isMeant = [which](const Pending& pending) {
        return which == nullptr || pending.request.overlapped == which;
    };
    bool found = false;
    for (auto it = m_waiting.begin(); it != m_waiting.end();) {
        if (!isMeant(*it)) {
            ++it;
            continue;
        }
        const Pending ended = *it;
        it = m_waiting.erase(it);
        report(ended, {ended.moved, ERROR_OPERATION_ABORTED});
        found = true;
    }
    if (found) wake();
    return found;
}

void SerialLane::close()
{
    cancel(nullptr);
    std::unique_lock lock(m_lock);
    m_isClosed = true;
    wake();
    m_left.wait(lock, [this] { return !m_isCarried; });
    if (m_isWatched) poller::unwatch(m_line.get());
    if (m_hasTimer) poller::unwatch(m_timer.get());
    m_line = Descriptor();
}

} // namespace corekit::detail
