// Sockets, their network events, and names of hosts.
//
// A socket is known by a number of 32 bits, which is good as a HANDLE too. Addresses are those of the
// machine: `sockaddr_in` with the family AF_INET is laid out here as everywhere. IPv4 alone is spoken. Names
// that the machine has functions of stand in the namespace `sockets`, all others are global.
//
// Functions that return int give 0, those that return a socket give one, and SOCKET_ERROR or INVALID_SOCKET
// on failure; the reason is the thread's last error, in the numbers below. A peer that has gone raises no
// signal. Any thread may use any socket; closing one ends the calls that wait for it.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Overlapped.h"
#include "corekit/platform/Types.h"

#include <netinet/in.h>

// As functions they serve as well, and as macros they would reach into every class.
#undef htons
#undef ntohs
#undef htonl
#undef ntohl

using SOCKET = unsigned int;                         // good as a HANDLE, too
inline constexpr SOCKET INVALID_SOCKET = 0xFFFFFFFF; // a failure
inline constexpr int SOCKET_ERROR = -1;              // a failure of calls that return int

static_assert(sizeof(sockaddr) == 16 && sizeof(sockaddr_in) == 16 && AF_INET == 2 && SOCK_STREAM == 1);

// What a failed call leaves as last error; numbers of Errors.h come as well.
inline constexpr DWORD WSAEINTR = 10004;             // broken off
inline constexpr DWORD WSAEACCES = 10013;            // may not be used so
inline constexpr DWORD WSAEFAULT = 10014;            // memory missing or too small
inline constexpr DWORD WSAEINVAL = 10022;            // not in a state for this
inline constexpr DWORD WSAEMFILE = 10024;            // too many are open
inline constexpr DWORD WSAEWOULDBLOCK = 10035;       // nothing to do just now, on one that never waits
inline constexpr DWORD WSAEINPROGRESS = 10036;       // a connection is under way, on one that never waits
inline constexpr DWORD WSAENOTSOCK = 10038;          // no socket of that number
inline constexpr DWORD WSAENOPROTOOPT = 10042;       // no such option
inline constexpr DWORD WSAEOPNOTSUPP = 10045;        // not done here
inline constexpr DWORD WSAEAFNOSUPPORT = 10047;      // another family than AF_INET
inline constexpr DWORD WSAECONNRESET = 10054;        // the other side broke it off
inline constexpr DWORD WSAENOBUFS = 10055;           // no room
inline constexpr DWORD WSAENOTCONN = 10057;          // not connected
inline constexpr DWORD WSAECONNREFUSED = 10061;      // nobody listens there
inline constexpr DWORD WSAVERNOTSUPPORTED = 10092;   // a version below 1.0
inline constexpr DWORD WSANOTINITIALISED = 10093;    // never given: sockets need no start
inline constexpr DWORD WSASERVICE_NOT_FOUND = 10108; // names of a kind that is not looked up
inline constexpr DWORD WSA_E_NO_MORE = 10110;        // the end of a look-up
inline constexpr DWORD WSAHOST_NOT_FOUND = 11001;    // no host of that name

// --- network events: bits for WSAEventSelect, and where each has its error in WSANETWORKEVENTS

inline constexpr long FD_READ = 1, FD_WRITE = 2, FD_OOB = 4, FD_ACCEPT = 8, FD_CONNECT = 16, FD_CLOSE = 32;
// Index into iErrorCode.
inline constexpr int FD_READ_BIT = 0, FD_WRITE_BIT = 1, FD_OOB_BIT = 2, FD_ACCEPT_BIT = 3, FD_CONNECT_BIT = 4,
                     FD_CLOSE_BIT = 5, FD_MAX_EVENTS = 10;

struct _WSANETWORKEVENTS {
    LONG lNetworkEvents;           // FD_ bits
    int iErrorCode[FD_MAX_EVENTS]; // 0, or why the event happened
};
using WSANETWORKEVENTS = _WSANETWORKEVENTS;

inline constexpr DWORD FIONBIO_CODE = 0x8004667E;  // WSAIoctl: a DWORD, not 0 for a socket that never waits
inline constexpr DWORD FIONREAD_CODE = 0x4004667F; // WSAIoctl: gives a DWORD, the bytes that can be read
inline constexpr DWORD WSA_FLAG_OVERLAPPED = 1;    // accepted: every socket can

// --- names

struct _SOCKET_ADDRESS {
    sockaddr* lpSockaddr;
    int iSockaddrLength; // bytes
};
using SOCKET_ADDRESS = _SOCKET_ADDRESS;

