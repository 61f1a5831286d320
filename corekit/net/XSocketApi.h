// XSocketApi: the socket functions as this layer calls them, and the thread that accepts connections.
//
// A program calls InitSockets first. A server calls CreateAcceptThread before its first
// XListenSocket::BindAndListen and TerminateAcceptThread after the last listen socket has closed; the library
// calls neither.
#pragma once

#include "corekit/framework/Exception.h"
#include "corekit/platform/Libraries.h"
#include "corekit/platform/Sockets.h"

#include <atomic>
#include <cstddef>
#include <mutex>

class XListenSocket;

// All members are static and for any thread, but for InitSockets, ShutdownSockets, CreateAcceptThread and
// TerminateAcceptThread, which one controlling thread calls.
class COREKIT_API XSocketApi {
public:
    // Binds the functions and starts the use of sockets. Null when that has been done, now or before; else
    // the exception (message::socketLibraryMissing to message::socketFunctionMissing), which the caller
    // deletes.
    static CException* InitSockets();
    // Ends the use of sockets. The functions stay bound.
    static void ShutdownSockets();
    // Not 0 between InitSockets and ShutdownSockets.
    static int IsInitialised() { return m_bInitDone; }

    // One thread accepts for all listen sockets of the process. Throws message::acceptThreadFailed; does
    // nothing when the thread is there.
    static void CreateAcceptThread();
    // Waits for the thread to end, so it is not for OnAccept to call. Sockets that are still registered stay
    // so, and are served by the next thread.
    static void TerminateAcceptThread();

    // For XListenSocket: serves the socket from now on, or no longer; registering one again changes nothing.
    // At most 63 at a time. Throw message::socketRegisterFailed and message::socketRevokeFailed over the
    // reason, which is message::tooManyListenSockets for the 64th socket and message::socketNotRegistered for
    // one that is not served.
    static void RegisterListenSocket(XListenSocket* listener);
    static void RevokeListenSocket(XListenSocket* listener);

    // The functions, null until InitSockets; platform/Sockets.h describes each. Two are for this class alone.
#define SOCKET_CALL(access, scope, name)                                                                     \
    access:                                                                                                  \
    static decltype(scope::name)* name;
#include "corekit/platform/SocketCalls.inc"
#undef SOCKET_CALL

private:
    // A listen socket that is served.
    struct AcceptEntry {
        HANDLE event; // auto-reset, signalled when a connection waits
        XListenSocket* socket;
    };

    static constexpr std::size_t mostSockets = 63; // one wait of 64 is for the control event

    static FARPROC GetProc(HINSTANCE library, const char* name);
    static void BindFunctions(HINSTANCE library);
    static UINT AcceptThread(void*);
    static DWORD CopyEvents(HANDLE* events);
    // Accept connections; false when one waits that could not be taken, which is tried again soon.
    static bool ServeSignalled(HANDLE event);
    static bool ServeAll();
    static bool DoAccept(XListenSocket* listener);
    static AcceptEntry* FindEntry(const XListenSocket* listener);
    static void Select(XListenSocket* listener);
    static void Forget(XListenSocket* listener);

    static std::atomic<int> m_bInitDone;
    static AcceptEntry m_acceptTable[mostSockets]; // the first m_acceptCount; guarded by m_acceptCrit
    static std::size_t m_acceptCount;
    static std::recursive_mutex m_acceptCrit; // held during OnAccept
    static HANDLE m_hAcceptThread;
    static std::atomic<int> m_bTerminateAccept;
    static HANDLE m_hAcceptEvent; // auto-reset: the table has changed, or the thread is to end
};
