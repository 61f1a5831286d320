// Overlapped transfers of pipes and sockets: tried at once, and again whenever the polling thread finds the
// descriptor ready. Reads are done in the order they were asked for, and so are writes.
#pragma once

#include "corekit/platform/posix/ports/IoChannel.h"
#include "corekit/platform/posix/ports/Poller.h"

#include <deque>
#include <mutex>

namespace corekit::detail {

class PolledChannel final : public IoChannel,
                            public Watcher,
                            public std::enable_shared_from_this<PolledChannel> {
public:
    // A stream is switched to non-blocking mode.
    PolledChannel(int descriptor, Flow flow, PortBinding binding);

    DWORD start(const Request& request) override; // a read comes back with the first bytes, a write with all
    bool cancel(const OVERLAPPED* which) override;
    void close() override;
    bool bind(PortBinding binding) override;

    void onReady(std::uint32_t ready) override;
    void onRoundEnd() override;

private:
    struct Pending {
        Request request;
        bool toPort; // a place is kept for it in the queue
        DWORD moved = 0;
    };
    using Line = std::deque<Pending>;

    Line& lineOf(Direction direction) { return direction == Direction::read ? m_reads : m_writes; }
    void serve(Direction direction, CompletionQueue::Wake wake);
    bool advance(Pending& pending, Transfer& result) const;
    void report(const Pending& pending, const Transfer& result, CompletionQueue::Wake wake);
    bool cancelIn(Line& line, const OVERLAPPED* which, DWORD error);
    void watch();

    const int m_descriptor;
    const Flow m_flow;
    std::mutex m_lock;
    PortBinding m_binding;
    Line m_reads;
    Line m_writes;
    bool m_isWatched = false;
    bool m_isClosed = false;
    bool m_owesWake = false; // used by the polling thread
};

} // namespace corekit::detail
