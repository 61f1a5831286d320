// The socket functions by name, for those who bind them at run time.
#include "corekit/platform/posix/sockets/SocketFunctions.h"

#include "corekit/platform/Sockets.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace {
struct Row {
    std::string_view name;
    FARPROC function;
};

template <class Function>
FARPROC untyped(Function* function)
{
    return std::bit_cast<FARPROC>(function);
}

const Row functions[] = {
    {"WSAAddressToStringA", untyped(WSAAddressToStringA)},
    {"WSACleanup", untyped(WSACleanup)},
    {"WSACloseEvent", untyped(WSACloseEvent)},
    {"WSAConnect", untyped(WSAConnect)},
    {"WSACreateEvent", untyped(WSACreateEvent)},
    {"WSAEnumNameSpaceProvidersA", untyped(WSAEnumNameSpaceProvidersA)},
    {"WSAEnumNetworkEvents", untyped(WSAEnumNetworkEvents)},
    {"WSAEnumProtocolsA", untyped(WSAEnumProtocolsA)},
    {"WSAEventSelect", untyped(WSAEventSelect)},
    {"WSAGetLastError", untyped(WSAGetLastError)},
    {"WSAHtonl", untyped(WSAHtonl)},
    {"WSAHtons", untyped(WSAHtons)},
    {"WSAInstallServiceClassA", untyped(WSAInstallServiceClassA)},
    {"WSAIoctl", untyped(WSAIoctl)},
    {"WSALookupServiceBeginA", untyped(WSALookupServiceBeginA)},
    {"WSALookupServiceEnd", untyped(WSALookupServiceEnd)},
    {"WSALookupServiceNextA", untyped(WSALookupServiceNextA)},
    {"WSANtohl", untyped(WSANtohl)},
    {"WSANtohs", untyped(WSANtohs)},
    {"WSARemoveServiceClass", untyped(WSARemoveServiceClass)},
    {"WSASetServiceA", untyped(WSASetServiceA)},
    {"WSASocketA", untyped(WSASocketA)},
    {"WSAStartup", untyped(WSAStartup)},
    {"WSAStringToAddressA", untyped(WSAStringToAddressA)},
    {"WSAWaitForMultipleEvents", untyped(WSAWaitForMultipleEvents)},
    {"accept", untyped(sockets::accept)},
    {"bind", untyped(sockets::bind)},
    {"closesocket", untyped(sockets::closesocket)},
    {"connect", untyped(sockets::connect)},
    {"getpeername", untyped(sockets::getpeername)},
    {"getsockname", untyped(sockets::getsockname)},
    {"htons", untyped(sockets::htons)},
    {"inet_addr", untyped(sockets::inet_addr)},
    {"listen", untyped(sockets::listen)},
    {"ntohs", untyped(sockets::ntohs)},
    {"recv", untyped(sockets::recv)},
    {"send", untyped(sockets::send)},
    {"setsockopt", untyped(sockets::setsockopt)},
    {"socket", untyped(sockets::socket)},
};
} // namespace

FARPROC corekit::detail::socketFunction(std::string_view name)
{
    const auto* row = std::ranges::lower_bound(functions, name, {}, &Row::name);
    return row != std::end(functions) && row->name == name ? row->function : nullptr;
}
