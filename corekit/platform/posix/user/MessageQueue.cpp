#include "corekit/platform/posix/user/MessageQueue.h"

#include <algorithm>

namespace corekit::detail {

bool MessageFilter::Passes(const MSG& message) const
{
    if (message.message == WM_QUIT) return true;
    if (window && message.hwnd != window) return false;
    return (first == 0 && last == 0) || (message.message >= first && message.message <= last);
}

bool MessageQueue::Post(const MSG& message)
{
    {
        const std::lock_guard lock(m_lock);
        if (m_messages.size() >= maximumPostedMessages) return false;
        m_messages.push_back(message);
    }
    if (const auto wake = m_wake.load())
        wake();
    else
        m_arrival.notify_one();
    return true;
}

bool MessageQueue::Read(MSG& message, const MessageFilter& filter, QueueRead how)
{
    std::unique_lock lock(m_lock);
    for (;;) {
        const auto found =
            std::ranges::find_if(m_messages, [&](const MSG& posted) { return filter.Passes(posted); });
        if (found != m_messages.end()) {
            message = *found;
            if (how != QueueRead::look) m_messages.erase(found);
            return true;
        }
        if (how != QueueRead::wait) return false;
        m_arrival.wait(lock);
    }
}

void MessageQueue::SetOuterLoop(const OuterLoop& loop)
{
    m_work = loop.work;
    m_wake = loop.wake;
}

void MessageQueue::Drop(HWND window)
{
    const std::lock_guard lock(m_lock);
    std::erase_if(m_messages, [&](const MSG& message) { return message.hwnd == window; });
}

} // namespace corekit::detail
