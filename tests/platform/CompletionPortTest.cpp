#include "corekit/platform/CompletionPort.h"
#include "corekit/platform/Threads.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace {

constexpr DWORD pending = ERROR_IO_PENDING;
constexpr DWORD veryLong = 20000; // milliseconds that never pass when all is well

// What one call took from a port.
struct Taken {
    bool succeeded = false;
    DWORD error = 0;
    DWORD moved = 0;
    ULONG_PTR key = 0;
    OVERLAPPED* overlapped = nullptr;
};

class Port {
public:
    explicit Port(DWORD concurrency = 0)
        : m_port(CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, concurrency))
    {
        EXPECT_NE(m_port, nullptr);
    }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    ~Port() { Close(); }
    operator HANDLE() const { return m_port; }

    void Close()
    {
        if (m_port != nullptr) CloseHandle(m_port);
        m_port = nullptr;
    }
    Taken Take(DWORD milliseconds = veryLong) const
    {
        Taken taken;
        taken.succeeded =
            GetQueuedCompletionStatus(m_port, &taken.moved, &taken.key, &taken.overlapped, milliseconds) != 0;
        if (!taken.succeeded) taken.error = GetLastError();
        return taken;
    }
    bool Post(DWORD moved, ULONG_PTR key, OVERLAPPED* overlapped = nullptr) const
    {
        return PostQueuedCompletionStatus(m_port, moved, key, overlapped) != 0;
    }

private:
    HANDLE m_port;
};

TEST(CompletionPort, PassesPostedValuesOnInOrder)
{
    const Port port;
    OVERLAPPED any;
    for (DWORD i = 0; i < 1000; ++i) ASSERT_TRUE(port.Post(i, i * 3, i % 2 ? &any : nullptr));
    for (DWORD i = 0; i < 1000; ++i) {
        const Taken taken = port.Take(0);
        ASSERT_TRUE(taken.succeeded);
        ASSERT_EQ(taken.moved, i);
        ASSERT_EQ(taken.key, i * 3);
        ASSERT_EQ(taken.overlapped, i % 2 ? &any : nullptr);
    }
    EXPECT_EQ(port.Take(0).error, WAIT_TIMEOUT);
    EXPECT_EQ(port.Take(5).error, WAIT_TIMEOUT);
}

TEST(CompletionPort, EveryPostIsTakenByOneThread)
{
    constexpr int eachCount = 20000, producerCount = 3, takers = 4;
    const Port port(takers);
    std::vector<std::atomic<int>> seen(eachCount * producerCount);
    std::vector<std::thread> threads;
    for (int i = 0; i < takers; ++i)
        threads.emplace_back([&] {
            for (Taken taken = port.Take(); taken.key != 0; taken = port.Take()) ++seen[taken.moved];
        });
    std::vector<std::thread> producers;
    for (DWORD p = 0; p < producerCount; ++p)
        producers.emplace_back([&, p] {
            for (DWORD i = 0; i < eachCount; ++i) port.Post(p * eachCount + i, 1);
        });
    for (std::thread& producer : producers) producer.join();
    for (int i = 0; i < takers; ++i) port.Post(0, 0);
    for (std::thread& thread : threads) thread.join();
    EXPECT_TRUE(std::ranges::all_of(seen, [](const std::atomic<int>& n) { return n == 1; }));
}

TEST(CompletionPort, ClosingEndsEveryWait)
{
    Port port;
    std::vector<std::thread> waiters;
    std::atomic<int> started = 0;
    const HANDLE handle = port;
    for (int i = 0; i < 8; ++i)
        waiters.emplace_back([&, handle] {
            DWORD moved;
            ULONG_PTR key;
            OVERLAPPED* overlapped = reinterpret_cast<OVERLAPPED*>(8);
            ++started;
            EXPECT_FALSE(GetQueuedCompletionStatus(handle, &moved, &key, &overlapped, INFINITE));
            EXPECT_TRUE(GetLastError() == ERROR_ABANDONED_WAIT_0 || GetLastError() == ERROR_INVALID_HANDLE);
            EXPECT_EQ(overlapped, nullptr);
        });
    while (started < 8) Sleep(1);
    port.Close();
    for (std::thread& waiter : waiters) waiter.join();
}

