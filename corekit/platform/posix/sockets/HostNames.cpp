// Addresses as text and in the order of the wire, and the lookup of host names.
#include "corekit/platform/Sockets.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/handles/HandleTable.h"
#include "corekit/platform/posix/sockets/Socket.h"

#include <arpa/inet.h>
#include <charconv>
#include <cstring>
#include <endian.h>
#include <netdb.h>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace {
using namespace corekit::detail;

constexpr std::size_t mostAddresses = 24; // a record of them fits the 2 KB that callers are used to offer

class NameLookup final : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::nameLookup;
    NameLookup(std::string host, std::vector<in_addr> addresses)
        : Object(objectKind), m_host(std::move(host)), m_addresses(std::move(addresses))
    {
    }
    // The size that the record takes.
    std::size_t recordSize() const
    {
        return sizeof(WSAQUERYSETA) + m_addresses.size() * sizeof(Address) + m_host.size() + 1;
    }
    void write(WSAQUERYSETA& record) const;

    std::mutex lock;
    bool isTold = false;
    bool returnsName = false;

private:
    struct Address {
        CSADDR_INFO info;
        sockaddr_in local, remote;
    };

    std::string m_host;
    std::vector<in_addr> m_addresses;
};

// What the record points to lies right behind it: the address infos, the addresses, the name.
void NameLookup::write(WSAQUERYSETA& record) const
{
    record = {};
    record.dwSize = sizeof record;
    record.dwNameSpace = NS_DNS;
    record.dwNumberOfCsAddrs = static_cast<DWORD>(m_addresses.size());
    record.lpcsaBuffer = reinterpret_cast<CSADDR_INFO*>(&record + 1);
    auto* address = reinterpret_cast<sockaddr_in*>(record.lpcsaBuffer + m_addresses.size());
    CSADDR_INFO* info = record.lpcsaBuffer;
    for (const in_addr& host : m_addresses) {
        sockaddr_in* const local = address++;
        sockaddr_in* const remote = address++;
        *local = {};
        local->sin_family = AF_INET;
        *remote = *local;
        remote->sin_addr = host;
        *info++ = {{reinterpret_cast<sockaddr*>(local), sizeof *local},
                   {reinterpret_cast<sockaddr*>(remote), sizeof *remote},
                   SOCK_STREAM,
                   IPPROTO_TCP};
    }
    if (!returnsName) return;
    record.lpszServiceInstanceName = reinterpret_cast<char*>(address);
    std::memcpy(record.lpszServiceInstanceName, m_host.c_str(), m_host.size() + 1);
}

// Empty with the last error set when there is none.
std::vector<in_addr> addressesOf(const char* host)
{
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    std::vector<in_addr> addresses;
    if (::getaddrinfo(host, nullptr, &hints, &found) != 0) return fail(WSAHOST_NOT_FOUND, addresses);
    for (const addrinfo* entry = found; entry && addresses.size() < mostAddresses; entry = entry->ai_next)
        addresses.push_back(reinterpret_cast<const sockaddr_in*>(entry->ai_addr)->sin_addr);
    ::freeaddrinfo(found);
    return addresses;
}

bool isForInternet(const WSAQUERYSETA& query)
{
    for (DWORD i = 0; i < query.dwNumberOfProtocols; ++i)
        if (query.lpafpProtocols[i].iAddressFamily == AF_INET) return true;
    return query.dwNumberOfProtocols == 0;
}

// Writes a 16-bit or 32-bit number in the order of the wire, or back, which is the same.
template <class Number>
int swapped(SOCKET socket, Number value, Number* result)
{
    if (!HandleUser<Socket>(handleOf(socket))) return fail(WSAENOTSOCK, SOCKET_ERROR);
    if (!result) return fail(WSAEFAULT, SOCKET_ERROR);
    if constexpr (sizeof value == 2)
        *result = htobe16(value);
    else
        *result = htobe32(value);
    return 0;
}
} // namespace

WORD sockets::htons(WORD value) { return htobe16(value); }
WORD sockets::ntohs(WORD value) { return be16toh(value); }
DWORD sockets::inet_addr(const char* text) { return text ? ::inet_addr(text) : INADDR_NONE; }
int WSAHtons(SOCKET socket, WORD value, WORD* result) { return swapped(socket, value, result); }
int WSANtohs(SOCKET socket, WORD value, WORD* result) { return swapped(socket, value, result); }
int WSAHtonl(SOCKET socket, DWORD value, DWORD* result) { return swapped(socket, value, result); }
int WSANtohl(SOCKET socket, DWORD value, DWORD* result) { return swapped(socket, value, result); }

int WSAAddressToStringA(sockaddr* address, DWORD addressLength, WSAPROTOCOL_INFOA*, char* text, DWORD* length)
{
    if (!address || !text || !length || addressLength < sizeof(sockaddr_in))
        return fail(WSAEFAULT, SOCKET_ERROR);
    if (address->sa_family != AF_INET) return fail(WSAEINVAL, SOCKET_ERROR);
    sockaddr_in internet;
    std::memcpy(&internet, address, sizeof internet);
    char host[INET_ADDRSTRLEN];
    std::string whole = ::inet_ntop(AF_INET, &internet.sin_addr, host, sizeof host);
    if (internet.sin_port != 0) whole += ':' + std::to_string(be16toh(internet.sin_port));
    const bool fits = whole.size() < *length;
    *length = static_cast<DWORD>(whole.size() + 1);
    if (!fits) return fail(WSAEFAULT, SOCKET_ERROR);
    std::memcpy(text, whole.c_str(), whole.size() + 1);
    return 0;
}

