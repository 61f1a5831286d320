#include "corekit/net/XListenSocket.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"

#include <utility>

IMPLEMENT_DYNAMIC(XListenSocket, XSocket)

XListenSocket::~XListenSocket()
{
    if (!m_isRegistered) return;
    try {
        XSocketApi::RevokeListenSocket(this);
    } catch (CException* e) {
        e->Delete(); // a detached handle has nothing to take back from
    }
}

void XListenSocket::BindAndListen(sockaddr* address, int backlog)
{
    if (XSocketApi::bind(*this, address, sizeof *address) != 0)
        ThrowChainedException(GetLastErrorException(), message::socketBindFailed);
    if (XSocketApi::listen(*this, backlog) != 0)
        ThrowChainedException(GetLastErrorException(), message::socketListenFailed);
    XSocketApi::RegisterListenSocket(this);
    m_isRegistered = 1;
}

void XListenSocket::OnClose()
{
    if (std::exchange(m_isRegistered, 0)) XSocketApi::RevokeListenSocket(this);
    XSocket::OnClose();
}
