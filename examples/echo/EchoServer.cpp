#include "EchoServer.h"

#include <algorithm>
#include <chrono>

int EchoServer::Start(int port, int workers)
{
    if (CException* failure = XSocketApi::InitSockets()) throw failure;
    m_isStopping = false;
    m_manager.Initialise(workers, workers);
    XSocketApi::CreateAcceptThread();
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = XSocketApi::htons(static_cast<WORD>(port));
    address.sin_addr.s_addr = XSocketApi::inet_addr("127.0.0.1");
    if (!Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, WSA_FLAG_OVERLAPPED, 0)) throw GetLastErrorException();
    BindAndListen(reinterpret_cast<sockaddr*>(&address), 1024);
    GetLocalAddress(address);
    return XSocketApi::ntohs(address.sin_port);
}

void EchoServer::Stop()
{
    if (!IsOpen()) return;
    Close(); // no connection arrives any more
    XSocketApi::TerminateAcceptThread();
    m_isStopping = true;
    {
        std::unique_lock lock(m_lock);
        // One that is between two transfers is met in the next round.
        while (!m_connections.empty()) {
            for (const auto& [key, connection] : m_connections) connection->Cancel();
            m_oneGone.wait_for(lock, std::chrono::milliseconds(10), [this] { return m_connections.empty(); });
        }
    }
    m_manager.Shutdown();
}

// On the accept thread.
void EchoServer::OnAccept(XSocket* accepted)
{
    std::unique_ptr<XSocket> socket(accepted);
    m_manager.AssociateHandle(*socket);
    auto connection = std::make_unique<Connection>(*this, std::move(socket));
    Connection& started = *connection;
    {
        const std::lock_guard lock(m_lock);
        m_connections.emplace(&started, std::move(connection));
        m_mostAtOnce = std::max<int>(m_mostAtOnce, static_cast<int>(m_connections.size()));
    }
    started.Start();
}

void EchoServer::Forget(Connection& connection)
{
    decltype(m_connections)::node_type gone; // goes without the lock
    const std::lock_guard lock(m_lock);
    gone = m_connections.extract(&connection);
    m_oneGone.notify_one();
}
