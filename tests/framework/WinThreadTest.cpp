#include "corekit/framework/WinApp.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Waits.h"
#include "tests/support/Forked.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>

namespace {
std::atomic<int> alive = 0;

class CWorker : public CWinThread {
    DECLARE_DYNCREATE(CWorker)
public:
    CWorker() { ++alive; }
    ~CWorker() override { --alive; }
    BOOL InitInstance() override
    {
        road += "i";
        return initResult;
    }
    int Run() override
    {
        road += "r";
        return CWinThread::Run() + 1;
    }
    int ExitInstance() override
    {
        road += "x";
        return 40;
    }
    BOOL initResult = TRUE;
    std::string road;
};
IMPLEMENT_DYNCREATE(CWorker, CWinThread)

// The exit code of a thread that deletes nothing.
DWORD Finish(CWinThread* thread)
{
    thread->m_bAutoDelete = FALSE;
    thread->ResumeThread();
    DWORD code = 0;
    EXPECT_EQ(WaitForSingleObject(thread->m_hThread, 10000), WAIT_OBJECT_0);
    GetExitCodeThread(thread->m_hThread, &code);
    return code;
}

CWorker* Suspended()
{
    return static_cast<CWorker*>(
        AfxBeginThread(RUNTIME_CLASS(CWorker), THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED, nullptr));
}
} // namespace

TEST(WinThread, FunctionRunsOnItsOwnThreadWithItsArgument)
{
    struct Seen {
        CWinThread* object = nullptr;
        DWORD id = 0;
    } seen;
    CWinThread* thread = AfxBeginThread(
        [](void* p) -> UINT {
            *static_cast<Seen*>(p) = {AfxGetThread(), GetCurrentThreadId()};
            return 77;
        },
        &seen, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    ASSERT_NE(thread, nullptr);
    EXPECT_FALSE(thread->CreateThread());
    EXPECT_EQ(seen.object, nullptr);
    EXPECT_EQ(Finish(thread), 77u);
    EXPECT_EQ(seen.object, thread);
    EXPECT_EQ(seen.id, thread->m_nThreadID);
    delete thread;
}

TEST(WinThread, RunOnlyAfterASuccessfulInit)
{
    struct {
        BOOL init;
        const char* road;
        DWORD code;
    } const cases[] = {{TRUE, "irx", 41}, {FALSE, "ix", 40}};
    for (const auto& c : cases) {
        CWorker* worker = Suspended();
        worker->initResult = c.init;
        EXPECT_EQ(Finish(worker), c.code);
        EXPECT_EQ(worker->road, c.road);
        delete worker;
    }
}

TEST(WinThread, ObjectsDeleteThemselves)
{
    for (int i = 0; i < 50; ++i) ASSERT_NE(AfxBeginThread(RUNTIME_CLASS(CWorker)), nullptr);
    for (int i = 0; i < 1000 && alive > 0; ++i) Sleep(5);
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(AfxBeginThread(RUNTIME_CLASS(CCmdTarget)), nullptr);
}

TEST(WinApp, IsTheThreadObjectOfItsMaker)
{
    {
        CWinApp app("Prompter");
        EXPECT_EQ(AfxGetApp(), &app);
        EXPECT_EQ(AfxGetThread(), &app);
        EXPECT_STREQ(AfxGetApp()->m_pszAppName, "Prompter");
    }
    EXPECT_EQ(AfxGetApp(), nullptr);
    EXPECT_EQ(AfxGetThread(), nullptr);
}
#ifndef COREKIT_SANITIZED // whose own memory no limit suits
TEST(WinThread, OneThatCannotStartIsNotThere)
{
    EXPECT_EQ(InChild([] {
                  LimitTo(RLIMIT_AS, 1u << 30);
                  constexpr UINT hugeStack = 3u << 30;
                  const auto work = [](void*) { return 0u; };
                  SetLastError(0);
                  if (AfxBeginThread(work, nullptr, 0, hugeStack)) return 1;
                  if (GetLastError() != ERROR_NOT_ENOUGH_MEMORY) return 2;
                  CWinThread thread(work, nullptr);
                  thread.m_bAutoDelete = FALSE;
                  if (thread.CreateThread(0, hugeStack)) return 3;
                  if (!thread.CreateThread()) return 4; // it may be tried again
                  return WaitForSingleObject(thread.m_hThread, 10'000) == WAIT_OBJECT_0 ? 7 : 5;
              }),
              7);
}
#endif