TEST(CompletionPort, RefusesWhatMakesNoSense)
{
    const TempFolder folder;
    const Port port;
    const HANDLE event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    const HANDLE file = CreateFileA((folder / "f").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_FLAG_OVERLAPPED, nullptr);
    const auto error = [](HANDLE of, HANDLE to) {
        EXPECT_EQ(CreateIoCompletionPort(of, to, 1, 0), nullptr);
        return GetLastError();
    };
    EXPECT_EQ(error(INVALID_HANDLE_VALUE, port), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(error(event, port), ERROR_INVALID_HANDLE);
    EXPECT_EQ(error(file, event), ERROR_INVALID_HANDLE);
    EXPECT_EQ(CreateIoCompletionPort(file, port, 1, 0), static_cast<HANDLE>(port));
    EXPECT_EQ(error(file, port), ERROR_INVALID_PARAMETER); // for good
    EXPECT_FALSE(PostQueuedCompletionStatus(file, 0, 1, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(CancelIoEx(file, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_NOT_FOUND);
    char byte;
    DWORD moved;
    OVERLAPPED beyond;
    beyond.OffsetHigh = 0x80000000;
    EXPECT_FALSE(ReadFile(file, &byte, 1, &moved, &beyond));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(port.Take(0).error, WAIT_TIMEOUT); // what never began is not reported
    CloseHandle(file);
    CloseHandle(event);
}

TEST(CompletionPort, LimitsHowManyWorkAtOnce)
{
    constexpr int threadCount = 4, posts = 200;
    const Port port(1);
    std::atomic<int> inside = 0, most = 0, done = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&] {
            while (port.Take().key != 0) {
                const int now = ++inside;
                for (int seen = most; now > seen && !most.compare_exchange_weak(seen, now);) {
                }
                for (int spin = 0; spin < 2000; ++spin) std::atomic_signal_fence(std::memory_order_seq_cst);
                --inside;
                ++done;
            }
        });
    for (int i = 0; i < posts; ++i) port.Post(0, 1);
    for (int i = 0; i < threadCount; ++i) port.Post(0, 0);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(done, posts);
    // A loaded machine may keep a thread from its processor so long that it looks blocked.
    EXPECT_LT(most, threadCount);
}

TEST(CompletionPort, BlockedThreadsDoNotCountTowardsTheLimit)
{
    constexpr int threadCount = 8;
    const Port port(1);
    const HANDLE all = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::atomic<int> arrived = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&] {
            port.Take();
            if (++arrived == threadCount) SetEvent(all);
            EXPECT_EQ(WaitForSingleObject(all, veryLong), WAIT_OBJECT_0);
        });
    for (int i = 0; i < threadCount; ++i) port.Post(0, 1);
    for (std::thread& thread : threads) thread.join();
    CloseHandle(all);
}

class PortFiles : public ::testing::Test {
protected:
    HANDLE Open(const std::string& name, DWORD disposition = OPEN_ALWAYS)
    {
        const HANDLE file = CreateFileA((m_folder / name).c_str(), GENERIC_READ | GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        disposition, FILE_FLAG_OVERLAPPED, nullptr);
        EXPECT_NE(file, INVALID_HANDLE_VALUE);
        return file;
    }
    // Both ends of a pipe in one handle that belongs to the port.
    HANDLE OpenPipe(ULONG_PTR key)
    {
        EXPECT_EQ(::mkfifo((m_folder / "pipe").c_str(), 0600), 0);
        const HANDLE pipe = Open("pipe", OPEN_EXISTING);
        EXPECT_EQ(CreateIoCompletionPort(pipe, m_port, key, 0), static_cast<HANDLE>(m_port));
        return pipe;
    }
    static void ExpectPending(BOOL result)
    {
        EXPECT_FALSE(result);
        EXPECT_EQ(GetLastError(), pending);
    }

