#include "corekit/platform/CompletionPort.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/ports/CompletionQueue.h"
#include "corekit/platform/posix/ports/IoObject.h"

#include <new>

namespace {

using namespace corekit::detail;

class CompletionPort final : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::completionPort;

    explicit CompletionPort(DWORD concurrency)
        : Object(objectKind), queue(std::make_shared<CompletionQueue>(concurrency))
    {
    }
    ~CompletionPort() override { queue->close(); }

    const std::shared_ptr<CompletionQueue> queue;
};

using PortUser = HandleUser<CompletionPort>;

// The queue that a thread used last: finding it again writes to nothing that other threads look at. Waiting
// for it, a thread is no user of the handle, so that closing that ends the wait.
class LastQueue {
public:
    // Null for what is no open port.
    CompletionQueue* find(HANDLE port)
    {
        if (m_queue != nullptr && port == m_port && slotOf(port)->isOpen(port)) return m_queue.get();
        const PortUser user(port);
        m_port = port;
        m_queue = user ? user->queue : nullptr;
        return m_queue.get();
    }

private:
    HANDLE m_port = nullptr;
    std::shared_ptr<CompletionQueue> m_queue;
};

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
    static thread_local LastQueue last;
    CompletionQueue* const queue = last.find(port);
    if (queue == nullptr) return fail(ERROR_INVALID_HANDLE, FALSE);
    return queue->post({key, overlapped, moved}) ? TRUE : fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
}

BOOL GetQueuedCompletionStatus(HANDLE port, DWORD* moved, ULONG_PTR* key, OVERLAPPED** overlapped,
                               DWORD milliseconds)
try {
    if (moved == nullptr || key == nullptr || overlapped == nullptr)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    *overlapped = nullptr;
    static thread_local LastQueue last;
    CompletionQueue* const queue = last.find(port);
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
