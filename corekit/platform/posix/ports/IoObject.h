// An object through which bytes pass: a file, a pipe, a socket. ReadFile, WriteFile and the completion ports
// know it by this.
#pragma once

#include "corekit/platform/posix/files/Descriptor.h"
#include "corekit/platform/posix/handles/HandleTable.h"
#include "corekit/platform/posix/ports/IoChannel.h"

namespace corekit::detail {

class IoObject : public Object {
public:
    // Overlapped transfers that are under way end with error 995.
    ~IoObject() override;

    int descriptor() const { return m_descriptor.get(); }
    Flow flow() const { return m_flow; }
    // Whether it was opened for GENERIC_READ or GENERIC_WRITE.
    bool allows(DWORD access) const { return (m_access & access) != 0; }

    // What carries out overlapped transfers in the background; null for none.
    IoChannel* channel() const { return m_current.load(std::memory_order_acquire); }
    // The same, to be used when the object may be gone.
    std::shared_ptr<IoChannel> sharedChannel() const { return channel() ? m_channel : nullptr; }
    // The same; a pipe or socket is given one if it has none.
    IoChannel& openChannel();
    // Transfers that begin from now on are reported at the port. False when it belongs to one already.
    bool bind(const PortBinding& binding);

protected:
    IoObject(ObjectKind kind, Descriptor descriptor, Flow flow, DWORD access)
        : Object(kind), m_descriptor(std::move(descriptor)), m_flow(flow), m_access(access)
    {
    }
    // For kinds that have a channel from the beginning.
    void setChannel(std::shared_ptr<IoChannel> channel);

private:
    Descriptor m_descriptor;
    const Flow m_flow;
    const DWORD m_access;
    std::shared_ptr<IoChannel> m_channel; // set once
    std::atomic<IoChannel*> m_current = nullptr;
};

template <>
inline constexpr bool isOfKind<IoObject>(ObjectKind kind)
{
    return kind == ObjectKind::file || kind == ObjectKind::socket || kind == ObjectKind::serialPort;
}

} // namespace corekit::detail
