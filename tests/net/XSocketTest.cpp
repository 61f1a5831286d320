#include "corekit/net/XSocket.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/net/XServiceQuery.h"
#include "corekit/platform/Errors.h"
#include "tests/net/Loopback.h"
#include "tests/support/CaseRows.h"

#include <chrono>
#include <csignal>
#include <string>
#include <sys/time.h>
#include <thread>

namespace {

class Sockets : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(XSocketApi::InitSockets(), nullptr); }
};

// A listener with more connections than its queue holds: what comes after gets no answer.
class SilentHost : public loopback::Listener {
public:
    SilentHost() : Listener(0)
    {
        for (XSocket& filler : m_fillers) {
            filler.SetConnectTimeout(20);
            filler.ConnectTCPStream("127.0.0.1", port(), 1, 0);
        }
    }

private:
    XSocket m_fillers[4];
};

// A client and the peer's end of its connection.
class Connected : public Sockets {
protected:
    void SetUp() override
    {
        Sockets::SetUp();
        ASSERT_TRUE(client.ConnectTCPStream("127.0.0.1", listener.port(), 1, 1));
        peer = listener.accept();
        ASSERT_TRUE(peer);
    }
    // Reads once: the bytes, or "failed N" with the last error.
    std::string read(int limit)
    {
        char buffer[16];
        DWORD received = 99;
        if (!client.ReadSocket(buffer, sizeof buffer, received, limit))
            return "failed " + std::to_string(GetLastError());
        return {buffer, received};
    }

    loopback::Listener listener;
    XSocket client;
    loopback::End peer;
};

TEST_F(Sockets, InitialisingAgainIsNoFailure)
{
    EXPECT_EQ(XSocketApi::InitSockets(), nullptr);
    EXPECT_TRUE(XSocketApi::IsInitialised());
    XSocketApi::ShutdownSockets();
    EXPECT_FALSE(XSocketApi::IsInitialised());
    EXPECT_EQ(XSocketApi::InitSockets(), nullptr);
    EXPECT_TRUE(XSocketApi::IsInitialised());
}

TEST_F(Sockets, HostsAreAddressesOrNames)
{
    const loopback::Listener listener;
    struct Case {
        const char* host;
        int result;
    };
    const std::string tooLong(300, 'x'); // no name server need be asked
    for (const auto& [host, result] :
         {Case{"127.0.0.1", 1}, Case{"localhost", 1}, Case{"127.0.0.1x", 0}, Case{"1host", 0},
          Case{"127.0.0", 0}, Case{"", 0}, Case{tooLong.c_str(), 0}, Case{nullptr, 0}}) {
        XSocket socket;
        EXPECT_EQ(socket.ConnectTCPStream(host, listener.port(), 1, 0), result) << (host ? host : "null");
        EXPECT_EQ(socket.IsOpen(), result);
    }
}

TEST_F(Sockets, WithoutAListenerNothingConnects)
{
    const loopback::DeafPort nobody;
    XSocket socket;
    EXPECT_FALSE(socket.ConnectTCPStream("127.0.0.1", nobody.port(), 1, 0));
    EXPECT_EQ(GetLastError(), WSAECONNREFUSED);
    EXPECT_FALSE(socket.IsOpen());
    EXPECT_FALSE(socket.ConnectSPXStream("server", 4, 1256, 1));
}

TEST_F(Sockets, ASilentHostCostsTheLimitOfConnect)
{
    const SilentHost silent;
    XSocket socket;
    socket.SetConnectTimeout(20);
    EXPECT_FALSE(socket.ConnectTCPStream("127.0.0.1", silent.port(), 1, 0));
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);
    EXPECT_FALSE(socket.IsOpen());
}

TEST_F(Sockets, AnAttemptToConnectThatFailedLeavesRoomForAnother)
{
    const loopback::DeafPort nobody;
    const SilentHost silent;
    const loopback::Listener listener;
    XSocket socket;
    ASSERT_TRUE(socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 0));
    socket.SetConnectTimeout(20);
    for (const auto& [port, error] : {std::pair(silent.port(), ERROR_TIMEOUT),
                                      {silent.port(), ERROR_TIMEOUT},
                                      {nobody.port(), WSAECONNREFUSED},
                                      {nobody.port(), WSAECONNREFUSED}}) {
        sockaddr_in where = loopback::address(port);
        EXPECT_FALSE(socket.Connect(reinterpret_cast<sockaddr*>(&where)));
        EXPECT_EQ(GetLastError(), error);
    }
    socket.SetConnectTimeout(10000);
    sockaddr_in where = loopback::address(listener.port());
    EXPECT_TRUE(socket.Connect(reinterpret_cast<sockaddr*>(&where)));
}

TEST_F(Connected, AReadTakesWhatIsThere)
{
    ASSERT_TRUE(peer.send("hello"));
    EXPECT_EQ(read(10000), "hello");
    ASSERT_TRUE(peer.send("0123456789abcdefgh"));
    EXPECT_EQ(read(-1), "0123456789abcdef");
    EXPECT_EQ(read(0), "gh");
}

