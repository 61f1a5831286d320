#include "corekit/net/XSocket.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/net/XServiceQuery.h"
#include "corekit/platform/Errors.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(XSocket, CObject)

namespace {
HANDLE asHandle(SOCKET socket)
{
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(static_cast<int>(socket)));
}

// Of a transfer, the bytes that one call takes.
DWORD atOnce(unsigned long size) { return static_cast<DWORD>(std::min(size, 0x40000000ul)); }
} // namespace

XSocket::~XSocket()
{
    if (IsOpen()) Close();
}

XSocket::operator void*() const { return asHandle(m_hSocket); }

int XSocket::Create(int family, int type, int protocol, unsigned long flags, int noDelay)
{
    if (!XSocketApi::WSASocketA) {
        SetLastError(WSANOTINITIALISED);
        return 0;
    }
    if (IsOpen()) Close();
    m_hSocket = XSocketApi::WSASocketA(family, type, protocol, nullptr, 0, static_cast<DWORD>(flags));
    if (!IsOpen()) return 0;
    if (!noDelay || family != AF_INET) return 1;
    constexpr int noDelayOption = 1;
    const int on = 1;
    if (XSocketApi::setsockopt(m_hSocket, IPPROTO_TCP, noDelayOption, reinterpret_cast<const char*>(&on),
                               sizeof on) == 0)
        return 1;
    XSocketApi::closesocket(std::exchange(m_hSocket, INVALID_SOCKET));
    return 0;
}

int XSocket::Create(_CSADDR_INFO& info, unsigned long flags, int noDelay)
{
    const sockaddr* address =
        info.RemoteAddr.lpSockaddr ? info.RemoteAddr.lpSockaddr : info.LocalAddr.lpSockaddr;
    if (!address) {
        SetLastError(WSAEFAULT);
        return 0;
    }
    return Create(address->sa_family, info.iSocketType, info.iProtocol, flags, noDelay);
}

int XSocket::ConnectTo(const sockaddr* address, int length)
{
    if (m_connectTimeout != INFINITE)
        return sockets::ConnectWithin(m_hSocket, address, length, m_connectTimeout);
    return XSocketApi::WSAConnect(m_hSocket, address, length, nullptr, nullptr, nullptr, nullptr) == 0;
}

int XSocket::Connect(_SOCKET_ADDRESS& address)
{
    return ConnectTo(address.lpSockaddr, address.iSockaddrLength);
}
int XSocket::Connect(sockaddr* address) { return ConnectTo(address, sizeof *address); }

XSocket* XSocket::Accept()
{
    const SOCKET accepted = XSocketApi::accept(m_hSocket, nullptr, nullptr);
    return accepted == INVALID_SOCKET ? nullptr : new XSocket(accepted);
}

// The socket goes also when OnClose throws.
void XSocket::Close()
{
    struct Closing {
        SOCKET& socket;
        ~Closing() { XSocketApi::closesocket(std::exchange(socket, INVALID_SOCKET)); }
    };
    const Closing closing{m_hSocket};
    OnClose();
}

unsigned int XSocket::Detach() { return std::exchange(m_hSocket, INVALID_SOCKET); }
void* XSocket::DetachHandle() { return asHandle(Detach()); }

int XSocket::ConnectTCPStream(const char* host, int port, unsigned long flags, int noDelay)
{
    if (host && *host >= '0' && *host <= '9') {
        sockaddr_in address{};
        int length = sizeof address;
        CString text(host);
        if (!XSocketApi::WSAStringToAddressA ||
            XSocketApi::WSAStringToAddressA(text.GetBuffer(0), AF_INET, nullptr,
                                            reinterpret_cast<sockaddr*>(&address), &length) != 0)
            return 0;
        address.sin_port = XSocketApi::htons(static_cast<WORD>(port));
        return ConnectTCPStream(address, flags, noDelay);
    }
    AFPROTOCOLS protocol{AF_INET, IPPROTO_TCP};
    XServiceQuery query;
    WSAQUERYSETA* record = nullptr;
    if (!query.StartQuery(host, &SVCID_HOSTNAME, NS_ALL, nullptr, nullptr, &protocol, LUP_RETURN_ADDR))
        return 0;
    if (!query.GetNextRecord(record) || record->dwNumberOfCsAddrs == 0) return 0;
    return ConnectResolved(record->lpcsaBuffer[0], port, flags, noDelay);
}

