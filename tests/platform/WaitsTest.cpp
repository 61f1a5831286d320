#include "corekit/platform/Waits.h"
#include "corekit/platform/Threads.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

// Closes what it holds.
class Handle {
public:
    explicit Handle(HANDLE handle) : m_handle(handle) { EXPECT_NE(handle, nullptr); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { CloseHandle(m_handle); }
    operator HANDLE() const { return m_handle; }

private:
    HANDLE m_handle;
};

HANDLE autoEvent(bool signalled = false) { return CreateEventA(nullptr, FALSE, signalled, nullptr); }
HANDLE manualEvent(bool signalled = false) { return CreateEventA(nullptr, TRUE, signalled, nullptr); }
HANDLE mutex() { return CreateMutexA(nullptr, FALSE, nullptr); }

DWORD call(void* parameter) { return (*static_cast<std::function<DWORD()>*>(parameter))(); }

void onOtherThread(std::function<void()> body) { std::thread(std::move(body)).join(); }

TEST(Events, OneSetLetsOneWaiterThrough)
{
    const Handle event(autoEvent());
    std::atomic<int> through{0};
    std::vector<std::thread> waiters;
    for (int i = 0; i < 4; ++i)
        waiters.emplace_back([&] {
            WaitForSingleObject(event, INFINITE);
            ++through;
        });
    for (int round = 1; round <= 4; ++round) {
        SetEvent(event);
        for (int i = 0; i < 2000 && through < round; ++i) Sleep(1);
        Sleep(5);
        EXPECT_EQ(through, round);
    }
    for (std::thread& waiter : waiters) waiter.join();
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
}

TEST(Events, ManualResetStaysUntilReset)
{
    const Handle event(manualEvent());
    std::vector<std::thread> waiters;
    for (int i = 0; i < 3; ++i)
        waiters.emplace_back([&] { EXPECT_EQ(WaitForSingleObject(event, 20000), WAIT_OBJECT_0); });
    SetEvent(event);
    for (std::thread& waiter : waiters) waiter.join();
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
    ResetEvent(event);
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
}

TEST(Waits, TimeOutComesNoSoonerThanAsked)
{
    const Handle event(autoEvent());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(WaitForSingleObject(event, 30), WAIT_TIMEOUT);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST(Waits, AnyTakesTheLowestReadyAndLeavesTheRest)
{
    const Handle first(autoEvent()), second(autoEvent(true)), third(autoEvent(true));
    const HANDLE handles[] = {first, second, third};
    EXPECT_EQ(WaitForMultipleObjects(3, handles, FALSE, INFINITE), WAIT_OBJECT_0 + 1);
    EXPECT_EQ(WaitForSingleObject(second, 0), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(third, 0), WAIT_OBJECT_0);
}

TEST(Waits, AllTakesNothingUntilEverythingIsReady)
{
    const Handle first(autoEvent(true)), second(autoEvent()), lock(mutex());
    const HANDLE handles[] = {first, second, lock};
    EXPECT_EQ(WaitForMultipleObjects(3, handles, TRUE, 10), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(first, 0), WAIT_OBJECT_0); // was not taken
    std::thread waiter([&] {
        EXPECT_EQ(WaitForMultipleObjects(3, handles, TRUE, INFINITE), WAIT_OBJECT_0);
        EXPECT_TRUE(ReleaseMutex(lock));
    });
    SetEvent(first);
    Sleep(10);
    EXPECT_EQ(WaitForSingleObject(first, 0), WAIT_OBJECT_0); // still free for others
    SetEvent(second);
    SetEvent(first);
    waiter.join();
    EXPECT_EQ(WaitForMultipleObjects(2, handles, FALSE, 0), WAIT_TIMEOUT);
}

// Two threads that want the same pair in opposite order would lock each other out if taking were not one
// step.
TEST(Waits, AllInOppositeOrderNeverDeadlocks)
{
    const Handle a(mutex()), b(mutex());
    const HANDLE forward[] = {a, b};
    const HANDLE backward[] = {b, a};
    long counter = 0;
    const auto work = [&](const HANDLE* pair) {
        for (int i = 0; i < 2000; ++i) {
            ASSERT_EQ(WaitForMultipleObjects(2, pair, TRUE, 20000), WAIT_OBJECT_0);
            ++counter;
            ReleaseMutex(a);
            ReleaseMutex(b);
        }
    };
    std::thread one(work, forward), two(work, backward);
    one.join();
    two.join();
    EXPECT_EQ(counter, 4000);
}

TEST(Mutexes, OnlyTheOwnerReleasesAndAsOftenAsItTook)
{
    const Handle lock(CreateMutexA(nullptr, TRUE, nullptr));
    EXPECT_EQ(WaitForSingleObject(lock, 0), WAIT_OBJECT_0);
    EXPECT_TRUE(ReleaseMutex(lock));
    onOtherThread([&] {
        EXPECT_EQ(WaitForSingleObject(lock, 0), WAIT_TIMEOUT);
        EXPECT_FALSE(ReleaseMutex(lock));
        EXPECT_EQ(GetLastError(), ERROR_NOT_OWNER);
    });
    EXPECT_TRUE(ReleaseMutex(lock));
    EXPECT_FALSE(ReleaseMutex(lock));
    onOtherThread([&] { EXPECT_EQ(WaitForSingleObject(lock, 0), WAIT_OBJECT_0); });
}

TEST(Mutexes, OwnerThatEndsLeavesThemAbandonedOnce)
{
    const Handle first(mutex()), second(mutex()), ready(manualEvent(true));
    const HANDLE all[] = {ready, first, second};
    const HANDLE any[] = {second, first};
    const auto takeBoth = [&] {
        WaitForSingleObject(first, INFINITE);
        WaitForSingleObject(second, INFINITE);
    };
    onOtherThread(takeBoth);
    EXPECT_EQ(WaitForMultipleObjects(2, any, FALSE, 0), WAIT_ABANDONED_0);
    EXPECT_EQ(WaitForSingleObject(second, 0), WAIT_OBJECT_0); // ours now, and whole again
    EXPECT_EQ(WaitForMultipleObjects(3, all, TRUE, 0), WAIT_ABANDONED_0);
    for (int i = 0; i < 3; ++i) ReleaseMutex(second);
    ReleaseMutex(first);
    EXPECT_EQ(WaitForSingleObject(first, 0), WAIT_OBJECT_0);
    ReleaseMutex(first);

    std::function<DWORD()> body = [&]() -> DWORD { return takeBoth(), 0u; };
    const Handle thread(CreateThread(nullptr, 0, call, &body, 0, nullptr));
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(first, 0), WAIT_ABANDONED); // by the time the thread counts as ended
    ReleaseMutex(first);
}

TEST(Mutexes, HandOverUnderLoadKeepsEveryCount)
{
    const Handle lock(mutex());
    long counter = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < 1000; ++turn) {
                WaitForSingleObject(lock, turn % 2 == 0 ? INFINITE : 20000);
                ++counter;
                ReleaseMutex(lock);
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(counter, 4000);
}

TEST(Waits, ClosingAHandleUnderAWaiterHarmsNobody)
{
    for (int i = 0; i < 50; ++i) {
        const HANDLE event = autoEvent();
        std::thread waiter([event] {
            const DWORD result = WaitForSingleObject(event, 2);
            EXPECT_TRUE(result == WAIT_TIMEOUT || result == WAIT_FAILED);
        });
        if (i % 2 == 0) Sleep(1);
        EXPECT_TRUE(CloseHandle(event));
        EXPECT_FALSE(SetEvent(event));
        waiter.join();
    }
}

TEST(Waits, WrongCallsAreRefused)
{
    const Handle event(autoEvent(true)), lock(mutex());
    const HANDLE twice[] = {event, event};
    const HANDLE withNull[] = {event, nullptr};
    EXPECT_EQ(WaitForMultipleObjects(2, twice, TRUE, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(WaitForMultipleObjects(0, twice, FALSE, 0), WAIT_FAILED);
    const std::vector<HANDLE> tooMany(65, event);
    EXPECT_EQ(WaitForMultipleObjects(65, tooMany.data(), FALSE, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(WaitForMultipleObjects(2, withNull, FALSE, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(WaitForMultipleObjects(2, twice, FALSE, 0), WAIT_OBJECT_0); // nothing was consumed so far
    EXPECT_FALSE(SetEvent(lock));
    EXPECT_FALSE(ReleaseMutex(event));
}

TEST(Handles, ValuesThatAreNoHandlesAreRefused)
{
    int local = 0;
    const HANDLE event = autoEvent();
    const HANDLE inside = static_cast<char*>(event) + 1;
    for (const HANDLE wrong : {HANDLE{}, INVALID_HANDLE_VALUE, static_cast<HANDLE>(&local), inside}) {
        SetLastError(0);
        EXPECT_FALSE(CloseHandle(wrong));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_EQ(WaitForSingleObject(wrong, 0), WAIT_FAILED);
    }
    EXPECT_TRUE(CloseHandle(event));
    EXPECT_FALSE(CloseHandle(event));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(Handles, ClosingTheSameHandleFromManyThreadsSucceedsOnce)
{
    for (int i = 0; i < 200; ++i) {
        const HANDLE event = manualEvent(true);
        std::atomic<int> closed{0};
        std::vector<std::thread> threads;
        for (int t = 0; t < 3; ++t)
            threads.emplace_back([&] {
                WaitForSingleObject(event, 0);
                closed += CloseHandle(event) != 0;
            });
        for (std::thread& thread : threads) thread.join();
        ASSERT_EQ(closed, 1);
    }
}

TEST(Threads, SuspendedStartRunsAtResumeAndReturnsItsCode)
{
    std::atomic<DWORD> runningAs{0};
    std::function<DWORD()> body = [&]() -> DWORD {
        runningAs = GetCurrentThreadId();
        return 77;
    };
    DWORD id = 0, code = 0;
    const Handle thread(CreateThread(nullptr, 100000, call, &body, CREATE_SUSPENDED, &id));
    EXPECT_EQ(WaitForSingleObject(thread, 10), WAIT_TIMEOUT);
    EXPECT_EQ(runningAs, 0u);
    EXPECT_TRUE(GetExitCodeThread(thread, &code));
    EXPECT_EQ(code, STILL_ACTIVE);
    EXPECT_EQ(ResumeThread(thread), 1u);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(ResumeThread(thread), 0u);
    EXPECT_EQ(runningAs, id);
    EXPECT_NE(id, GetCurrentThreadId());
    EXPECT_TRUE(GetExitCodeThread(thread, &code));
    EXPECT_EQ(code, 77u);
    EXPECT_TRUE(SetThreadPriority(thread, THREAD_PRIORITY_HIGHEST));
    EXPECT_EQ(GetThreadPriority(thread), THREAD_PRIORITY_HIGHEST);
    EXPECT_TRUE(SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_NORMAL));
    EXPECT_FALSE(GetExitCodeThread(nullptr, &code));
}

TEST(Threads, HandleMayGoBeforeTheThread)
{
    const Handle done(autoEvent());
    std::function<DWORD()> body = [&]() -> DWORD {
        Sleep(5);
        SetEvent(done);
        return 0;
    };
    EXPECT_TRUE(CloseHandle(CreateThread(nullptr, 0, call, &body, 0, nullptr)));
    EXPECT_EQ(WaitForSingleObject(done, 20000), WAIT_OBJECT_0);
}

TEST(Names, LeadToTheSameObjectUntilItsLastHandleIsClosed)
{
    const HANDLE first = CreateEventA(nullptr, TRUE, FALSE, "Ready");
    EXPECT_EQ(GetLastError(), NO_ERROR);
    const HANDLE second = CreateEventA(nullptr, FALSE, TRUE, "Ready");
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    const Handle otherCase(CreateEventA(nullptr, TRUE, FALSE, "ready"));
    EXPECT_EQ(GetLastError(), NO_ERROR);
    EXPECT_EQ(CreateMutexA(nullptr, FALSE, "Ready"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(WaitForSingleObject(second, 0), WAIT_TIMEOUT);
    SetEvent(first);
    CloseHandle(first);
    EXPECT_EQ(WaitForSingleObject(second, 0), WAIT_OBJECT_0);
    CloseHandle(second);
    const Handle anew(CreateMutexA(nullptr, TRUE, "Ready"));
    EXPECT_EQ(GetLastError(), NO_ERROR);
    EXPECT_TRUE(ReleaseMutex(anew));
}

TEST(Names, AreGivenAndForgottenByManyThreads)
{
    std::vector<std::thread> threads;
    std::atomic<int> made = 0;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < 500; ++turn) {
                const Handle event(CreateEventA(nullptr, TRUE, TRUE, "shared"));
                if (GetLastError() == NO_ERROR) ++made;
                EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_GE(made, 1);
}

TEST(Threads, DuplicateOfTheCurrentOneIsSignalledAtItsEnd)
{
    const auto duplicate = [] {
        HANDLE copy = nullptr;
        EXPECT_TRUE(DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &copy, 0,
                                    FALSE, DUPLICATE_SAME_ACCESS));
        EXPECT_EQ(WaitForSingleObject(copy, 0), WAIT_TIMEOUT);
        return copy;
    };
    HANDLE foreign = nullptr, own = nullptr;
    onOtherThread([&] {
        foreign = duplicate();
        SetThreadPriority(foreign, THREAD_PRIORITY_LOWEST);
        EXPECT_EQ(GetThreadPriority(GetCurrentThread()), THREAD_PRIORITY_LOWEST);
    });
    std::function<DWORD()> body = [&] {
        own = duplicate();
        return DWORD{7};
    };
    const Handle started(CreateThread(nullptr, 0, call, &body, 0, nullptr));
    EXPECT_EQ(WaitForSingleObject(started, 20000), WAIT_OBJECT_0);
    DWORD code = 0;
    EXPECT_TRUE(GetExitCodeThread(own, &code));
    EXPECT_EQ(code, 7u);
    for (const HANDLE ended : {foreign, own}) {
        EXPECT_EQ(WaitForSingleObject(ended, 20000), WAIT_OBJECT_0);
        CloseHandle(ended);
    }
    CloseHandle(duplicate()); // of the main thread
}

} // namespace
