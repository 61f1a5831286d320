#include "corekit/platform/posix/ports/IoObject.h"

#include "corekit/platform/posix/ports/PlacedTransfer.h"
#include "corekit/platform/posix/ports/PolledChannel.h"

#include <mutex>

namespace corekit::detail {
namespace {
// Guards the making of channels, of whatever object.
constinit std::mutex channelLock;
} // namespace

IoObject::~IoObject()
{
    if (m_channel != nullptr) m_channel->close();
}

void IoObject::setChannel(std::shared_ptr<IoChannel> channel)
{
    m_channel = std::move(channel);
    m_current.store(m_channel.get(), std::memory_order_release);
}

IoChannel& IoObject::openChannel()
{
    if (IoChannel* const current = channel()) return *current;
    const std::lock_guard lock(channelLock);
    if (m_channel == nullptr)
        setChannel(std::make_shared<PolledChannel>(descriptor(), m_flow, PortBinding{}));
    return *m_channel;
}

bool IoObject::bind(const PortBinding& binding)
{
    const std::lock_guard lock(channelLock);
    if (m_channel != nullptr) return m_channel->bind(binding);
    if (m_flow == Flow::placed)
        setChannel(std::make_shared<PlacedChannel>(descriptor(), binding));
    else
        setChannel(std::make_shared<PolledChannel>(descriptor(), m_flow, binding));
    return true;
}

} // namespace corekit::detail