// One address of a host, as WSALookupServiceNextA tells it.
struct _CSADDR_INFO {
    SOCKET_ADDRESS LocalAddr;
    SOCKET_ADDRESS RemoteAddr;
    int iSocketType;
    int iProtocol;
};
using CSADDR_INFO = _CSADDR_INFO;

// What the caller can speak.
struct _AFPROTOCOLS {
    int iAddressFamily;
    int iProtocol;
};
using AFPROTOCOLS = _AFPROTOCOLS;

// Query and answer of a look-up. Members without a word here are not used.
struct _WSAQuerySetA {
    DWORD dwSize;                  // of this record
    char* lpszServiceInstanceName; // the host's name
    GUID* lpServiceClassId;        // SVCID_HOSTNAME
    struct WSAVERSION* lpVersion;
    char* lpszComment;
    DWORD dwNameSpace; // NS_ALL or NS_DNS
    GUID* lpNSProviderId;
    char* lpszContext;
    DWORD dwNumberOfProtocols; // 0: any
    AFPROTOCOLS* lpafpProtocols;
    char* lpszQueryString;
    DWORD dwNumberOfCsAddrs;  // out: how many addresses
    CSADDR_INFO* lpcsaBuffer; // out: within the caller's buffer
    DWORD dwOutputFlags;
    struct BLOB* lpBlob;
};
using WSAQUERYSETA = _WSAQuerySetA;