    const TempFolder m_folder;
    const Port m_port;
};

TEST_F(PortFiles, PlainFileMovesBytesWhenTheCompletionIsTaken)
{
    const HANDLE file = Open("plain");
    ASSERT_NE(CreateIoCompletionPort(file, m_port, 77, 0), nullptr);
    OVERLAPPED write, read, behind;
    write.Offset = read.Offset = 5;
    read.hEvent = CreateEventA(nullptr, TRUE, TRUE, nullptr);
    behind.Offset = 9;
    char bytes[8] = {};
    DWORD moved = 1;
    ExpectPending(WriteFile(file, "text", 4, &moved, &write));
    ExpectPending(ReadFile(file, bytes, 8, nullptr, &read));
    ExpectPending(ReadFile(file, bytes, 8, nullptr, &behind));
    EXPECT_EQ(moved, 0u);
    EXPECT_EQ(WaitForSingleObject(read.hEvent, 0), WAIT_TIMEOUT);
    EXPECT_FALSE(GetOverlappedResult(file, &read, &moved, FALSE));
    EXPECT_EQ(GetLastError(), ERROR_IO_INCOMPLETE);

    EXPECT_EQ(m_port.Take().overlapped, &write);
    const Taken second = m_port.Take();
    EXPECT_TRUE(second.succeeded && second.overlapped == &read && second.key == 77 && second.moved == 4);
    EXPECT_EQ(std::string(bytes), "text");
    EXPECT_EQ(WaitForSingleObject(read.hEvent, 0), WAIT_OBJECT_0);
    EXPECT_TRUE(GetOverlappedResult(file, &read, &moved, FALSE));
    EXPECT_EQ(moved, 4u);
    const Taken third = m_port.Take();
    EXPECT_TRUE(!third.succeeded && third.error == ERROR_HANDLE_EOF && third.overlapped == &behind);
    EXPECT_EQ(GetFileSize(file, nullptr), 9u);
    CloseHandle(read.hEvent);
    CloseHandle(file);
}

TEST_F(PortFiles, ManyTransfersOfOneFileByManyThreads)
{
    constexpr DWORD blockSize = 512, blockCount = 500;
    const HANDLE file = Open("blocks");
    ASSERT_NE(CreateIoCompletionPort(file, m_port, 1, 0), nullptr);
    struct Block : OVERLAPPED {
        std::array<char, blockSize> bytes;
    };
    std::vector<Block> blocks(blockCount);
    const auto takeAll = [&] {
        std::vector<std::thread> threads;
        std::atomic<DWORD> left = blockCount;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                while (left > 0) {
                    const Taken taken = m_port.Take(10);
                    if (taken.overlapped == nullptr) continue;
                    EXPECT_EQ(taken.moved, blockSize);
                    --left;
                }
            });
        for (std::thread& thread : threads) thread.join();
    };
    for (DWORD i = 0; i < blockCount; ++i) {
        blocks[i].Offset = i * blockSize;
        blocks[i].bytes.fill(static_cast<char>(i % 251));
        ExpectPending(WriteFile(file, blocks[i].bytes.data(), blockSize, nullptr, &blocks[i]));
    }
    takeAll();
    for (Block& block : blocks) {
        block.bytes.fill(0);
        ExpectPending(ReadFile(file, block.bytes.data(), blockSize, nullptr, &block));
    }
    takeAll();
    for (DWORD i = 0; i < blockCount; ++i)
        ASSERT_TRUE(
            std::ranges::all_of(blocks[i].bytes, [&](char c) { return c == static_cast<char>(i % 251); }));
    CloseHandle(file);
}

