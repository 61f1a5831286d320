// The process's one thread that waits for descriptors to become ready.
//
// It starts with the first descriptor that is watched and lives as long as the process. Whoever watches hands
// in a Watcher; the thread keeps it alive while it calls it, so a watcher may be taken out at any time and
// from any thread, its own call included. A forked child begins with nothing watched, and what it watches and
// forgets is its own affair.
#pragma once

#include <cstdint>
#include <memory>

namespace corekit::detail {

class Watcher {
public:
    virtual ~Watcher() = default;
    // Called on the polling thread with the EPOLL... bits that hold. Must not wait for other threads longer
    // than for a short lock; every other descriptor waits meanwhile. A last call may come after unwatch.
    virtual void onReady(std::uint32_t ready) = 0;
    // Called on the polling thread after the watchers of one round were told: the time to pass on together
    // what they collected.
    virtual void onRoundEnd() {}
};

namespace poller {

// Starts watching for EPOLL... bits; EPOLLET and EPOLLONESHOT are allowed. A descriptor has at most one
// watcher. Returns an errno, 0 for success; EPERM for a plain file, which is always ready.
int watch(int descriptor, std::uint32_t events, std::shared_ptr<Watcher> watcher);
// Changes the bits, and arms again what EPOLLONESHOT put to rest: the watcher is called if they hold already.
// Returns an errno.
int rearm(int descriptor, std::uint32_t events);
// Stops watching; to be called before the descriptor is closed. One that is not watched is left alone.
void unwatch(int descriptor);

} // namespace poller
} // namespace corekit::detail
