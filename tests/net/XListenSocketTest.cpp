#include "corekit/net/XListenSocket.h"

#include "corekit/foundation/ChainedException.h"
#include "tests/net/Loopback.h"
#include "tests/support/Thrown.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <sys/resource.h>
#include <vector>

namespace {

class Server : public XListenSocket {
public:
    Server() { EXPECT_TRUE(Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 0)); }
    ~Server() override
    {
        if (IsOpen()) Close();
    }

    void start()
    {
        sockaddr_in any = loopback::address();
        BindAndListen(reinterpret_cast<sockaddr*>(&any), 128);
    }
    int port()
    {
        sockaddr_in own;
        GetLocalAddress(own);
        return ntohs(own.sin_port);
    }
    bool awaitAccepted(int count)
    {
        std::unique_lock lock(m_lock);
        return m_more.wait_for(lock, std::chrono::seconds(10), [&] { return accepted >= count; });
    }

    int accepted = 0;
    std::function<void(XSocket&)> onAccept = [](XSocket&) {};

protected:
    void OnAccept(XSocket* socket) override
    {
        const std::unique_ptr<XSocket> owned(socket);
        onAccept(*owned);
        {
            const std::lock_guard lock(m_lock);
            ++accepted;
        }
        m_more.notify_one();
    }

private:
    std::mutex m_lock;
    std::condition_variable m_more;
};

class Listening : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(XSocketApi::InitSockets(), nullptr);
        XSocketApi::CreateAcceptThread();
    }
    void TearDown() override { XSocketApi::TerminateAcceptThread(); }

    static bool connects(int port)
    {
        XSocket client;
        return client.ConnectTCPStream("127.0.0.1", port, 1, 0);
    }
};

TEST_F(Listening, AcceptedSocketsWaitAgain)
{
    Server server;
    server.onAccept = [](XSocket& socket) {
        char buffer[5];
        DWORD received = 0;
        EXPECT_TRUE(socket.ReadSocket(buffer, sizeof buffer, received, 10000));
        EXPECT_TRUE(socket.WriteSocket(buffer, received, 10000));
    };
    server.start();
    XSocket client;
    ASSERT_TRUE(client.ConnectTCPStream("localhost", server.port(), 1, 1));
    ASSERT_TRUE(client.WriteSocket("hello", 5, 10000));
    char buffer[16];
    unsigned long received = 0;
    ASSERT_TRUE(client.ReadSocket(buffer, sizeof buffer, received, 10000));
    EXPECT_EQ(std::string(buffer, received), "hello");
}

TEST_F(Listening, ABurstIsAcceptedToTheLast)
{
    Server servers[3];
    std::vector<loopback::End> clients;
    for (Server& server : servers) server.start();
    for (int i = 0; i < 40; ++i)
        for (Server& server : servers) ASSERT_TRUE(connects(server.port()));
    for (Server& server : servers) EXPECT_TRUE(server.awaitAccepted(40));
}

TEST_F(Listening, TheSixtyFourthSocketIsRefused)
{
    std::vector<std::unique_ptr<Server>> servers;
    for (int i = 0; i < 63; ++i) servers.push_back(std::make_unique<Server>());
    for (auto& server : servers) server->start();
    Server last;
    EXPECT_EQ(
        Thrown([&] { last.start(); }),
        "[Socket] Unable to register socket for listen-accept handling.\n[Socket] Too many listen sockets "
        "have been registered - ::WaitForMultipleObjects() cannot cope.");
    servers.erase(servers.begin() + 20);
    Server another;
    another.start();
    for (auto& server : servers) ASSERT_TRUE(connects(server->port()));
    ASSERT_TRUE(connects(another.port()));
    for (auto& server : servers) EXPECT_TRUE(server->awaitAccepted(1));
    EXPECT_TRUE(another.awaitAccepted(1));
}

TEST_F(Listening, RevokingTwiceIsAFailure)
{
    Server server;
    server.start();
    XSocketApi::RegisterListenSocket(&server); // is registered already
    const int port = server.port();
    server.Close();
    EXPECT_FALSE(connects(port));
    EXPECT_EQ(
        Thrown([&] { XSocketApi::RevokeListenSocket(&server); }),
        "[Socket] Error attempting to revoke a socket's listen-accept handling.\n[Socket] Cannot revoke "
        "listen socket handler - it isn't registered.");
}

