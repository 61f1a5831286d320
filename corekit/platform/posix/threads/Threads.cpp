#include "corekit/platform/Threads.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/handles/Dispatcher.h"
#include "corekit/platform/posix/threads/ThreadId.h"

#include <algorithm>
#include <climits>
#include <new>
#include <pthread.h>
#include <unistd.h>

namespace corekit::detail {
namespace {

class Thread final : public Waitable {
public:
    static constexpr ObjectKind objectKind = ObjectKind::thread;
    Thread(LPTHREAD_START_ROUTINE routine, void* parameter, SIZE_T stackBytes)
        : Waitable(objectKind), m_routine(routine), m_parameter(parameter), m_stackBytes(stackBytes),
          m_id(nextThreadId())
    {
    }
    // Stands for the calling thread, which was not started here.
    explicit Thread(int priorityNow)
        : Waitable(objectKind), isStarted(true), priority(priorityNow), m_id(currentThreadId())
    {
    }

    bool isReadyFor(const Owner&) const override { return m_ended; }
    bool take(Owner&) override { return false; }

    DWORD id() const { return m_id; }
    // Starts the routine; the thread counts as a user of the slot that holds this object. Returns an errno.
    int start(HandleSlot& slot);
    // At the end of the calling thread.
    void end(DWORD code);

    std::atomic<bool> isStarted = false;
    std::atomic<int> priority = THREAD_PRIORITY_NORMAL;
    std::atomic<DWORD> exitCode = STILL_ACTIVE;

private:
    static void* run(void* slot);

    const LPTHREAD_START_ROUTINE m_routine = nullptr;
    void* const m_parameter = nullptr;
    const SIZE_T m_stackBytes = 0;
    const DWORD m_id;
    bool m_ended = false;
};

// The calling thread's object; null for a thread that was not started here.
thread_local Thread* currentThread = nullptr;
// The priority of a thread that was not started here.
thread_local int ownPriority = THREAD_PRIORITY_NORMAL;

int Thread::start(HandleSlot& slot)
{
    pthread_attr_t attributes;
    if (const int error = pthread_attr_init(&attributes)) return error;
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    if (m_stackBytes != 0) {
        const auto page = static_cast<SIZE_T>(::sysconf(_SC_PAGESIZE));
        const SIZE_T wanted = std::max(m_stackBytes, static_cast<SIZE_T>(PTHREAD_STACK_MIN));
        pthread_attr_setstacksize(&attributes, (wanted + page - 1) / page * page);
    }
    slot.addUser();
    pthread_t thread;
    const int error = pthread_create(&thread, &attributes, &Thread::run, &slot);
    pthread_attr_destroy(&attributes);
    if (error != 0) slot.leave();
    return error;
}

void* Thread::run(void* argument)
{
    auto& slot = *static_cast<HandleSlot*>(argument);
    currentThread = static_cast<Thread*>(slot.object);
    assignThreadId(currentThread->m_id);
    currentThread->end(currentThread->m_routine(currentThread->m_parameter));
    currentThread = nullptr;
    slot.leave();
    return nullptr;
}

void Thread::end(DWORD code)
{
    exitCode = code;
    const std::lock_guard lock(dispatcherLock);
    abandonOwned();
    m_ended = true;
    serveWaiters();
}

// Gives the calling thread an object, signalled when it ends; null when there is no room.
Thread* adoptThread()
{
    struct Adopted {
        HANDLE handle = nullptr;
        ~Adopted()
        {
            if (handle == nullptr) return;
            std::exchange(currentThread, nullptr)->end(0);
            CloseHandle(handle);
        }
    };
    static thread_local Adopted own;
    auto object = std::make_unique<Thread>(ownPriority);
    Thread* const thread = object.get();
    own.handle = openHandle(std::move(object));
    return own.handle != nullptr ? thread : nullptr;
}

// Looks at a thread's object by handle, or at the calling one's.
class ThreadUser {
public:
    explicit ThreadUser(HANDLE handle) : m_user(handle), m_thread(m_user ? &*m_user : nullptr)
    {
        m_isOwn = handle == GetCurrentThread();
        if (m_isOwn) m_thread = currentThread;
    }
    bool isForeignOwn() const { return m_isOwn && m_thread == nullptr; }
    Thread* get() const { return m_thread; }

private:
    HandleUser<Thread> m_user;
    Thread* m_thread;
    bool m_isOwn;
};

} // namespace

HANDLE openCurrentThread()
try {
    if (currentThread == nullptr) currentThread = adoptThread();
    return currentThread != nullptr ? openAnother(*currentThread) : nullptr;
} catch (const std::bad_alloc&) {
    return fail<HANDLE>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
}

} // namespace corekit::detail

using namespace corekit::detail;

HANDLE CreateThread(void*, SIZE_T stackBytes, LPTHREAD_START_ROUTINE routine, void* parameter, DWORD flags,
                    DWORD* id)
try {
    if (routine == nullptr || (flags & ~CREATE_SUSPENDED) != 0)
        return fail<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    auto object = std::make_unique<Thread>(routine, parameter, stackBytes);
    const DWORD number = object->id();
    const HANDLE handle = openHandle(std::move(object));
    if (handle == nullptr) return nullptr;
    if ((flags & CREATE_SUSPENDED) == 0 && ResumeThread(handle) == 0xFFFFFFFF) {
        const DWORD error = GetLastError();
        CloseHandle(handle);
        return fail<HANDLE>(error, nullptr);
    }
    if (id != nullptr) *id = number;
    return handle;
} catch (const std::bad_alloc&) {
    return fail<HANDLE>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
}

DWORD ResumeThread(HANDLE handle)
{
    const ThreadUser user(handle);
    if (user.isForeignOwn()) return 0;
    Thread* const thread = user.get();
    if (thread == nullptr) return fail<DWORD>(ERROR_INVALID_HANDLE, 0xFFFFFFFF);
    if (thread->isStarted.exchange(true)) return 0;
    if (const int error = thread->start(*slotOf(handle)); error != 0) {
        thread->isStarted = false;
        return fail<DWORD>(error == EAGAIN ? ERROR_NOT_ENOUGH_MEMORY : errorFromErrno(error), 0xFFFFFFFF);
    }
    return 1;
}

BOOL GetExitCodeThread(HANDLE handle, DWORD* exitCode)
{
    const ThreadUser user(handle);
    if (user.get() == nullptr && !user.isForeignOwn()) return fail(ERROR_INVALID_HANDLE, FALSE);
    *exitCode = user.get() != nullptr ? user.get()->exitCode.load() : STILL_ACTIVE;
    return TRUE;
}

BOOL SetThreadPriority(HANDLE handle, int priority)
{
    const ThreadUser user(handle);
    if (user.get() == nullptr && !user.isForeignOwn()) return fail(ERROR_INVALID_HANDLE, FALSE);
    if (user.get() != nullptr)
        user.get()->priority = priority;
    else
        ownPriority = priority;
    return TRUE;
}

int GetThreadPriority(HANDLE handle)
{
    const ThreadUser user(handle);
    if (user.get() != nullptr) return user.get()->priority;
    return user.isForeignOwn() ? ownPriority : fail(ERROR_INVALID_HANDLE, THREAD_PRIORITY_ERROR_RETURN);
}