TEST_F(PortFiles, ClosingAPlainFileEndsWhatNobodyTook)
{
    const HANDLE file = Open("closed");
    ASSERT_NE(CreateIoCompletionPort(file, m_port, 3, 0), nullptr);
    OVERLAPPED first, second;
    ExpectPending(WriteFile(file, "a", 1, nullptr, &first));
    ExpectPending(WriteFile(file, "b", 1, nullptr, &second));
    EXPECT_TRUE(CancelIoEx(file, &second));
    EXPECT_EQ(second.Internal, ERROR_OPERATION_ABORTED);
    CloseHandle(file);
    for (const OVERLAPPED* const one : {&first, &second}) {
        const Taken taken = m_port.Take();
        EXPECT_TRUE(!taken.succeeded && taken.error == ERROR_OPERATION_ABORTED && taken.overlapped == one);
    }
    EXPECT_EQ(std::filesystem::file_size(m_folder / "closed"), 0u);
}

TEST_F(PortFiles, TransfersThatOutliveThePortAreEndedAndReportNowhere)
{
    Port port;
    const HANDLE file = Open("dropped");
    ASSERT_NE(CreateIoCompletionPort(file, port, 3, 0), nullptr);
    OVERLAPPED dropped, late;
    dropped.hEvent = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    ExpectPending(WriteFile(file, "a", 1, nullptr, &dropped));
    port.Close();
    EXPECT_EQ(WaitForSingleObject(dropped.hEvent, 0), WAIT_OBJECT_0);
    EXPECT_EQ(dropped.Internal, ERROR_OPERATION_ABORTED);
    ExpectPending(WriteFile(file, "b", 1, nullptr, &late));
    EXPECT_EQ(late.Internal, ERROR_OPERATION_ABORTED);
    CloseHandle(dropped.hEvent);
    CloseHandle(file);
}

TEST_F(PortFiles, PipeReadsWaitForBytesAndKeepTheirOrder)
{
    const HANDLE pipe = OpenPipe(9);
    OVERLAPPED first, second, write;
    char a[4] = {}, b[8] = {};
    ExpectPending(ReadFile(pipe, a, 3, nullptr, &first));
    ExpectPending(ReadFile(pipe, b, 8, nullptr, &second));
    EXPECT_EQ(m_port.Take(0).error, WAIT_TIMEOUT);
    ExpectPending(WriteFile(pipe, "abcde", 5, nullptr, &write));
    std::vector<OVERLAPPED*> order;
    for (int i = 0; i < 3; ++i) {
        const Taken taken = m_port.Take();
        EXPECT_TRUE(taken.succeeded && taken.key == 9);
        if (taken.overlapped != &write) order.push_back(taken.overlapped);
    }
    EXPECT_EQ(order, (std::vector<OVERLAPPED*>{&first, &second}));
    EXPECT_EQ(std::string(a) + b, "abcde");
    CloseHandle(pipe);
}

TEST_F(PortFiles, PipeWriteIsDoneWhenAllIsTaken)
{
    const HANDLE pipe = OpenPipe(1);
    std::vector<char> sent(1 << 20);
    std::iota(sent.begin(), sent.end(), '\0');
    OVERLAPPED write;
    ExpectPending(WriteFile(pipe, sent.data(), static_cast<DWORD>(sent.size()), nullptr, &write));
    EXPECT_EQ(m_port.Take(0).error, WAIT_TIMEOUT); // a pipe holds less
    std::vector<char> got(sent.size());
    bool written = false;
    for (DWORD have = 0; have < got.size() || !written;) {
        OVERLAPPED read;
        ExpectPending(ReadFile(pipe, got.data() + have, 100000, nullptr, &read));
        Taken taken = m_port.Take();
        if (taken.overlapped == &write) {
            EXPECT_EQ(taken.moved, sent.size());
            written = true;
            if (have == got.size()) {
                CancelIoEx(pipe, &read);
                m_port.Take();
                break;
            }
            taken = m_port.Take();
        }
        ASSERT_TRUE(taken.succeeded);
        have += taken.moved;
        ASSERT_LE(have, got.size());
        if (have == got.size() && !written) written = m_port.Take().overlapped == &write;
    }
    EXPECT_EQ(got, sent);
    CloseHandle(pipe);
}

