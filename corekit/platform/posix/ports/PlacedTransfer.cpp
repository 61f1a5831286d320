#include "corekit/platform/posix/ports/PlacedTransfer.h"

#include "corekit/platform/Errors.h"

#include <utility>

namespace corekit::detail {
namespace {
constexpr Transfer cancelled{0, ERROR_OPERATION_ABORTED};
} // namespace

PlacedTransfer::PlacedTransfer(std::shared_ptr<PlacedChannel> channel, const Request& request)
    : m_channel(std::move(channel)), m_request(request), m_place(placeOf(*request.overlapped))
{
    const std::lock_guard lock(m_channel->m_lock);
    m_inList = m_channel->m_waiting.insert(m_channel->m_waiting.end(), this);
}

PlacedTransfer::~PlacedTransfer()
{
    const std::lock_guard lock(m_channel->m_lock);
    if (m_inList != m_channel->m_waiting.end()) cancelWaiting();
}

void PlacedTransfer::cancelWaiting()
{
    m_channel->m_waiting.erase(std::exchange(m_inList, m_channel->m_waiting.end()));
    settle(*m_request.overlapped, cancelled);
}

Transfer PlacedTransfer::carryOut()
{
    std::unique_lock lock(m_channel->m_lock);
    if (m_inList == m_channel->m_waiting.end()) return cancelled;
    m_channel->m_waiting.erase(std::exchange(m_inList, m_channel->m_waiting.end()));
    Transfer result;
    {
        const std::shared_lock inUse(m_channel->m_inUse); // before a close that cancels what waits
        lock.unlock();
        result = moveOverlapped(m_channel->m_descriptor, m_request.direction, m_request.buffer, m_place);
    }
    settle(*m_request.overlapped, result);
    return result;
}

DWORD PlacedChannel::start(const Request& request)
{
    if (!isPlace(placeOf(*request.overlapped), request.buffer.count)) return ERROR_INVALID_PARAMETER;
    markPending(*request.overlapped);
    auto transfer = std::make_unique<PlacedTransfer>(shared_from_this(), request);
    if (!m_binding.queue->keepPlace()) return ERROR_NOT_ENOUGH_MEMORY;
    m_binding.queue->fillPlace({m_binding.key, request.overlapped, 0, NO_ERROR, transfer.release()},
                               CompletionQueue::Wake::now);
    return NO_ERROR;
}

bool PlacedChannel::cancel(const OVERLAPPED* which)
{
    const std::lock_guard lock(m_lock);
    bool found = false;
    for (auto it = m_waiting.begin(); it != m_waiting.end();) {
        PlacedTransfer& transfer = **it++;
        if (which != nullptr && transfer.m_request.overlapped != which) continue;
        transfer.cancelWaiting();
        found = true;
    }
    return found;
}

void PlacedChannel::close()
{
    cancel(nullptr);
    const std::unique_lock noneUses(m_inUse);
}

} // namespace corekit::detail
