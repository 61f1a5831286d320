// One direction of a serial port: its transfers in the order they were asked for, each with its limits of
// time.
//
// A transfer is tried at once. What is left of it goes on when the polling thread finds the line ready or the
// time over, or on the thread that waits for it, which then needs no other one.
#pragma once

#include "corekit/platform/posix/files/Descriptor.h"
#include "corekit/platform/posix/ports/IoChannel.h"
#include "corekit/platform/posix/ports/Poller.h"
#include "corekit/platform/SerialPorts.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace corekit::detail {

class SerialLane final : public Watcher, public std::enable_shared_from_this<SerialLane> {
public:
    // Takes a descriptor of its own of the line, in non-blocking mode.
    SerialLane(Direction direction, Descriptor line);

    DWORD start(const Request& request);
    void carryOut(const OVERLAPPED& overlapped);
    bool cancel(const OVERLAPPED* which);
    void close();
    bool bind(PortBinding binding);
    void setTimeouts(const COMMTIMEOUTS& timeouts);

    void onReady(std::uint32_t ready) override;

private:
    using Clock = std::chrono::steady_clock;
    using Deadline = std::optional<Clock::time_point>;
    struct Pending {
        Request request;
        bool toPort; // a place is kept for it in the queue
        DWORD moved = 0;
        Clock::time_point begun = Clock::now(), last = begun;
    };

    bool isWaitingFor(const OVERLAPPED& overlapped) const;
    void serve();
    bool advance(Pending& pending, Transfer& result);
    Deadline deadlineOf(const Pending& pending) const;
    Deadline readDeadlineOf(const Pending& pending) const;
    void report(const Pending& pending, const Transfer& result);
    void watchOn();
    bool watchLine();
    void waitHere(std::unique_lock<std::mutex>& lock);
    void wake();

    const Direction m_direction;
    std::mutex m_lock;
    std::condition_variable m_left; // the thread that carried a transfer out has left the descriptor
    Descriptor m_line;
    Descriptor m_timer; // wakes the polling thread at a deadline, and whoever carries out a transfer at once
    COMMTIMEOUTS m_timeouts{};
    PortBinding m_binding;
    std::deque<Pending> m_waiting;
    bool m_isWatched = false;
    bool m_isArmed = false;  // the polling thread may be about to look
    bool m_hasTimer = false; // the polling thread watches the timer
    bool m_isCarried = false;
    bool m_isClosed = false;
};

} // namespace corekit::detail
