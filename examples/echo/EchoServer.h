// Sends back what its clients send. Connections are accepted on the library's accept thread and served by a
// few workers that share a completion port.
#pragma once

#include "Connection.h"

#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>

class EchoServer : private XListenSocket {
public:
    ~EchoServer() override { Stop(); }

    // Listens on the loopback address; port 0 takes any that is free. The port. Throws the library's
    // exceptions.
    int Start(int port, int workers);
    // Ends every connection, then the threads.
    void Stop();

    int MostAtOnce() const { return m_mostAtOnce; }
    DWORDLONG BytesEchoed() const { return m_bytes; }

private:
    friend class Connection;

    void OnAccept(XSocket* socket) override;
    void Forget(Connection& connection); // deletes it
    bool IsStopping() const { return m_isStopping; }
    void CountBytes(DWORD count) { m_bytes += count; }

    CIOCPManager m_manager;
    std::atomic<bool> m_isStopping = false;
    std::atomic<DWORDLONG> m_bytes = 0;
    std::atomic<int> m_mostAtOnce = 0;
    std::mutex m_lock; // guards the connections
    std::condition_variable m_oneGone;
    std::map<Connection*, std::unique_ptr<Connection>> m_connections;
};