// The addresses of the record lie in the query's buffer.
int XSocket::ConnectResolved(_CSADDR_INFO info, int port, unsigned long flags, int noDelay)
{
    info.iSocketType = SOCK_STREAM;
    info.iProtocol = IPPROTO_TCP;
    reinterpret_cast<sockaddr_in*>(info.RemoteAddr.lpSockaddr)->sin_port =
        XSocketApi::htons(static_cast<WORD>(port));
    if (!Create(info, flags, noDelay)) return 0;
    if (Connect(info.RemoteAddr)) return 1;
    const DWORD why = GetLastError();
    Close();
    SetLastError(why);
    return 0;
}

int XSocket::ConnectTCPStream(sockaddr_in address, unsigned long flags, int noDelay)
{
    if (!Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, flags, noDelay)) return 0;
    if (Connect(reinterpret_cast<sockaddr*>(&address))) return 1;
    const DWORD why = GetLastError();
    Close();
    SetLastError(why);
    return 0;
}

int XSocket::ConnectSPXStream(const char*, int, int, unsigned long)
{
    SetLastError(WSAEAFNOSUPPORT);
    return 0;
}

int XSocket::WriteSocket(const void* data, unsigned long size, int timeoutMs)
{
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        DWORD sent = 0;
        if (!sockets::SendWithin(m_hSocket, next, atOnce(size), &sent, static_cast<DWORD>(timeoutMs)))
            return 0;
        next += sent;
        size -= sent;
    }
    return 1;
}

int XSocket::ReadSocket(void* data, unsigned long size, DWORD& received, int timeoutMs)
{
    return sockets::ReceiveWithin(m_hSocket, data, atOnce(size), &received, static_cast<DWORD>(timeoutMs));
}

int XSocket::ReadSocket(void* data, unsigned long size, unsigned long& received, int timeoutMs)
{
    DWORD count = 0;
    const int result = ReadSocket(data, size, count, timeoutMs);
    received = count;
    return result;
}

unsigned short XSocket::WSAHtons(unsigned short value)
{
    WORD result = 0;
    XSocketApi::WSAHtons(m_hSocket, value, &result);
    return result;
}

void XSocket::WSAEventSelect(void* event, long events)
{
    if (XSocketApi::WSAEventSelect(m_hSocket, event, events) != 0)
        ThrowChainedException(GetLastErrorException(), message::socketEventSelectFailed);
}

void XSocket::WSAIoctl(unsigned long code, void* in, unsigned long inSize, void* out, unsigned long outSize,
                       DWORD* returned, OVERLAPPED* overlapped, LPWSAOVERLAPPED_COMPLETION_ROUTINE completion)
{
    if (XSocketApi::WSAIoctl(m_hSocket, static_cast<DWORD>(code), in, static_cast<DWORD>(inSize), out,
                             static_cast<DWORD>(outSize), returned, overlapped, completion) != 0)
        ThrowChainedException(GetLastErrorException(), message::socketIoctlFailed);
}

void XSocket::WSAIoctl(unsigned long code, void* in, unsigned long inSize, void* out, unsigned long outSize,
                       unsigned long* returned, OVERLAPPED* overlapped,
                       LPWSAOVERLAPPED_COMPLETION_ROUTINE completion)
{
    DWORD count = 0;
    WSAIoctl(code, in, inSize, out, outSize, returned ? &count : nullptr, overlapped, completion);
    if (returned) *returned = count;
}

int XSocket::WSAEnumNetworkEvents(void* event, _WSANETWORKEVENTS* events)
{
    return XSocketApi::WSAEnumNetworkEvents(m_hSocket, event, events);
}

CString XSocket::GetRemoteAddressAsString()
{
    sockaddr address{};
    int length = sizeof address;
    CString text;
    if (XSocketApi::getpeername(m_hSocket, &address, &length) != 0) {
        text.Format("(cannot get peer name, code %d)", XSocketApi::WSAGetLastError());
        return text;
    }
    char buffer[256] = "";
    DWORD size = sizeof buffer;
    XSocketApi::WSAAddressToStringA(&address, sizeof address, nullptr, buffer, &size);
    return buffer;
}

void XSocket::GetLocalAddress(sockaddr_in& address)
{
    int length = sizeof address;
    if (XSocketApi::getsockname(m_hSocket, reinterpret_cast<sockaddr*>(&address), &length) != 0)
        throw GetLastErrorException();
}
