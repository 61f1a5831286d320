// The accept thread of XSocketApi.
#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/SystemHelpers.h"
#include "corekit/net/XListenSocket.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Waits.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <memory>
#include <span>

namespace {
constexpr DWORD retryMs = 50; // until a connection that could not be taken is asked for again
} // namespace

constinit XSocketApi::AcceptEntry XSocketApi::m_acceptTable[mostSockets] = {};
constinit std::size_t XSocketApi::m_acceptCount = 0;
constinit std::recursive_mutex XSocketApi::m_acceptCrit;
constinit HANDLE XSocketApi::m_hAcceptThread = nullptr;
constinit std::atomic<int> XSocketApi::m_bTerminateAccept = 0;
constinit HANDLE XSocketApi::m_hAcceptEvent = nullptr;

void XSocketApi::CreateAcceptThread()
try {
    if (m_hAcceptThread) return;
    if (!m_hAcceptEvent) {
        const HANDLE event = scCreateEvent(nullptr, 0, 0, nullptr);
        const std::lock_guard lock(m_acceptCrit);
        m_hAcceptEvent = event;
    }
    m_bTerminateAccept = 0;
    // The thread waits until its handle is copied: without that, nobody could end it.
    std::unique_ptr<CWinThread> thread(
        scBeginThread(&AcceptThread, nullptr, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED));
    const HANDLE handle = scDuplicateHandle(thread->m_hThread);
    if (thread->ResumeThread() == 0xFFFFFFFF) {
        CChainedException* const reason = GetLastErrorException();
        CloseHandle(handle);
        throw reason;
    }
    static_cast<void>(thread.release());
    m_hAcceptThread = handle;
} catch (CException* e) {
    ThrowChainedException(e, message::acceptThreadFailed);
}

void XSocketApi::TerminateAcceptThread()
{
    if (!m_hAcceptThread) return;
    m_bTerminateAccept = 1;
    SetEvent(m_hAcceptEvent);
    WaitForSingleObject(m_hAcceptThread, INFINITE);
    CloseHandle(m_hAcceptThread);
    m_hAcceptThread = nullptr;
    const std::lock_guard lock(m_acceptCrit);
    CloseHandle(m_hAcceptEvent);
    m_hAcceptEvent = nullptr;
}

UINT XSocketApi::AcceptThread(void*)
{
    bool isShort = false; // a connection waits that could not be taken
    for (;;) {
        HANDLE events[MAXIMUM_WAIT_OBJECTS];
        const DWORD count = CopyEvents(events);
        const DWORD result = WaitForMultipleObjects(count, events, FALSE, isShort ? retryMs : INFINITE);
        if (result == WAIT_OBJECT_0) {
            if (m_bTerminateAccept) return 0;
        } else if (result > WAIT_OBJECT_0 && result < WAIT_OBJECT_0 + count) {
            if (!ServeSignalled(events[result - WAIT_OBJECT_0])) isShort = true;
        } else if (result == WAIT_TIMEOUT) {
            isShort = !ServeAll();
        }
    }
}

DWORD XSocketApi::CopyEvents(HANDLE* events)
{
    const std::lock_guard lock(m_acceptCrit);
    DWORD count = 0;
    events[count++] = m_hAcceptEvent;
    for (const AcceptEntry& entry : std::span(m_acceptTable, m_acceptCount)) events[count++] = entry.event;
    return count;
}

// False when a connection waits that could not be taken.
bool XSocketApi::ServeSignalled(HANDLE event)
{
    const std::lock_guard lock(m_acceptCrit);
    // By handle: the table may have changed during the wait.
    const std::span table(m_acceptTable, m_acceptCount);
    const auto entry = std::ranges::find(table, event, &AcceptEntry::event);
    return entry == table.end() || DoAccept(entry->socket);
}

bool XSocketApi::ServeAll()
{
    const std::lock_guard lock(m_acceptCrit);
    XListenSocket* listening[mostSockets];
    const std::size_t count = m_acceptCount;
    for (std::size_t i = 0; i < count; ++i) listening[i] = m_acceptTable[i].socket;
    bool isDone = true;
    for (XListenSocket* listener : std::span(listening, count)) {
        // An OnAccept before this one may have closed it.
        if (FindEntry(listener) && !DoAccept(listener)) isDone = false;
    }
    return isDone;
}

XSocketApi::AcceptEntry* XSocketApi::FindEntry(const XListenSocket* listener)
{
    const std::span table(m_acceptTable, m_acceptCount);
    const auto entry = std::ranges::find(table, listener, &AcceptEntry::socket);
    return entry == table.end() ? nullptr : &*entry;
}

bool XSocketApi::DoAccept(XListenSocket* listener)
try {
    std::unique_ptr<XSocket> accepted(listener->Accept());
    if (!accepted) return GetLastError() == WSAEWOULDBLOCK;
    accepted->WSAEventSelect(nullptr, 0);
    DWORD never = 0, returned = 0;
    accepted->WSAIoctl(FIONBIO_CODE, &never, sizeof never, nullptr, 0, &returned, nullptr, nullptr);
    listener->OnAccept(accepted.release());
    return true;
} catch (CException* e) {
    e->Delete();
    return true;
}

void XSocketApi::RegisterListenSocket(XListenSocket* listener)
{
    const std::lock_guard lock(m_acceptCrit);
    try {
        Select(listener);
    } catch (CException* e) {
        ThrowChainedException(e, message::socketRegisterFailed);
    }
}

void XSocketApi::Select(XListenSocket* listener)
{
    if (const AcceptEntry* const entry = FindEntry(listener))
        return listener->WSAEventSelect(entry->event, FD_ACCEPT); // its socket may be another by now
    if (m_acceptCount == mostSockets) ThrowChainedException(nullptr, message::tooManyListenSockets);
    const HANDLE event = scCreateEvent(nullptr, 0, 0, nullptr);
    try {
        listener->WSAEventSelect(event, FD_ACCEPT);
    } catch (CException*) {
        CloseHandle(event);
        throw;
    }
    m_acceptTable[m_acceptCount++] = {event, listener};
    SetEvent(m_hAcceptEvent);
}

void XSocketApi::RevokeListenSocket(XListenSocket* listener)
{
    const std::lock_guard lock(m_acceptCrit);
    try {
        Forget(listener);
    } catch (CException* e) {
        ThrowChainedException(e, message::socketRevokeFailed);
    }
}

void XSocketApi::Forget(XListenSocket* listener)
{
    AcceptEntry* const entry = FindEntry(listener);
    if (!entry) ThrowChainedException(nullptr, message::socketNotRegistered);
    const std::unique_ptr<void, BOOL (*)(HANDLE)> event(entry->event, &CloseHandle);
    std::move(entry + 1, m_acceptTable + m_acceptCount, entry);
    --m_acceptCount;
    SetEvent(m_hAcceptEvent);
    listener->WSAEventSelect(nullptr, 0);
}