TEST_F(Connected, AReadThatTimesOutLosesNothing)
{
    for (const int limit : {0, 20, 30}) EXPECT_EQ(read(limit), "failed 1460");
    ASSERT_TRUE(peer.send("late"));
    EXPECT_EQ(read(10000), "late");
}

TEST_F(Connected, SignalsDoNotProlongTheLimit)
{
    struct sigaction action {
    }, before{};
    action.sa_handler = [](int) {};
    ::sigaction(SIGALRM, &action, &before);
    const itimerval every{{0, 5000}, {0, 5000}}, never{};
    ::setitimer(ITIMER_REAL, &every, nullptr);
    const std::string result = read(60);
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before, nullptr);
    EXPECT_EQ(result, "failed 1460");
}

TEST_F(Connected, AClosedPeerIsAnEmptyReadAndAFailedWrite)
{
    ASSERT_TRUE(peer.send("bye"));
    peer.close();
    EXPECT_EQ(read(10000), "bye");
    EXPECT_EQ(read(10000), "");
    const std::string data(100000, 'x');
    int writes = 0;
    while (writes < 100 && client.WriteSocket(data.data(), data.size(), 10000)) ++writes;
    EXPECT_LT(writes, 100);
    EXPECT_EQ(GetLastError(), WSAECONNRESET);
}

TEST_F(Connected, AResetIsAFailure)
{
    peer.reset();
    EXPECT_EQ(read(10000), "failed 10054");
}

TEST_F(Connected, AWriteSendsAllAndAPeerThatDoesNotReadCostsTheLimit)
{
    EXPECT_TRUE(client.WriteSocket("", 0, 0));
    const std::string data(20 << 20, 'w');
    EXPECT_FALSE(client.WriteSocket(data.data(), data.size(), 30));
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);

    peer = loopback::End();
    client.Close();
    ASSERT_TRUE(client.ConnectTCPStream("127.0.0.1", listener.port(), 1, 0));
    peer = listener.accept();
    std::string got;
    std::thread reader([&] { got = peer.receive(data.size()); });
    EXPECT_TRUE(client.WriteSocket(data.data(), data.size(), 10000));
    reader.join();
    EXPECT_EQ(got, data);
}

TEST_F(Connected, OneThreadReadsWhileAnotherWrites)
{
    const std::string data(1 << 20, 'd');
    std::thread echo([&] { peer.send(peer.receive(data.size())); });
    std::thread writer([&] { EXPECT_TRUE(client.WriteSocket(data.data(), data.size(), 10000)); });
    std::string got;
    for (std::string part; got.size() < data.size(); got += part) {
        part = read(10000);
        ASSERT_NE(part.find('d'), part.npos) << part;
    }
    writer.join();
    echo.join();
    EXPECT_EQ(got, data);
}

TEST_F(Connected, ClosingEndsACallThatWaits)
{
    const SOCKET handle = client.Detach();
    std::thread reader([&] {
        char byte;
        DWORD received = 99;
        EXPECT_TRUE(sockets::ReceiveWithin(handle, &byte, 1, &received, INFINITE));
        EXPECT_EQ(received, 0u);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // either order ends the same way
    EXPECT_EQ(sockets::closesocket(handle), 0);
    reader.join();
    EXPECT_EQ(sockets::closesocket(handle), SOCKET_ERROR);
    EXPECT_EQ(GetLastError(), WSAENOTSOCK);
}

TEST_F(Connected, AddressesAreReadableAsText)
{
    EXPECT_STREQ(client.GetRemoteAddressAsString(), ("127.0.0.1:" + std::to_string(listener.port())).c_str());
    sockaddr_in own{};
    client.GetLocalAddress(own);
    EXPECT_EQ(own.sin_addr.s_addr, htonl(INADDR_LOOPBACK));
    EXPECT_NE(own.sin_port, 0);
    XSocket other;
    ASSERT_TRUE(other.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 1));
    EXPECT_STREQ(other.GetRemoteAddressAsString(), "(cannot get peer name, code 10057)");
    EXPECT_EQ(other.WSAHtons(0x1234), 0x3412);
}

TEST_F(Connected, ANewSocketClosesTheOneBefore)
{
    ASSERT_TRUE(client.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 1));
    EXPECT_TRUE(peer.isReady());
    EXPECT_EQ(peer.receive(1), "");
}

TEST_F(Connected, ASocketMovesToAnotherObject)
{
    XSocket other(client.Detach());
    EXPECT_FALSE(client.IsOpen());
    ASSERT_TRUE(other.WriteSocket("moved", 5, 1000));
    EXPECT_EQ(peer.receive(5), "moved");
    EXPECT_TRUE(CloseHandle(other.DetachHandle()));
    EXPECT_EQ(peer.receive(1), "");
}

