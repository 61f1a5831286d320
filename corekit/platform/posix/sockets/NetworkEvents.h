// The network events that a socket's user has selected.
#pragma once

#include "corekit/platform/posix/files/Descriptor.h"
#include "corekit/platform/posix/ports/Poller.h"
#include "corekit/platform/Sockets.h"

#include <array>
#include <mutex>

namespace corekit::detail {

// Watches a descriptor of its own for the same socket, so that it is in nobody's way, from start to end. Each
// event is reported once and then rests until the call that answers it wakes it.
class NetworkEvents final : public Watcher, public std::enable_shared_from_this<NetworkEvents> {
public:
    // The event's handle is duplicated.
    NetworkEvents(HANDLE event, long selected) : m_event(event), m_selected(selected) {}
    ~NetworkEvents() override;

    int start(int descriptor); // an errno
    void end();
    void onReady(std::uint32_t ready) override;

    // The call that answers these events was made: those that hold again are reported again.
    void wake(long events);
    // Moves out what has happened.
    void take(WSANETWORKEVENTS& events);
    void connecting(); // a connection was asked for

private:
    enum class State { idle, listening, connecting, open };

    State stateOf(int descriptor) const;
    // All of these with the lock held.
    void look();
    bool lookAtConnecting(short ready);
    void lookAtOpen(short ready);
    void tell(long event, int bit, int error);

    std::mutex m_lock;
    Descriptor m_descriptor;
    HANDLE m_event;
    const long m_selected;
    long m_awake = FD_READ | FD_WRITE | FD_OOB | FD_ACCEPT | FD_CONNECT | FD_CLOSE;
    long m_happened = 0;
    State m_state = State::idle;
    std::array<int, FD_MAX_EVENTS> m_errors{};
};

} // namespace corekit::detail