inline constexpr DWORD LUP_RETURN_NAME = 0x10;  // fill the name in
inline constexpr DWORD LUP_RETURN_ADDR = 0x100; // fill the addresses in
inline constexpr DWORD NS_ALL = 0, NS_DNS = 12;
inline constexpr GUID SVCID_HOSTNAME = {0x0002A800, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// --- records that only some calls look at

struct WSADATA {
    WORD wVersion, wHighVersion; // in force; the highest that is had
};
struct WSAPROTOCOL_INFOA {
    int iAddressFamily, iSocketType, iProtocol;
    char szProtocol[256]; // its name
};
struct WSANAMESPACE_INFOA {
    DWORD dwNameSpace;
    BOOL fActive; // whether it answers
    char* lpszIdentifier;
};
struct WSABUF;
struct QOS;
struct WSASERVICECLASSINFOA;
using LPWSAOVERLAPPED_COMPLETION_ROUTINE = void (*)(DWORD error, DWORD moved, OVERLAPPED* overlapped,
                                                    DWORD flags);

namespace sockets {

// AF_INET, SOCK_STREAM or SOCK_DGRAM. For the caller to close.
COREKIT_API SOCKET socket(int family, int type, int protocol);
// Waits for a connection, unless the listener never waits.
COREKIT_API SOCKET accept(SOCKET listener, sockaddr* address, int* length); // both may be null
// An address that old connections still use is no hindrance.
COREKIT_API int bind(SOCKET socket, const sockaddr* address, int length);
COREKIT_API int listen(SOCKET socket, int backlog);
COREKIT_API int connect(SOCKET socket, const sockaddr* address, int length);
// Ends the calls of other threads that wait for it.
COREKIT_API int closesocket(SOCKET socket);
COREKIT_API int getpeername(SOCKET socket, sockaddr* address, int* length);
COREKIT_API int getsockname(SOCKET socket, sockaddr* address, int* length);
// The level 0xFFFF has the documented option numbers 4, 8, 0x20, 0x80, 0x1001, 0x1002, 0x1005 and 0x1006; any
// other level goes to the machine as it is.
COREKIT_API int setsockopt(SOCKET socket, int level, int option, const char* value, int length);
// Bytes moved; recv gives 0 when the peer has closed.
COREKIT_API int recv(SOCKET socket, char* buffer, int size, int flags);
COREKIT_API int send(SOCKET socket, const char* data, int size, int flags);
COREKIT_API WORD htons(WORD value);
COREKIT_API WORD ntohs(WORD value);
COREKIT_API DWORD inet_addr(const char* text); // 0xFFFFFFFF for text that is no address

// --- with a limit in milliseconds (INFINITE: none), whatever mode the socket is in; 1460 when it is over,
// and then nothing stays under way. A socket that is ready costs one call of the system.

// One chunk of at most size bytes; *received 0 says that the peer has closed.
COREKIT_API BOOL ReceiveWithin(SOCKET socket, void* buffer, DWORD size, DWORD* received, DWORD limit);
// One attempt: at least one byte of a size above 0 when it succeeds.
COREKIT_API BOOL SendWithin(SOCKET socket, const void* data, DWORD size, DWORD* sent, DWORD limit);
// Waits until the other side's system has taken all that was sent, or until there is something to read on
// `other`. The limit begins anew whenever it takes some; `most` is for all of it.
COREKIT_API BOOL AwaitTaken(SOCKET socket, SOCKET other, DWORD limit, DWORD most);
COREKIT_API BOOL ConnectWithin(SOCKET socket, const sockaddr* address, int length, DWORD limit);

} // namespace sockets

// Starts the use of sockets and ends one such use; the version is at least 1.0 and at most 2.2 is had.
// Answers the reason itself. Not needed here, and neither is the end.
COREKIT_API int WSAStartup(WORD version, WSADATA* data);
COREKIT_API int WSACleanup();
COREKIT_API int WSAGetLastError();

// The protocol record and the group are not used.
COREKIT_API SOCKET WSASocketA(int family, int type, int protocol, WSAPROTOCOL_INFOA* info, UINT group,
                              DWORD flags);
// Data for and from the other side and qualities of service are not carried: null.
COREKIT_API int WSAConnect(SOCKET socket, const sockaddr* address, int length, WSABUF* callerData,
                           WSABUF* calleeData, QOS* serviceQuality, QOS* groupQuality);
// FIONBIO_CODE and FIONREAD_CODE, at once.
COREKIT_API int WSAIoctl(SOCKET socket, DWORD code, void* in, DWORD inSize, void* out, DWORD outSize,
                         DWORD* returned, OVERLAPPED* overlapped,
                         LPWSAOVERLAPPED_COMPLETION_ROUTINE completion);
COREKIT_API int WSAHtons(SOCKET socket, WORD value, WORD* result);
COREKIT_API int WSAHtonl(SOCKET socket, DWORD value, DWORD* result);
COREKIT_API int WSANtohs(SOCKET socket, WORD value, WORD* result);
COREKIT_API int WSANtohl(SOCKET socket, DWORD value, DWORD* result);

// Sets the event when one of the events has happened, and makes the socket one that never waits; a null event
// or no bits end that. An event is reported again only after the call that answers it: accept for FD_ACCEPT,
// recv for FD_READ, a send that would have waited for FD_WRITE. The accepted socket selects nothing.
COREKIT_API int WSAEventSelect(SOCKET socket, HANDLE event, long events);
// What has happened since the last call; resets the event unless that is null.
COREKIT_API int WSAEnumNetworkEvents(SOCKET socket, HANDLE event, WSANETWORKEVENTS* events);
COREKIT_API HANDLE WSACreateEvent(); // manual-reset, not signalled
COREKIT_API BOOL WSACloseEvent(HANDLE event);
// As WaitForMultipleObjects; there are no alertable waits.
COREKIT_API DWORD WSAWaitForMultipleEvents(DWORD count, const HANDLE* events, BOOL all, DWORD milliseconds,
                                           BOOL alertable);

// "1.2.3.4" or, with a port, "1.2.3.4:80". *length counts the terminator.
COREKIT_API int WSAAddressToStringA(sockaddr* address, DWORD addressLength, WSAPROTOCOL_INFOA* info,
                                    char* text, DWORD* length);
COREKIT_API int WSAStringToAddressA(char* text, int family, WSAPROTOCOL_INFOA* info, sockaddr* address,
                                    int* length);

// Looks up the addresses of a host as the system does (its hosts file first, then the network): the class
// must be SVCID_HOSTNAME, protocols, if any, of AF_INET. One record comes back, with every address. Next
// gives 10110 after it, and 10014 with the size wanted when the buffer is too small.
COREKIT_API int WSALookupServiceBeginA(WSAQUERYSETA* query, DWORD flags, HANDLE* lookup);
COREKIT_API int WSALookupServiceNextA(HANDLE lookup, DWORD flags, DWORD* size, WSAQUERYSETA* record);
COREKIT_API int WSALookupServiceEnd(HANDLE lookup);

// What there is: TCP and UDP over IPv4, and one name space. The result is a count, or SOCKET_ERROR with 10055
// and the size wanted.
COREKIT_API int WSAEnumProtocolsA(int* protocols, WSAPROTOCOL_INFOA* buffer, DWORD* size);
COREKIT_API int WSAEnumNameSpaceProvidersA(DWORD* size, WSANAMESPACE_INFOA* buffer);
// The name space takes no registrations: 10045.
COREKIT_API int WSAInstallServiceClassA(WSASERVICECLASSINFOA* info);
COREKIT_API int WSARemoveServiceClass(GUID* classId);
COREKIT_API int WSASetServiceA(WSAQUERYSETA* record, int operation, DWORD flags);
