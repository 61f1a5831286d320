#include "corekit/net/XSocketApi.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"

#include <bit>

#define COREKIT_SOCKET_FUNCTION(name) constinit decltype(XSocketApi::name) XSocketApi::name = nullptr;
COREKIT_SOCKET_FUNCTION(accept)
COREKIT_SOCKET_FUNCTION(bind)
COREKIT_SOCKET_FUNCTION(closesocket)
COREKIT_SOCKET_FUNCTION(connect)
COREKIT_SOCKET_FUNCTION(getpeername)
COREKIT_SOCKET_FUNCTION(getsockname)
COREKIT_SOCKET_FUNCTION(htons)
COREKIT_SOCKET_FUNCTION(inet_addr)
COREKIT_SOCKET_FUNCTION(listen)
COREKIT_SOCKET_FUNCTION(ntohs)
COREKIT_SOCKET_FUNCTION(recv)
COREKIT_SOCKET_FUNCTION(send)
COREKIT_SOCKET_FUNCTION(setsockopt)
COREKIT_SOCKET_FUNCTION(socket)
COREKIT_SOCKET_FUNCTION(WSACleanup)
COREKIT_SOCKET_FUNCTION(WSAConnect)
COREKIT_SOCKET_FUNCTION(WSAEventSelect)
COREKIT_SOCKET_FUNCTION(WSAGetLastError)
COREKIT_SOCKET_FUNCTION(WSAHtons)
COREKIT_SOCKET_FUNCTION(WSAHtonl)
COREKIT_SOCKET_FUNCTION(WSAIoctl)
COREKIT_SOCKET_FUNCTION(WSALookupServiceEnd)
COREKIT_SOCKET_FUNCTION(WSANtohs)
COREKIT_SOCKET_FUNCTION(WSANtohl)
COREKIT_SOCKET_FUNCTION(WSARemoveServiceClass)
COREKIT_SOCKET_FUNCTION(WSAStartup)
COREKIT_SOCKET_FUNCTION(WSAEnumNetworkEvents)
COREKIT_SOCKET_FUNCTION(WSAWaitForMultipleEvents)
COREKIT_SOCKET_FUNCTION(WSACreateEvent)
COREKIT_SOCKET_FUNCTION(WSACloseEvent)
COREKIT_SOCKET_FUNCTION(WSAAddressToStringA)
COREKIT_SOCKET_FUNCTION(WSAEnumNameSpaceProvidersA)
COREKIT_SOCKET_FUNCTION(WSAEnumProtocolsA)
COREKIT_SOCKET_FUNCTION(WSAInstallServiceClassA)
COREKIT_SOCKET_FUNCTION(WSALookupServiceBeginA)
COREKIT_SOCKET_FUNCTION(WSALookupServiceNextA)
COREKIT_SOCKET_FUNCTION(WSASetServiceA)
COREKIT_SOCKET_FUNCTION(WSASocketA)
COREKIT_SOCKET_FUNCTION(WSAStringToAddressA)
#undef COREKIT_SOCKET_FUNCTION

constinit std::atomic<int> XSocketApi::m_bInitDone = 0;

FARPROC XSocketApi::GetProc(HINSTANCE library, const char* name)
{
    const FARPROC function = GetProcAddress(library, name);
    if (!function) ThrowChainedException(GetLastErrorException(), message::socketFunctionMissing, name);
    return function;
}

void XSocketApi::BindFunctions(HINSTANCE library)
{
    const auto fetch = [library](auto& pointer, const char* name) {
        pointer = std::bit_cast<std::remove_reference_t<decltype(pointer)>>(GetProc(library, name));
    };
    fetch(accept, "accept");
    fetch(bind, "bind");
    fetch(closesocket, "closesocket");
    fetch(connect, "connect");
    fetch(getpeername, "getpeername");
    fetch(getsockname, "getsockname");
    fetch(htons, "htons");
    fetch(inet_addr, "inet_addr");
    fetch(listen, "listen");
    fetch(ntohs, "ntohs");
    fetch(recv, "recv");
    fetch(send, "send");
    fetch(setsockopt, "setsockopt");
    fetch(socket, "socket");
    fetch(WSACleanup, "WSACleanup");
    fetch(WSAConnect, "WSAConnect");
    fetch(WSAEventSelect, "WSAEventSelect");
    fetch(WSAGetLastError, "WSAGetLastError");
    fetch(WSAHtons, "WSAHtons");
    fetch(WSAHtonl, "WSAHtonl");
    fetch(WSAIoctl, "WSAIoctl");
    fetch(WSALookupServiceEnd, "WSALookupServiceEnd");
    fetch(WSANtohs, "WSANtohs");
    fetch(WSANtohl, "WSANtohl");
    fetch(WSARemoveServiceClass, "WSARemoveServiceClass");
    fetch(WSAStartup, "WSAStartup");
    fetch(WSAEnumNetworkEvents, "WSAEnumNetworkEvents");
    fetch(WSAWaitForMultipleEvents, "WSAWaitForMultipleEvents");
    fetch(WSACreateEvent, "WSACreateEvent");
    fetch(WSACloseEvent, "WSACloseEvent");
    fetch(WSAAddressToStringA, "WSAAddressToStringA");
    fetch(WSAEnumNameSpaceProvidersA, "WSAEnumNameSpaceProvidersA");
    fetch(WSAEnumProtocolsA, "WSAEnumProtocolsA");
    fetch(WSAInstallServiceClassA, "WSAInstallServiceClassA");
    fetch(WSALookupServiceBeginA, "WSALookupServiceBeginA");
    fetch(WSALookupServiceNextA, "WSALookupServiceNextA");
    fetch(WSASetServiceA, "WSASetServiceA");
    fetch(WSASocketA, "WSASocketA");
    fetch(WSAStringToAddressA, "WSAStringToAddressA");
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
