#include "corekit/net/IOCPManager.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/SystemHelpers.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

IMPLEMENT_DYNAMIC(CIOCPManager, CObject)

static_assert(sizeof(CompletionRecord) == sizeof(OVERLAPPED) + 2 * sizeof(void*));

namespace {
constexpr ULONG_PTR stop = 0;
} // namespace

void CIOCPManager::Initialise(int threadCount, int concurrency)
{
    const HANDLE port = CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, stop,
                                               static_cast<DWORD>(std::max(concurrency, 0)));
    if (port == nullptr) ThrowChainedException(GetLastErrorException(), message::createPortFailed);
    if (const HANDLE before = m_port.exchange(port); before != nullptr) CloseHandle(before);
    for (int i = std::min(threadCount, maxThreads - m_threadCount); i > 0; --i) StartThread();
}

// The thread waits until its handle is copied: its object goes with it.
void CIOCPManager::StartThread()
{
    std::unique_ptr<CWinThread> thread(
        scBeginThread(&ThreadStartHelper, this, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED));
    const HANDLE handle = scDuplicateHandle(thread->m_hThread);
    if (thread->ResumeThread() == 0xFFFFFFFF) {
        CChainedException* const reason = GetLastErrorException();
        CloseHandle(handle);
        throw reason;
    }
    static_cast<void>(thread.release());
    m_threads[static_cast<std::size_t>(m_threadCount++)] = handle;
}

void CIOCPManager::Shutdown()
{
    if (m_port == nullptr) return;
    for (int i = 0; i < m_threadCount; ++i)
        PostQueuedCompletionStatus(m_port, 0, stop, reinterpret_cast<OVERLAPPED*>(this));
    const auto count = static_cast<DWORD>(std::exchange(m_threadCount, 0));
    if (count > 0) WaitForMultipleObjects(count, m_threads.data(), TRUE, INFINITE);
    std::for_each_n(m_threads.begin(), count, [](HANDLE thread) { CloseHandle(thread); });
    CloseHandle(m_port.exchange(nullptr));
}

void CIOCPManager::AssociateHandle(void* handle)
{
    // Without a port the handle would belong to a new one, which nobody serves, for good.
    if (const HANDLE port = m_port)
        CreateIoCompletionPort(handle, port, reinterpret_cast<ULONG_PTR>(handle), 0);
}

UINT CIOCPManager::ThreadStartHelper(void* manager)
{
    static_cast<CIOCPManager*>(manager)->WorkerThread();
    return 0;
}

void CIOCPManager::WorkerThread()
{
    for (;;) {
        DWORD moved;
        ULONG_PTR key;
        OVERLAPPED* overlapped;
        const BOOL succeeded = GetQueuedCompletionStatus(m_port, &moved, &key, &overlapped, INFINITE);
        auto* const record = static_cast<CompletionRecord*>(overlapped);
        if (succeeded && key == stop) return;
        if (succeeded)
            record->OnComplete(record, moved);
        else if (record != nullptr)
            record->OnError(record, GetLastError());
    }
}
