// An open socket as an object behind a handle.
#pragma once

#include "corekit/platform/posix/ports/IoObject.h"
#include "corekit/platform/Sockets.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace corekit::detail {

class NetworkEvents;

class Socket final : public IoObject {
public:
    static constexpr ObjectKind objectKind = ObjectKind::socket;
    explicit Socket(Descriptor descriptor);
    ~Socket() override;

    // As the calls of Sockets.h see it; where it is set, the descriptor has O_NONBLOCK.
    bool neverWaits() const { return m_neverWaits.load(std::memory_order_relaxed); }
    int setNeverWaits(bool neverWaits); // an errno

    // Limits that the kernel keeps for one direction (SO_RCVTIMEO, SO_SNDTIMEO), in milliseconds; 0 is none.
    // One thread at a time may use a direction with limits.
    class Limit {
    public:
        explicit Limit(int option) : m_option(option) {}
        int set(int descriptor, DWORD milliseconds); // an errno
        // What setsockopt asked for, in force for recv and send.
        std::atomic<DWORD> own = 0;

    private:
        const int m_option;
        std::atomic<DWORD> m_inForce = 0;
    };
    Limit receiveLimit;
    Limit sendLimit;

    // The selected network events; null without.
    std::shared_ptr<NetworkEvents> events() const;
    void setEvents(std::shared_ptr<NetworkEvents> events); // ends those that were

private:
    std::atomic<bool> m_neverWaits = false;
    std::atomic<bool> m_hasEvents = false; // spares the lock
    mutable std::mutex m_eventsLock;
    std::shared_ptr<NetworkEvents> m_events;
};

// A new handle for the descriptor; INVALID_SOCKET with the last error set when there is no room.
SOCKET openSocket(Descriptor descriptor);
// The socket's number as a handle.
inline HANDLE handleOf(SOCKET socket)
{
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(static_cast<int>(socket)));
}

} // namespace corekit::detail
