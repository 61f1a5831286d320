// XListenSocket: a server's socket, whose connections arrive on the accept thread.
//
//     class Server : public XListenSocket {
//         void OnAccept(XSocket* socket) override { hand(socket); }
//     };
//     XSocketApi::CreateAcceptThread();
//     Server server;
//     server.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, WSA_FLAG_OVERLAPPED, 0);
//     server.BindAndListen(address, backlog);
//
// A derived class whose OnAccept uses members of its own closes the socket in its own destructor: until then
// connections may arrive.
#pragma once

#include "corekit/net/XSocket.h"

class COREKIT_API XListenSocket : public XSocket {
    DECLARE_DYNAMIC(XListenSocket)
public:
    XListenSocket() = default;
    ~XListenSocket() override;

    // Binds to an address of 16 bytes (port 0: any free one, see GetLocalAddress), listens and has
    // connections accepted from now on. Throws message::socketBindFailed, message::socketListenFailed and
    // message::socketRegisterFailed.
    void BindAndListen(sockaddr* address, int backlog);

protected:
    void OnClose() override; // no connection arrives once it has returned

    // A new connection, which now belongs to this object. Called on the accept thread with its lock held: it
    // must be short, may register and close listen sockets, and must not wait for a thread that does.
    // A chained exception that it throws is deleted and says nothing.
    virtual void OnAccept(XSocket* socket) = 0;

private:
    friend class XSocketApi;

    int m_isRegistered = 0;
};
