// Carries out the overlapped transfers of one object and reports each once: in its OVERLAPPED, by its event,
// and at the completion port that the object belongs to, if there is one. A channel may outlive its object,
// which closes it first; from then on the descriptor is not touched.
#pragma once

#include "corekit/platform/Files.h"
#include "corekit/platform/posix/ports/CompletionQueue.h"
#include "corekit/platform/posix/ports/Transfers.h"

#include <memory>

namespace corekit::detail {

struct Request {
    Direction direction;
    Buffer buffer;
    OVERLAPPED* overlapped;
};

// The port that an object belongs to, and the key it has there.
struct PortBinding {
    std::shared_ptr<CompletionQueue> queue; // null for none
    UINT_PTR key = 0;
};

class IoChannel {
public:
    virtual ~IoChannel() = default;

    // Begins a transfer that will be reported. Otherwise the reason why it cannot begin.
    virtual DWORD start(const Request& request) = 0;
    // The calling thread waits for this transfer: it may be carried out on that thread. Returns when there is
    // nothing to do for it; the outcome may still have to be waited for.
    virtual void carryOut(const OVERLAPPED&) {}
    // Ends the transfers under way with error 995, or that with this OVERLAPPED; false if there is none.
    virtual bool cancel(const OVERLAPPED* which) = 0;
    // Cancels everything; when it returns, the descriptor is not in use any more.
    virtual void close() = 0;
    // Binds to a port from the next transfer on; false when bound already.
    virtual bool bind(PortBinding binding) = 0;
};

// Where in a file its transfer begins.
inline std::int64_t placeOf(const OVERLAPPED& overlapped)
{
    return static_cast<std::int64_t>(std::uint64_t{overlapped.OffsetHigh} << 32 | overlapped.Offset);
}
// Marks a transfer as under way and resets its event.
void markPending(OVERLAPPED& overlapped);
// Tells the outcome in the OVERLAPPED, which its owner may free from then on, and signals its event.
void settle(OVERLAPPED& overlapped, const Transfer& result);

} // namespace corekit::detail
