#include "corekit/net/IOCPManager.h"

#include "corekit/platform/Threads.h"
#include "tests/support/TempFolder.h"

#include <atomic>
#include <gtest/gtest.h>
#include <mutex>
#include <set>
#include <vector>

namespace {

// A record that remembers how it was reported.
struct Reported : CompletionRecord {
    Reported()
    {
        OnComplete = [](CompletionRecord* record, DWORD moved) { Tell(record, "complete", moved); };
        OnError = [](CompletionRecord* record, DWORD error) { Tell(record, "error", error); };
    }
    ~Reported() { CloseHandle(m_isReported); }
    std::string Wait()
    {
        if (WaitForSingleObject(m_isReported, 20000) != WAIT_OBJECT_0) return "never";
        return how + " " + std::to_string(value);
    }
    static void Tell(CompletionRecord* record, const char* how, DWORD value)
    {
        Reported& reported = *static_cast<Reported*>(record);
        reported.how = how;
        reported.value = value;
        SetEvent(reported.m_isReported);
    }

    std::string how;
    DWORD value = 0;

private:
    const HANDLE m_isReported = CreateEventA(nullptr, FALSE, FALSE, nullptr);
};

// Counts the threads that are inside at the same time.
struct Crowd {
    std::mutex lock;
    std::set<DWORD> threads;
    std::size_t wanted = 0;
    const HANDLE complete = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    ~Crowd() { CloseHandle(complete); }
};
Crowd* crowd;

struct Member : CompletionRecord {
    Member()
    {
        OnComplete = [](CompletionRecord*, DWORD) {
            {
                const std::lock_guard lock(crowd->lock);
                crowd->threads.insert(GetCurrentThreadId());
                if (crowd->threads.size() == crowd->wanted) SetEvent(crowd->complete);
            }
            WaitForSingleObject(crowd->complete, 20000);
        };
    }
};

// As many threads as `wanted` meet, and no other is there.
void ExpectThreads(CIOCPManager& manager, std::size_t wanted)
{
    Crowd all;
    crowd = &all;
    all.wanted = wanted;
    std::vector<Member> members(wanted + 10);
    for (Member& member : members) PostQueuedCompletionStatus(manager.GetPort(), 0, 1, &member);
    EXPECT_EQ(WaitForSingleObject(all.complete, 20000), WAIT_OBJECT_0);
    manager.Shutdown();
    EXPECT_EQ(all.threads.size(), wanted);
}

TEST(IOCPManager, ShutdownClosesThePortAndMayComeAtAnyTime)
{
    CIOCPManager manager;
    manager.Shutdown();
    EXPECT_EQ(manager.GetPort(), nullptr);
    for (const int threads : {-1, 0, 3}) {
        manager.Initialise(threads, 0);
        EXPECT_NE(manager.GetPort(), nullptr);
        manager.Shutdown();
        manager.Shutdown();
        EXPECT_EQ(manager.GetPort(), nullptr);
    }
}

TEST(IOCPManager, StartsAtMost64Threads)
{
    CIOCPManager manager;
    manager.Initialise(100, 64);
    ExpectThreads(manager, 64);
}

TEST(IOCPManager, SecondInitialiseMovesTheThreadsToTheNewPort)
{
    CIOCPManager manager;
    manager.Initialise(3, 8);
    manager.Initialise(2, 8);
    ExpectThreads(manager, 5);
}

TEST(IOCPManager, KeyZeroEndsOneThread)
{
    CIOCPManager manager;
    manager.Initialise(3, 8);
    PostQueuedCompletionStatus(manager.GetPort(), 0, 0, nullptr);
    ExpectThreads(manager, 2);
}

TEST(IOCPManager, ReportsPostedCompletionsAndFileTransfers)
{
    const TempFolder folder;
    const HANDLE file = CreateFileA((folder / "f").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_FLAG_OVERLAPPED, nullptr);
    CIOCPManager manager;
    manager.AssociateHandle(file); // too early
    manager.Initialise(2, 0);
    manager.AssociateHandle(file);
    manager.AssociateHandle(nullptr); // not examined
    Reported posted, write, read, behind;
    PostQueuedCompletionStatus(manager.GetPort(), 123, 1, &posted);
    EXPECT_EQ(posted.Wait(), "complete 123");
    char bytes[16] = {};
    WriteFile(file, "bulletin", 8, nullptr, &write);
    EXPECT_EQ(write.Wait(), "complete 8");
    ReadFile(file, bytes, 16, nullptr, &read);
    EXPECT_EQ(read.Wait(), "complete 8");
    EXPECT_STREQ(bytes, "bulletin");
    behind.Offset = 8;
    ReadFile(file, bytes, 16, nullptr, &behind);
    EXPECT_EQ(behind.Wait(), "error 38");
    manager.Shutdown();
    CloseHandle(file);
}

TEST(IOCPManager, EverythingQueuedBeforeShutdownIsReported)
{
    static std::atomic<int> reported;
    reported = 0;
    CIOCPManager manager;
    manager.Initialise(4, 0);
    CompletionRecord record;
    record.OnComplete = [](CompletionRecord*, DWORD) { ++reported; };
    for (int i = 0; i < 5000; ++i) PostQueuedCompletionStatus(manager.GetPort(), 0, 1, &record);
    manager.Shutdown();
    EXPECT_EQ(reported, 5000);
}

} // namespace