TEST_F(Connected, NetworkEventsAreReportedOnceUntilAnswered)
{
    const HANDLE event = WSACreateEvent();
    client.WSAEventSelect(event, FD_READ | FD_CLOSE);
    WSANETWORKEVENTS happened;
    const auto next = [&](DWORD limit) {
        const DWORD result = WSAWaitForMultipleEvents(1, &event, FALSE, limit, FALSE);
        EXPECT_EQ(client.WSAEnumNetworkEvents(event, &happened), 0);
        return result == WAIT_OBJECT_0 ? happened.lNetworkEvents : 0;
    };
    EXPECT_EQ(next(0), 0);
    ASSERT_TRUE(peer.send("ab"));
    EXPECT_EQ(next(10000), FD_READ);
    ASSERT_TRUE(peer.send("cd"));
    EXPECT_EQ(next(20), 0);
    char byte;
    EXPECT_EQ(XSocketApi::recv(client, &byte, 1, 0), 1);
    EXPECT_EQ(next(10000), FD_READ);
    EXPECT_EQ(read(0).size(), 3u);
    peer.close();
    EXPECT_EQ(next(10000), FD_CLOSE);
    EXPECT_EQ(XSocketApi::recv(client, &byte, 1, 0), 0);
    EXPECT_EQ(next(0), 0);
    client.WSAEventSelect(nullptr, 0);
    WSACloseEvent(event);
}

TEST_F(Sockets, AConnectionUnderWayIsAnEvent)
{
    const loopback::Listener listener;
    const loopback::DeafPort nobody;
    for (const bool isThere : {true, false}) {
        XSocket socket;
        ASSERT_TRUE(socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, 1, 0));
        const HANDLE event = WSACreateEvent();
        socket.WSAEventSelect(event, FD_CONNECT | FD_CLOSE);
        sockaddr_in where = loopback::address(isThere ? listener.port() : nobody.port());
        WSANETWORKEVENTS happened{};
        EXPECT_FALSE(socket.Connect(reinterpret_cast<sockaddr*>(&where)));
        EXPECT_EQ(GetLastError(), WSAEWOULDBLOCK);
        EXPECT_EQ(WaitForSingleObject(event, 10000), WAIT_OBJECT_0);
        socket.WSAEnumNetworkEvents(event, &happened);
        EXPECT_EQ(happened.lNetworkEvents, FD_CONNECT);
        EXPECT_EQ(happened.iErrorCode[FD_CONNECT_BIT], isThere ? 0 : static_cast<int>(WSAECONNREFUSED));
        socket.Close();
        WSACloseEvent(event);
    }
}

TEST_F(Sockets, HostsAreLookedUpByClass)
{
    AFPROTOCOLS tcp{AF_INET, IPPROTO_TCP}, ipx{6, 1256};
    XServiceQuery query;
    WSAQUERYSETA* record = nullptr;
    ASSERT_TRUE(query.StartQuery("localhost", &SVCID_HOSTNAME, NS_ALL, nullptr, nullptr, &tcp,
                                 LUP_RETURN_ADDR | LUP_RETURN_NAME));
    ASSERT_TRUE(query.GetNextRecord(record));
    EXPECT_STREQ(record->lpszServiceInstanceName, "localhost");
    ASSERT_GE(record->dwNumberOfCsAddrs, 1u);
    const auto* host = reinterpret_cast<sockaddr_in*>(record->lpcsaBuffer[0].RemoteAddr.lpSockaddr);
    EXPECT_EQ(host->sin_addr.s_addr, htonl(INADDR_LOOPBACK));
    EXPECT_EQ(record->lpcsaBuffer[0].iProtocol, IPPROTO_TCP);
    EXPECT_FALSE(query.GetNextRecord(record));
    query.EndQuery();
    EXPECT_FALSE(query.GetNextRecord(record));

    const GUID other{0x000B0004, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    EXPECT_FALSE(query.StartQuery("localhost", &other, NS_ALL, nullptr, nullptr, &tcp, LUP_RETURN_ADDR));
    EXPECT_FALSE(
        query.StartQuery("localhost", &SVCID_HOSTNAME, NS_ALL, nullptr, nullptr, &ipx, LUP_RETURN_ADDR));
}

TEST_F(Sockets, TextsThatAreNoAddressAreRefused)
{
    const auto parsed = [](std::string text, sockaddr_in& address) {
        int length = sizeof address;
        return XSocketApi::WSAStringToAddressA(text.data(), AF_INET, nullptr,
                                               reinterpret_cast<sockaddr*>(&address), &length);
    };
    sockaddr_in address;
    EXPECT_EQ(parsed("", address), SOCKET_ERROR);
    for (CaseRow row : CaseRows(TEST_DATA "/addresses.tsv"))
        EXPECT_EQ(parsed(row.Word(), address), SOCKET_ERROR) << row.Line();
    char text[32] = "10.20.30.40:8080";
    ASSERT_EQ(parsed(text, address), 0);
    DWORD size = 10;
    EXPECT_EQ(
        XSocketApi::WSAAddressToStringA(reinterpret_cast<sockaddr*>(&address), 16, nullptr, text, &size),
        SOCKET_ERROR);
    EXPECT_EQ(size, 17u);
    EXPECT_EQ(
        XSocketApi::WSAAddressToStringA(reinterpret_cast<sockaddr*>(&address), 16, nullptr, text, &size), 0);
    EXPECT_STREQ(text, "10.20.30.40:8080");
}

} // namespace