int WSAStringToAddressA(char* text, int family, WSAPROTOCOL_INFOA*, sockaddr* address, int* length)
{
    if (!text || !address || !length || *length < static_cast<int>(sizeof(sockaddr_in)))
        return fail(WSAEFAULT, SOCKET_ERROR);
    if (family != AF_INET) return fail(WSAEAFNOSUPPORT, SOCKET_ERROR);
    const std::string_view whole(text);
    const std::size_t colon = whole.find(':');
    WORD port = 0;
    if (colon != whole.npos) {
        const std::string_view digits = whole.substr(colon + 1);
        const auto [end, error] = std::from_chars(digits.begin(), digits.end(), port);
        if (error != std::errc() || end != digits.end()) return fail(WSAEINVAL, SOCKET_ERROR);
    }
    sockaddr_in internet{};
    internet.sin_family = AF_INET;
    internet.sin_port = htobe16(port);
    if (::inet_pton(AF_INET, std::string(whole.substr(0, colon)).c_str(), &internet.sin_addr) != 1)
        return fail(WSAEINVAL, SOCKET_ERROR);
    std::memcpy(address, &internet, sizeof internet);
    *length = sizeof internet;
    return 0;
}

int WSALookupServiceBeginA(WSAQUERYSETA* query, DWORD flags, HANDLE* lookup)
try {
    if (!query || !lookup || query->dwSize != sizeof *query || !query->lpszServiceInstanceName)
        return fail(WSAEFAULT, SOCKET_ERROR);
    const bool isKnown = query->lpServiceClassId && *query->lpServiceClassId == SVCID_HOSTNAME &&
                         (query->dwNameSpace == NS_ALL || query->dwNameSpace == NS_DNS);
    if (!isKnown || !isForInternet(*query)) return fail(WSASERVICE_NOT_FOUND, SOCKET_ERROR);
    auto addresses = addressesOf(query->lpszServiceInstanceName);
    if (addresses.empty()) return SOCKET_ERROR;
    auto object = std::make_unique<NameLookup>(query->lpszServiceInstanceName, std::move(addresses));
    object->returnsName = (flags & LUP_RETURN_NAME) != 0;
    *lookup = openHandle(std::move(object));
    return *lookup ? 0 : SOCKET_ERROR;
} catch (const std::bad_alloc&) {
    return fail(WSAENOBUFS, SOCKET_ERROR);
}

int WSALookupServiceNextA(HANDLE lookup, DWORD, DWORD* size, WSAQUERYSETA* record)
{
    const HandleUser<NameLookup> user(lookup);
    if (!user) return fail(ERROR_INVALID_HANDLE, SOCKET_ERROR);
    if (!size || !record) return fail(WSAEFAULT, SOCKET_ERROR);
    const std::lock_guard lock(user->lock);
    if (user->isTold) return fail(WSA_E_NO_MORE, SOCKET_ERROR);
    if (user->recordSize() > *size) {
        *size = static_cast<DWORD>(user->recordSize());
        return fail(WSAEFAULT, SOCKET_ERROR);
    }
    user->write(*record);
    user->isTold = true;
    return 0;
}

int WSALookupServiceEnd(HANDLE lookup)
{
    if (!HandleUser<NameLookup>(lookup)) return fail(ERROR_INVALID_HANDLE, SOCKET_ERROR);
    return CloseHandle(lookup) ? 0 : SOCKET_ERROR;
}

int WSAEnumProtocolsA(int* wanted, WSAPROTOCOL_INFOA* buffer, DWORD* size)
{
    static constexpr WSAPROTOCOL_INFOA protocols[] = {{AF_INET, SOCK_STREAM, IPPROTO_TCP, "TCP/IP"},
                                                      {AF_INET, SOCK_DGRAM, IPPROTO_UDP, "UDP/IP"}};
    if (!size) return fail(WSAEFAULT, SOCKET_ERROR);
    const auto isWanted = [wanted](int protocol) {
        if (!wanted) return true;
        for (const int* one = wanted; *one != 0; ++one)
            if (*one == protocol) return true;
        return false;
    };
    int count = 0;
    for (const auto& protocol : protocols) count += isWanted(protocol.iProtocol);
    const auto bytes = static_cast<DWORD>(static_cast<std::size_t>(count) * sizeof *buffer);
    if (!buffer || *size < bytes) {
        *size = bytes;
        return fail(WSAENOBUFS, SOCKET_ERROR);
    }
    for (const auto& protocol : protocols)
        if (isWanted(protocol.iProtocol)) *buffer++ = protocol;
    return count;
}

int WSAEnumNameSpaceProvidersA(DWORD* size, WSANAMESPACE_INFOA* buffer)
{
    static char name[] = "System resolver";
    if (!size) return fail(WSAEFAULT, SOCKET_ERROR);
    if (!buffer || *size < sizeof *buffer) {
        *size = sizeof *buffer;
        return fail(WSAENOBUFS, SOCKET_ERROR);
    }
    *buffer = {NS_DNS, TRUE, name};
    return 1;
}

int WSAInstallServiceClassA(WSASERVICECLASSINFOA*) { return fail(WSAEOPNOTSUPP, SOCKET_ERROR); }
int WSARemoveServiceClass(GUID*) { return fail(WSAEOPNOTSUPP, SOCKET_ERROR); }
int WSASetServiceA(WSAQUERYSETA*, int, DWORD) { return fail(WSAEOPNOTSUPP, SOCKET_ERROR); }