TEST_F(Listening, ADetachedHandleLeavesNoListenerBehind)
{
    {
        Server lost;
        lost.start();
        XSocket taker(lost.Detach());
    }
    {
        Server moved;
        moved.start();
        XSocket taker(moved.Detach());
        ASSERT_TRUE(moved.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 0));
        moved.start(); // takes the place of the one before
        ASSERT_TRUE(connects(moved.port()));
        EXPECT_TRUE(moved.awaitAccepted(1));
    }
    Server server;
    server.start();
    ASSERT_TRUE(connects(server.port()));
    EXPECT_TRUE(server.awaitAccepted(1));
    XSocket taker(server.Detach());
    EXPECT_EQ(Thrown([&] { XSocketApi::RevokeListenSocket(&server); }).substr(0, 77),
              "[Socket] Error attempting to revoke a socket's listen-accept handling.\n[Socke");
    EXPECT_EQ(Thrown([&] { XSocketApi::RevokeListenSocket(&server); }).substr(71),
              "[Socket] Cannot revoke listen socket handler - it isn't registered.");
}

TEST_F(Listening, ACloseThatThrowsClosesAllTheSame)
{
    Server server;
    server.start();
    XSocketApi::RevokeListenSocket(&server); // so that the server's own has nothing to take back
    EXPECT_NE(Thrown([&] { server.Close(); }), "nothing");
    EXPECT_FALSE(server.IsOpen());
    EXPECT_TRUE(server.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 0));
    server.start();
    EXPECT_TRUE(connects(server.port()));
}

TEST_F(Listening, AnAddressInUseIsReportedAndFreeAgainAtOnce)
{
    auto first = std::make_unique<Server>();
    first->start();
    sockaddr_in taken = loopback::address(first->port());
    Server second;
    EXPECT_EQ(Thrown([&] { second.BindAndListen(reinterpret_cast<sockaddr*>(&taken), 5); }).substr(0, 27),
              "[Socket] bind() call failed");
    XSocket client; // the server closes first: its end stays in the system for a while
    ASSERT_TRUE(client.ConnectTCPStream("127.0.0.1", first->port(), 1, 0));
    ASSERT_TRUE(first->awaitAccepted(1));
    first.reset();
    Server third;
    EXPECT_EQ(Thrown([&] { third.BindAndListen(reinterpret_cast<sockaddr*>(&taken), 5); }), "nothing");
}

TEST_F(Listening, OnAcceptMayCloseAndOpenListenSockets)
{
    Server first, second;
    first.onAccept = [&](XSocket&) {
        first.Close();
        second.start();
    };
    first.start();
    ASSERT_TRUE(connects(first.port()));
    ASSERT_TRUE(first.awaitAccepted(1));
    ASSERT_TRUE(connects(second.port()));
    EXPECT_TRUE(second.awaitAccepted(1));
}

TEST_F(Listening, AnExceptionInOnAcceptIsSwallowed)
{
    Server server;
    std::atomic<int> calls = 0;
    server.onAccept = [&](XSocket&) {
        if (++calls == 1) ThrowChainedException(nullptr, "thrown away");
    };
    server.start();
    ASSERT_TRUE(connects(server.port()));
    ASSERT_TRUE(connects(server.port()));
    EXPECT_TRUE(server.awaitAccepted(1));
    EXPECT_EQ(calls, 2);
}

#ifndef COREKIT_SANITIZED // whose checks need a descriptor of their own
TEST_F(Listening, ConnectionsThatFindNoDescriptorAreTakenLater)
{
    Server server;
    server.start();
    XSocket client;
    ASSERT_TRUE(client.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 0));
    sockaddr_in where = loopback::address(server.port());
    rlimit before;
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{static_cast<rlim_t>(::dup(0)), before.rlim_max}; // descriptors so far, and no more
    ::setrlimit(RLIMIT_NOFILE, &none);
    EXPECT_TRUE(client.Connect(reinterpret_cast<sockaddr*>(&where)));
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // for the accept that fails
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_TRUE(server.awaitAccepted(1));
    ::close(static_cast<int>(none.rlim_cur));
}
#endif

TEST_F(Listening, TheThreadEndsAndStartsAgainWithWhatIsRegistered)
{
    Server server;
    server.start();
    XSocketApi::CreateAcceptThread(); // is there already
    XSocketApi::TerminateAcceptThread();
    XSocketApi::TerminateAcceptThread();
    ASSERT_TRUE(connects(server.port()));
    XSocketApi::CreateAcceptThread();
    EXPECT_TRUE(server.awaitAccepted(1));
}

} // namespace
