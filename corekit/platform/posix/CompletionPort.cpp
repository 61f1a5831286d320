#include "corekit/platform/CompletionPort.h"

#include "corekit/platform/posix/CompletionQueue.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/IoObject.h"

#include <new>

namespace {

using namespace corekit::detail;

class CompletionPort final : public Object {
public:
    static constexpr ObjectKind kKind = ObjectKind::completionPort;

    explicit CompletionPort(DWORD concurrency)
        : Object(kKind), queue(std::make_shared<CompletionQueue>(concurrency))
    {
    }
    ~CompletionPort() override { queue->close(); }

    const std::shared_ptr<CompletionQueue> queue;
};

using PortUser = HandleUser<CompletionPort>;

HANDLE openPort(DWORD concurrency) { return openHandle(std::make_unique<CompletionPort>(concurrency)); }

} // namespace

HANDLE CreateIoCompletionPort(HANDLE file, HANDLE port, ULONG_PTR key, DWORD concurrency)
try {
    if (file == INVALID_HANDLE_VALUE)
        return port == nullptr ? openPort(concurrency) : fail<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    const HandleUser<IoObject> object(file);
    if (!object) return fail<HANDLE>(ERROR_INVALID_HANDLE, nullptr);
    const HANDLE target = port != nullptr ? port : openPort(concurrency);
    const PortUser user(target);
    if (!user) return fail<HANDLE>(ERROR_INVALID_HANDLE, nullptr);
    if (object->bind({user->queue, key})) return target;
    if (port == nullptr) CloseHandle(target);
    return fail<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
} catch (const std::bad_alloc&) {
    return fail<HANDLE>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
}

BOOL PostQueuedCompletionStatus(HANDLE port, DWORD moved, ULONG_PTR key, OVERLAPPED* overlapped)
{
    const PortUser user(port);
    if (!user) return fail(ERROR_INVALID_HANDLE, FALSE);
    return user->queue->post({key, overlapped, moved}) ? TRUE : fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
}

BOOL GetQueuedCompletionStatus(HANDLE port, DWORD* moved, ULONG_PTR* key, OVERLAPPED** overlapped,
                               DWORD milliseconds)
try {
    if (moved == nullptr || key == nullptr || overlapped == nullptr)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    *overlapped = nullptr;
    // Not a user while it waits: closing the handle must end the wait.
    std::shared_ptr<CompletionQueue> queue;
    if (const PortUser user(port); user) queue = user->queue;
    if (queue == nullptr) return fail(ERROR_INVALID_HANDLE, FALSE);
    Completion completion;
    switch (queue->take(completion, milliseconds)) {
    case CompletionQueue::Taken::nothing:
        return fail(WAIT_TIMEOUT, FALSE);
    case CompletionQueue::Taken::closed:
        return fail(ERROR_ABANDONED_WAIT_0, FALSE);
    case CompletionQueue::Taken::completion:
        break;
    }
    *moved = completion.moved;
    *key = completion.key;
    *overlapped = completion.overlapped;
    return completion.error == NO_ERROR ? TRUE : fail(completion.error, FALSE);
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
}

BOOL CancelIoEx(HANDLE file, OVERLAPPED* overlapped)
{
    const HandleUser<IoObject> object(file);
    if (!object) return fail(ERROR_INVALID_HANDLE, FALSE);
    IoChannel* const channel = object->channel();
    return channel != nullptr && channel->cancel(overlapped) ? TRUE : fail(ERROR_NOT_FOUND, FALSE);
}
