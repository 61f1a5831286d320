#include "corekit/net/XSocketApi.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"

#include <bit>

#define SOCKET_CALL(access, scope, name) constinit decltype(XSocketApi::name) XSocketApi::name = nullptr;
#include "corekit/platform/SocketCalls.inc"
#undef SOCKET_CALL

constinit std::atomic<int> XSocketApi::m_bInitDone = 0;

FARPROC XSocketApi::GetProc(HINSTANCE library, const char* name)
{
    const FARPROC function = GetProcAddress(library, name);
    if (!function) ThrowChainedException(GetLastErrorException(), message::socketFunctionMissing, name);
    return function;
}

void XSocketApi::BindFunctions(HINSTANCE library)
{
#define SOCKET_CALL(access, scope, name) name = std::bit_cast<decltype(name)>(GetProc(library, #name));
#include "corekit/platform/SocketCalls.inc"
#undef SOCKET_CALL
}

CException* XSocketApi::InitSockets()
try {
    static std::mutex once;
    const std::lock_guard lock(once);
    if (m_bInitDone) return nullptr;
    const HINSTANCE library = LoadLibraryA("WS2_32.DLL");
    if (!library) ThrowChainedException(GetLastErrorException(), message::socketLibraryMissing);
    BindFunctions(library);
    WSADATA data;
    if (const int error = WSAStartup(2, &data); error != 0)
        ThrowChainedException(GetLastErrorException(static_cast<DWORD>(error)), message::socketStartFailed);
    m_bInitDone = 1;
    return nullptr;
} catch (CException* e) {
    return e;
}

void XSocketApi::ShutdownSockets()
{
    if (m_bInitDone.exchange(0)) WSACleanup();
}
