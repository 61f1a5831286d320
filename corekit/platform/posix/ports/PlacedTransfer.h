// Overlapped transfers of files with places.
//
// Such a file is always ready and a transfer would hold up whoever asks for it, so it waits in the completion
// port's queue and the thread that takes it out carries it out first.
#pragma once

#include "corekit/platform/posix/ports/IoChannel.h"

#include <list>
#include <mutex>
#include <shared_mutex>

namespace corekit::detail {

class PlacedTransfer;

class PlacedChannel final : public IoChannel, public std::enable_shared_from_this<PlacedChannel> {
public:
    PlacedChannel(int descriptor, PortBinding binding)
        : m_descriptor(descriptor), m_binding(std::move(binding))
    {
    }

    DWORD start(const Request& request) override;
    bool cancel(const OVERLAPPED* which) override;
    void close() override;
    bool bind(PortBinding) override { return false; }

private:
    friend class PlacedTransfer;
    using Waiting = std::list<PlacedTransfer*>;

    const int m_descriptor;
    const PortBinding m_binding;
    std::mutex m_lock; // guards the list and the places of transfers in it
    Waiting m_waiting;
    std::shared_mutex m_inUse; // shared by those who use the descriptor
};

class PlacedTransfer final : public QueuedTransfer {
public:
    PlacedTransfer(std::shared_ptr<PlacedChannel> channel, const Request& request);
    PlacedTransfer(const PlacedTransfer&) = delete;
    PlacedTransfer& operator=(const PlacedTransfer&) = delete;
    ~PlacedTransfer() override; // cancels what was not carried out

    // Moves the bytes and settles, unless it was cancelled meanwhile. The outcome for the port.
    Transfer carryOut() override;

private:
    friend class PlacedChannel;

    // Ends it while the channel's lock is held.
    void cancelWaiting();

    const std::shared_ptr<PlacedChannel> m_channel;
    const Request m_request;
    const std::int64_t m_place;
    PlacedChannel::Waiting::iterator m_inList; // the list's end when it is in none
};

} // namespace corekit::detail
