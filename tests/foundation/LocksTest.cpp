#include "corekit/foundation/CriticalObject.h"
#include "corekit/foundation/CritSection.h"
#include "corekit/foundation/Lock.h"
#include "corekit/foundation/Mutex.h"
#include "corekit/foundation/ReadWriteLock.h"
#include "corekit/foundation/RefCountObject.h"
#include "corekit/platform/Waits.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

// A lock that only notes what is asked of it.
class NotingLock final : public ILockObject {
public:
    bool EnterLock(DWORD timeout) override
    {
        lastTimeout = timeout;
        entered += answer;
        return answer;
    }
    void LeaveLock() override { ++left; }
    bool IsOwnedByCurrentThread() override { return entered > left; }

    bool answer = true;
    int entered = 0, left = 0;
    DWORD lastTimeout = 0;
};

class Lender final : public ILockInterface {
public:
    explicit Lender(ILockObject* lock) : m_lock(lock) {}
    ILockObject* GetLockObject() override { return m_lock; }

private:
    ILockObject* m_lock;
};

bool becomesTrue(const std::atomic<bool>& flag)
{
    for (int i = 0; i < 2000 && !flag; ++i) Sleep(1);
    return flag;
}

bool staysFalse(const std::atomic<bool>& flag)
{
    Sleep(30);
    return !flag;
}

TEST(CritSection, SaysOnlyToItsHolderThatItIsHeld)
{
    CCritSection section;
    EXPECT_FALSE(section.IsOwnedByCurrentThread());
    EXPECT_TRUE(section.EnterLock(0));
    EXPECT_TRUE(section.IsOwnedByCurrentThread());
    std::atomic<bool> answered{false};
    bool answer = true;
    std::thread other([&] {
        answer = section.IsOwnedByCurrentThread();
        answered = true;
    });
    EXPECT_TRUE(staysFalse(answered)); // it blocks while we are inside
    section.LeaveLock();
    other.join();
    EXPECT_FALSE(answer);
    EXPECT_FALSE(section.IsOwnedByCurrentThread());
}

TEST(CritSection, ZeroTimeOutStillWaits)
{
    CCritSection section;
    section.EnterLock(INFINITE);
    std::atomic<bool> inside{false};
    std::thread other([&] {
        EXPECT_TRUE(section.EnterLock(0));
        inside = true;
        section.LeaveLock();
    });
    EXPECT_TRUE(staysFalse(inside));
    section.LeaveLock();
    other.join();
    EXPECT_TRUE(inside);
}

TEST(CriticalObject, NestedEntriesKeepOthersOutUntilTheLastLeave)
{
    CCriticalObject object;
    long counter = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < 2000; ++turn) {
                object.EnterLock();
                object.EnterLock();
                ++counter;
                object.LeaveLock();
                ++counter;
                object.LeaveLock();
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(counter, 4 * 2000 * 2);
}

TEST(Mutex, HeldElsewhereMeansFalseAtOnceAndAbandonedMeansFalseToo)
{
    CMutex mutex;
    EXPECT_TRUE(mutex.IsOwnedByCurrentThread());
    EXPECT_TRUE(mutex.EnterLock(INFINITE));
    EXPECT_TRUE(mutex.EnterLock(0)); // recursive
    std::thread([&] { EXPECT_FALSE(mutex.EnterLock(0)); }).join();
    mutex.LeaveLock();
    mutex.LeaveLock();
    std::thread([&] { EXPECT_TRUE(mutex.EnterLock(0)); }).join(); // ends without leaving
    EXPECT_FALSE(mutex.EnterLock(0));
    EXPECT_TRUE(mutex.EnterLock(0));
}

TEST(Lock, GuardLeavesExactlyWhatItHolds)
{
    NotingLock lock, other;
    Lender lender(&lock), empty(nullptr);
    {
        CLockV2 guard(&lock);
    }
    EXPECT_EQ(lock.entered, 1);
    EXPECT_EQ(lock.left, 1);
    EXPECT_EQ(lock.lastTimeout, INFINITE);
    {
        CLockV2 guard(&lender);
        guard.Release();
    }
    EXPECT_EQ(lock.left, 2);
    {
        CLockV2 none(static_cast<ILockObject*>(nullptr)), lentNone(&empty);
        EXPECT_FALSE(none.Claim(&empty, 0));
        none.Release();
    }
    {
        CLockV2 guard;
        EXPECT_TRUE(guard.Claim(&lender, 17));
        EXPECT_EQ(lock.lastTimeout, 17u);
        other.answer = false;
        EXPECT_FALSE(guard.Claim(&other, 0)); // keeps the first
    }
    EXPECT_EQ(lock.left, 3);
    EXPECT_EQ(other.left, 0);
    {
        CLockV2 guard(&other); // a failed entry is left all the same
    }
    EXPECT_EQ(other.left, 1);
}

TEST(ReadWriteLock, WriterWaitsForTheLastReader)
{
    CReadWriteLock lock;
    lock.GetReadLock();
    lock.GetReadLock();
    std::atomic<bool> isWriting{false}, mayEnd{false}, isReading{false};
    std::thread writer([&] {
        lock.GetExclusiveLock();
        isWriting = true;
        becomesTrue(mayEnd);
        lock.ReleaseExclusiveLock();
    });
    lock.ReleaseReadLock();
    EXPECT_TRUE(staysFalse(isWriting));
    lock.GetReadLock(); // a waiting writer keeps no reader out
    lock.ReleaseReadLock();
    lock.ReleaseReadLock();
    EXPECT_TRUE(becomesTrue(isWriting));
    std::thread reader([&] {
        lock.GetReadLock();
        isReading = true;
        lock.ReleaseReadLock();
    });
    EXPECT_TRUE(staysFalse(isReading));
    mayEnd = true;
    writer.join();
    reader.join();
    EXPECT_TRUE(isReading);
}

TEST(ReadWriteLock, ReadersNeverSeeAHalfWrittenPair)
{
    CReadWriteLock lock;
    long first = 0, second = 0;
    std::atomic<int> torn{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back([&] {
            for (int turn = 0; turn < 1000; ++turn) {
                lock.GetExclusiveLock();
                ++first;
                ++second;
                lock.ReleaseExclusiveLock();
            }
        });
        threads.emplace_back([&] {
            for (int turn = 0; turn < 1000; ++turn) {
                lock.GetReadLock();
                torn += first != second;
                lock.ReleaseReadLock();
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(first, 2000);
}

class Rescued : public CRefCountObject {
public:
    Rescued(int& finals, bool& deleted) : m_finals(finals), m_deleted(deleted) {}

protected:
    ~Rescued() override { m_deleted = true; }
    void OnFinalRelease() override
    {
        if (++m_finals == 1) AddRef();
    }

private:
    int& m_finals;
    bool& m_deleted;
};

TEST(RefCountObject, AddRefInTheLastReleaseRescues)
{
    int finals = 0;
    bool deleted = false;
    auto* const object = new Rescued(finals, deleted);
    object->AddRef();
    object->Release();
    EXPECT_EQ(finals, 0);
    object->Release();
    EXPECT_EQ(finals, 1);
    EXPECT_FALSE(deleted);
    object->Release();
    EXPECT_EQ(finals, 2);
    EXPECT_TRUE(deleted);
}

} // namespace
