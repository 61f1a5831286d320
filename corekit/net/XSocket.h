// XSocket: one socket, with reads and writes that wait for a limited time.
//
// Call XSocketApi::InitSockets first. An object owns its socket and closes it at the end. It allows one read
// and one write at a time, on two threads if need be. Limits are in milliseconds, -1 for none; results are 1
// or 0, and after a 0 the thread's last error tells why (1460 when the time was over). A peer that has gone
// costs a 0 and raises no signal.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/net/XSocketApi.h"

class COREKIT_API XSocket : public CObject {
    DECLARE_DYNAMIC(XSocket)
public:
    XSocket() = default;
    explicit XSocket(unsigned int handle) : m_hSocket(handle) {} // takes it over
    ~XSocket() override;

    int IsOpen() const { return m_hSocket != INVALID_SOCKET; }
    operator unsigned int() const { return m_hSocket; } // INVALID_SOCKET when closed
    operator void*() const;                             // the socket as a HANDLE

    // A new socket in place of the one before, which is closed; flags as for WSASocketA, of which
    // WSA_FLAG_OVERLAPPED (1) is usual and changes nothing here. noDelay: TCP sends at once (TCP_NODELAY, RFC
    // 896). Family, type and protocol may come from an address record.
    int Create(int family, int type, int protocol, unsigned long flags, int noDelay);
    int Create(_CSADDR_INFO& info, unsigned long flags, int noDelay);
    // Connects the socket made by Create. 0 leaves it open for another attempt or for Close.
    int Connect(_SOCKET_ADDRESS& address);
    int Connect(sockaddr* address); // of 16 bytes
    // How long Connect and ConnectTCPStream wait for the other side; without this, as long as the system
    // does.
    void SetConnectTimeout(DWORD milliseconds) { m_connectTimeout = milliseconds; }
    // The next connection, which the caller deletes; null when there is none.
    XSocket* Accept();
    void Close(); // calls OnClose first

    // The socket goes to the caller, still open; OnClose is not called.
    unsigned int Detach();
    void* DetachHandle();

    // Makes a socket and connects it to a TCP port of a host: a name, or an address if it begins with a
    // digit. The first address of a name is tried and no other. 0 closes the socket again.
    int ConnectTCPStream(const char* host, int port, unsigned long flags, int noDelay);
    int ConnectTCPStream(sockaddr_in address, unsigned long flags, int noDelay);
    // There is no IPX here: always 0.
    int ConnectSPXStream(const char* name, int objectType, int protocol, unsigned long flags);

    // Sends all of the data. The limit holds for each attempt that moves some of it.
    int WriteSocket(const void* data, unsigned long size, int timeoutMs);
    // Reads what is there, at most size bytes. *received* of 0 says that the peer has closed; after a 0 it
    // says nothing.
    int ReadSocket(void* data, unsigned long size, DWORD& received, int timeoutMs);
    int ReadSocket(void* data, unsigned long size, unsigned long& received, int timeoutMs);

    unsigned short WSAHtons(unsigned short value);
    // Throw message::socketEventSelectFailed and message::socketIoctlFailed.
    void WSAEventSelect(void* event, long events);
    void WSAIoctl(unsigned long code, void* in, unsigned long inSize, void* out, unsigned long outSize,
                  DWORD* returned, OVERLAPPED* overlapped, LPWSAOVERLAPPED_COMPLETION_ROUTINE completion);
    void WSAIoctl(unsigned long code, void* in, unsigned long inSize, void* out, unsigned long outSize,
                  unsigned long* returned, OVERLAPPED* overlapped,
                  LPWSAOVERLAPPED_COMPLETION_ROUTINE completion);
    int WSAEnumNetworkEvents(void* event, _WSANETWORKEVENTS* events); // 0, or SOCKET_ERROR

    // "1.2.3.4:80"; when there is no other side, a text with the error number.
    CString GetRemoteAddressAsString();
    void GetLocalAddress(sockaddr_in& address); // throws the system's reason

protected:
    virtual void OnClose() {}

private:
    int ConnectTo(const sockaddr* address, int length);
    int ConnectResolved(_CSADDR_INFO info, int port, unsigned long flags, int noDelay);

    SOCKET m_hSocket = INVALID_SOCKET;
    DWORD m_connectTimeout = INFINITE;
};
