// Worker threads that share one completion port.
//
// The manager hands finished transfers to functions of the program; it knows nothing of handles and buffers.
// A transfer's OVERLAPPED is the head of a record that names the two functions:
//
//     struct Reading : CompletionRecord {
//         char bytes[4096];
//     };
//     Reading* reading = new Reading;
//     reading->OnComplete = [](CompletionRecord* record, DWORD moved) { delete record; };
//     reading->OnError = [](CompletionRecord* record, DWORD error) { ... };
//
//     CIOCPManager manager;
//     manager.Initialise(2, 0);
//     manager.AssociateHandle(file);
//     if (!ReadFile(file, reading->bytes, 4096, nullptr, reading) && GetLastError() != 997)
//         delete reading; // it never began
//
// From a call that began a transfer until one of its functions is called, the record and the buffer belong to
// the system. What corekit/platform/CompletionPort.h says of transfers holds here.
//
// The functions run on the worker threads, several at once, and must let no exception out. Initialise and
// Shutdown are for one controlling thread that is none of the workers; AssociateHandle is for any thread
// between the two.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/CompletionPort.h"

#include <array>
#include <atomic>

// The head of every record; the two functions lie directly behind the OVERLAPPED.
struct CompletionRecord : OVERLAPPED {
    void (*OnComplete)(CompletionRecord* record, DWORD bytesTransferred) = nullptr;
    void (*OnError)(CompletionRecord* record, DWORD errorCode) = nullptr;
};

class COREKIT_API CIOCPManager : public CObject {
    DECLARE_DYNAMIC(CIOCPManager)
public:
    static constexpr int maxThreads = 64;

    CIOCPManager() = default;
    // Does not stop anything: call Shutdown before.
    ~CIOCPManager() override = default;

    // Makes the port and starts so many threads, 64 at the most and none for 0 or less; `concurrency` of them
    // work at once (0: as many as there are processors). Throws message::createPortFailed when there is no
    // port to be had, and the system's reason when a thread cannot start; those that did run until Shutdown.
    // A second call replaces the port: the threads turn to the new one, handles of the old one report
    // nowhere.
    void Initialise(int threadCount, int concurrency);

    // Lets every thread end after what was queued before, waits for them and closes the port. Transfers that
    // are under way then are never told. Does nothing on a manager that is not initialised.
    void Shutdown();

    // Makes the handle's transfers arrive here, with its own value as their key; nothing happens where the
    // manager is not initialised, and a handle that belongs to another port stays there.
    void AssociateHandle(void* handle);

    // For PostQueuedCompletionStatus: a key other than 0 with a record calls its OnComplete, key 0 ends one
    // thread. Null when not initialised.
    void* GetPort() const { return m_port; }

private:
    static UINT ThreadStartHelper(void* manager);
    void StartThread();
    void WorkerThread();

    std::atomic<HANDLE> m_port = nullptr;
    int m_threadCount = 0;
    std::array<HANDLE, maxThreads> m_threads{};
};