TEST_F(PortFiles, CancellingAndClosingEndWhatIsPending)
{
    const HANDLE pipe = OpenPipe(1);
    OVERLAPPED one, two, three;
    char bytes[3];
    for (OVERLAPPED* const overlapped : {&one, &two, &three})
        ExpectPending(ReadFile(pipe, bytes, 1, nullptr, overlapped));
    EXPECT_TRUE(CancelIoEx(pipe, &two));
    EXPECT_FALSE(CancelIoEx(pipe, &two));
    EXPECT_EQ(GetLastError(), ERROR_NOT_FOUND);
    CloseHandle(pipe);
    for (const OVERLAPPED* const expected : {&two, &one, &three}) {
        const Taken taken = m_port.Take();
        EXPECT_TRUE(!taken.succeeded && taken.error == ERROR_OPERATION_ABORTED &&
                    taken.overlapped == expected);
    }
    EXPECT_EQ(m_port.Take(0).error, WAIT_TIMEOUT);
}

TEST_F(PortFiles, WritingToAPipeWithoutReadersFailsWithoutASignal)
{
    const HANDLE both = OpenPipe(1);
    const HANDLE writer = CreateFileA((m_folder / "pipe").c_str(), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(CreateIoCompletionPort(writer, m_port, 2, 0), nullptr);
    CloseHandle(both);
    OVERLAPPED write;
    ExpectPending(WriteFile(writer, "x", 1, nullptr, &write));
    const Taken taken = m_port.Take();
    EXPECT_TRUE(!taken.succeeded && taken.error == ERROR_BROKEN_PIPE && taken.overlapped == &write);
    CloseHandle(writer);
}

// Handles come and go while transfers end: each is reported once.
TEST_F(PortFiles, ClosingWhileBytesArriveReportsEachTransferOnce)
{
    ASSERT_EQ(::mkfifo((m_folder / "race").c_str(), 0600), 0);
    std::atomic<int> reported = 0;
    std::thread taker([&] {
        while (m_port.Take().key != 0) ++reported;
    });
    constexpr int rounds = 300;
    for (int i = 0; i < rounds; ++i) {
        const HANDLE pipe = Open("race", OPEN_EXISTING);
        ASSERT_NE(CreateIoCompletionPort(pipe, m_port, 1, 0), nullptr);
        OVERLAPPED read;
        char byte;
        ExpectPending(ReadFile(pipe, &byte, 1, nullptr, &read));
        std::thread writer([&] {
            DWORD moved;
            const HANDLE other = Open("race", OPEN_EXISTING);
            WriteFile(other, "x", 1, &moved, nullptr);
            CloseHandle(other);
        });
        if (i % 2) std::this_thread::yield();
        CloseHandle(pipe);
        writer.join();
        for (int turn = 0; turn < 5000 && reported <= i; ++turn) Sleep(reported <= i ? 1 : 0);
        ASSERT_EQ(reported, i + 1);
        ASSERT_NE(read.Internal, STATUS_PENDING);
    }
    m_port.Post(0, 0);
    taker.join();
}

TEST_F(PortFiles, ResultCanBeWaitedForWithoutAnEvent)
{
    const HANDLE pipe = OpenPipe(1);
    OVERLAPPED read;
    char bytes[4];
    ExpectPending(ReadFile(pipe, bytes, 4, nullptr, &read));
    std::thread writer([&] {
        Sleep(5);
        OVERLAPPED write;
        ExpectPending(WriteFile(pipe, "abc", 3, nullptr, &write));
        DWORD moved;
        EXPECT_TRUE(GetOverlappedResult(pipe, &write, &moved, TRUE));
    });
    DWORD moved = 0;
    EXPECT_TRUE(GetOverlappedResult(pipe, &read, &moved, TRUE));
    EXPECT_EQ(moved, 3u);
    writer.join();
    CloseHandle(pipe);
}

} // namespace
