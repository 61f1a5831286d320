// Overlapped transfers of sockets, with and without a port.
#include "corekit/platform/CompletionPort.h"
#include "corekit/platform/Sockets.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace {

HANDLE asHandle(SOCKET socket) { return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(socket)); }

class PortSockets : public ::testing::Test {
protected:
    void SetUp() override
    {
        const SOCKET listener = sockets::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = sockets::inet_addr("127.0.0.1");
        auto* const any = reinterpret_cast<sockaddr*>(&address);
        int length = sizeof address;
        ASSERT_EQ(sockets::bind(listener, any, length), 0);
        ASSERT_EQ(sockets::listen(listener, 1), 0);
        ASSERT_EQ(sockets::getsockname(listener, any, &length), 0);
        m_peer = sockets::socket(AF_INET, SOCK_STREAM, 0);
        ASSERT_EQ(sockets::connect(m_peer, any, length), 0);
        m_socket = sockets::accept(listener, nullptr, nullptr);
        ASSERT_NE(m_socket, INVALID_SOCKET);
        sockets::closesocket(listener);
        m_port = CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 0);
    }
    void TearDown() override
    {
        sockets::closesocket(m_socket);
        sockets::closesocket(m_peer);
        CloseHandle(m_port);
    }

    void Associate() { ASSERT_EQ(CreateIoCompletionPort(asHandle(m_socket), m_port, 5, 0), m_port); }
    void Read(OVERLAPPED& overlapped, DWORD size)
    {
        EXPECT_FALSE(ReadFile(asHandle(m_socket), m_bytes, size, nullptr, &overlapped));
        EXPECT_EQ(GetLastError(), ERROR_IO_PENDING);
    }
    // "bytes", or "error number", or "nothing".
    std::string Take(const OVERLAPPED& expected, DWORD milliseconds = 20000)
    {
        DWORD moved;
        ULONG_PTR key;
        OVERLAPPED* overlapped;
        const BOOL succeeded = GetQueuedCompletionStatus(m_port, &moved, &key, &overlapped, milliseconds);
        if (overlapped == nullptr) return "nothing";
        EXPECT_EQ(overlapped, &expected);
        EXPECT_EQ(key, 5u);
        return succeeded ? std::to_string(moved) : "error " + std::to_string(GetLastError());
    }

    SOCKET m_socket = INVALID_SOCKET, m_peer = INVALID_SOCKET;
    HANDLE m_port = nullptr;
    char m_bytes[16] = {};
};

TEST_F(PortSockets, ReadIsDoneWithTheFirstBytesAndAtTheEnd)
{
    Associate();
    OVERLAPPED read;
    Read(read, 10);
    EXPECT_EQ(Take(read, 0), "nothing");
    sockets::send(m_peer, "abc", 3, 0);
    EXPECT_EQ(Take(read), "3");
    sockets::send(m_peer, "defg", 4, 0);
    Read(read, 2);
    EXPECT_EQ(Take(read), "2");
    Read(read, 10);
    EXPECT_EQ(Take(read), "2");
    EXPECT_EQ(std::string(m_bytes, 3), "fgc");
    Read(read, 10);
    sockets::closesocket(m_peer);
    EXPECT_EQ(Take(read), "0");
    Read(read, 10);
    EXPECT_EQ(Take(read), "0");
}

TEST_F(PortSockets, ReadOfNoBytesWaitsForSome)
{
    Associate();
    OVERLAPPED read;
    Read(read, 0);
    EXPECT_EQ(Take(read, 0), "nothing");
    sockets::send(m_peer, "x", 1, 0);
    EXPECT_EQ(Take(read), "0");
    Read(read, 0);
    EXPECT_EQ(Take(read), "0");
    Read(read, 10);
    EXPECT_EQ(Take(read), "1");
}

TEST_F(PortSockets, WriteIsDoneWhenAllIsOnItsWay)
{
    Associate();
    const std::vector<char> data(16 << 20, 'x');
    OVERLAPPED write;
    EXPECT_FALSE(
        WriteFile(asHandle(m_socket), data.data(), static_cast<DWORD>(data.size()), nullptr, &write));
    EXPECT_EQ(GetLastError(), ERROR_IO_PENDING);
    EXPECT_EQ(Take(write, 0), "nothing"); // more than the buffers between hold
    std::size_t got = 0;
    std::vector<char> buffer(1 << 16);
    while (got < data.size()) {
        const int part = sockets::recv(m_peer, buffer.data(), static_cast<int>(buffer.size()), 0);
        ASSERT_GT(part, 0);
        got += static_cast<std::size_t>(part);
    }
    EXPECT_EQ(Take(write), std::to_string(data.size()));
}

TEST_F(PortSockets, ResetAndClosingAreReported)
{
    Associate();
    OVERLAPPED read;
    Read(read, 10);
    const WORD atOnce[2] = {1, 0};
    sockets::setsockopt(m_peer, 0xFFFF, 0x0080, reinterpret_cast<const char*>(atOnce), sizeof atOnce);
    sockets::closesocket(m_peer);
    EXPECT_EQ(Take(read), "error 10054");
    OVERLAPPED write;
    EXPECT_FALSE(WriteFile(asHandle(m_socket), "x", 1, nullptr, &write));
    EXPECT_EQ(Take(write), "error 10054");
}

TEST_F(PortSockets, ClosingTheSocketEndsItsTransfers)
{
    Associate();
    OVERLAPPED read;
    Read(read, 10);
    sockets::closesocket(m_socket);
    EXPECT_EQ(Take(read), "error 995");
    EXPECT_EQ(sockets::recv(m_peer, m_bytes, 1, 0), 0); // and the connection
}

TEST_F(PortSockets, WithoutAPortTheEventIsSet)
{
    OVERLAPPED read;
    read.hEvent = CreateEventA(nullptr, TRUE, TRUE, nullptr);
    Read(read, 10);
    EXPECT_EQ(WaitForSingleObject(read.hEvent, 0), WAIT_TIMEOUT);
    sockets::send(m_peer, "abc", 3, 0);
    DWORD moved = 0;
    EXPECT_TRUE(GetOverlappedResult(asHandle(m_socket), &read, &moved, TRUE));
    EXPECT_EQ(moved, 3u);
    Read(read, 10);
    Associate(); // what began before is not reported there
    sockets::send(m_peer, "de", 2, 0);
    EXPECT_TRUE(GetOverlappedResult(asHandle(m_socket), &read, &moved, TRUE));
    EXPECT_EQ(Take(read, 0), "nothing");
    CloseHandle(read.hEvent);
    // Without an OVERLAPPED the call waits.
    std::thread later([&] { sockets::send(m_peer, "f", 1, 0); });
    EXPECT_TRUE(ReadFile(asHandle(m_socket), m_bytes, 10, &moved, nullptr));
    EXPECT_EQ(moved, 1u);
    later.join();
}

} // namespace
