#include "corekit/platform/posix/ports/PolledChannel.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/Errno.h"

#include <fcntl.h>
#include <sys/epoll.h>
#include <utility>

namespace corekit::detail {

PolledChannel::PolledChannel(int descriptor, Flow flow, PortBinding binding)
    : m_descriptor(descriptor), m_flow(flow), m_binding(std::move(binding))
{
    if (flow == Flow::stream) ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
}

bool PolledChannel::bind(PortBinding binding)
{
    const std::lock_guard lock(m_lock);
    if (m_binding.queue != nullptr) return false;
    m_binding = std::move(binding);
    return true;
}

DWORD PolledChannel::start(const Request& request)
{
    const std::lock_guard lock(m_lock);
    const bool toPort = m_binding.queue != nullptr;
    if (toPort && !m_binding.queue->keepPlace()) return ERROR_NOT_ENOUGH_MEMORY;
    markPending(*request.overlapped);
    Line& line = lineOf(request.direction);
    line.push_back({request, toPort});
    if (line.size() == 1) serve(request.direction, CompletionQueue::Wake::now);
    if (!line.empty() && !m_isWatched) watch();
    return NO_ERROR;
}

// Moves what can be moved, from the front of the line.
void PolledChannel::serve(Direction direction, CompletionQueue::Wake wake)
{
    Line& line = lineOf(direction);
    Transfer result;
    while (!line.empty() && advance(line.front(), result)) {
        report(line.front(), result, wake);
        line.pop_front();
    }
}

// False while bytes are missing.
bool PolledChannel::advance(Pending& pending, Transfer& result) const
{
    const auto& [direction, buffer, overlapped] = pending.request;
    do {
        const Buffer rest{buffer.bytes + pending.moved, buffer.count - pending.moved};
        if (!moveNow(m_descriptor, m_flow, direction, rest, result)) return false;
        pending.moved += result.moved;
    } while (direction == Direction::write && result.error == NO_ERROR && pending.moved < buffer.count);
    result.moved = pending.moved;
    return true;
}

void PolledChannel::report(const Pending& pending, const Transfer& result, CompletionQueue::Wake wake)
{
    settle(*pending.request.overlapped, result);
    if (!pending.toPort) return;
    m_binding.queue->fillPlace({m_binding.key, pending.request.overlapped, result.moved, result.error}, wake);
    if (wake == CompletionQueue::Wake::later) m_owesWake = true;
}

void PolledChannel::watch()
{
    const int error =
        poller::watch(m_descriptor, EPOLLIN | EPOLLOUT | EPOLLRDHUP | EPOLLET, shared_from_this());
    m_isWatched = error == 0;
    if (m_isWatched) return;
    cancelIn(m_reads, nullptr, errorFromErrno(error));
    cancelIn(m_writes, nullptr, errorFromErrno(error));
}

void PolledChannel::onReady(std::uint32_t ready)
{
    const std::lock_guard lock(m_lock);
    if (m_isClosed) return;
    constexpr std::uint32_t either = EPOLLERR | EPOLLHUP;
    if ((ready & (EPOLLIN | EPOLLRDHUP | either)) != 0) serve(Direction::read, CompletionQueue::Wake::later);
    if ((ready & (EPOLLOUT | either)) != 0) serve(Direction::write, CompletionQueue::Wake::later);
}

void PolledChannel::onRoundEnd()
{
    if (std::exchange(m_owesWake, false)) m_binding.queue->wakeTakers();
}

bool PolledChannel::cancelIn(Line& line, const OVERLAPPED* which, DWORD error)
{
    bool found = false;
    for (auto it = line.begin(); it != line.end();) {
        if (which != nullptr && it->request.overlapped != which) {
            ++it;
            continue;
        }
        report(*it, {it->moved, error}, CompletionQueue::Wake::now);
        it = line.erase(it);
        found = true;
    }
    return found;
}

bool PolledChannel::cancel(const OVERLAPPED* which)
{
    const std::lock_guard lock(m_lock);
    const bool reads = cancelIn(m_reads, which, ERROR_OPERATION_ABORTED);
    const bool writes = cancelIn(m_writes, which, ERROR_OPERATION_ABORTED);
    return reads || writes;
}

void PolledChannel::close()
{
    cancel(nullptr);
    const std::lock_guard lock(m_lock);
    m_isClosed = true;
    if (m_isWatched) poller::unwatch(m_descriptor);
}

} // namespace corekit::detail
