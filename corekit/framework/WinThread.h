// Threads as objects.
//
// AfxBeginThread starts a function on a thread of its own and returns the object that stands for it. The
// object deletes itself when the thread ends unless m_bAutoDelete is cleared; whoever wants to wait starts
// the thread suspended, clears m_bAutoDelete or duplicates m_hThread, and lets it go:
//
//     CWinThread* worker = AfxBeginThread(Work, &job, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
//     worker->m_bAutoDelete = FALSE;
//     worker->ResumeThread();
//     WaitForSingleObject(worker->m_hThread, INFINITE);
//     delete worker;
//
// The thread of the application object has windows where the window library is loaded: Run then runs the
// toolkit's loop until the main window is gone or PostQuitMessage asks for the end.
//
// A class derived from CWinThread overrides InitInstance, Run and ExitInstance instead of naming a function.
//
//     class CPoller : public CWinThread {
//         DECLARE_DYNCREATE(CPoller)
//         BOOL InitInstance() override { return Connect(); }
//         int Run() override
//         {
//             while (PollOnce()) continue;
//             return ExitInstance();
//         }
//     };
//     AfxBeginThread(RUNTIME_CLASS(CPoller));
#pragma once

#include "corekit/framework/CmdTarget.h"
#include "corekit/platform/Threads.h"

class CException;
class CWnd;
struct tagMSG;

// Runs on the new thread; its result is the exit code. An exception that leaves it ends the process.
using AFX_THREADPROC = UINT (*)(void* parameter);

class COREKIT_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread() = default;
    // Starts nothing yet; `parameter` is handed on as it is.
    CWinThread(AFX_THREADPROC procedure, void* parameter);
    ~CWinThread() override; // closes m_hThread

    // Starts the thread; with CREATE_SUSPENDED it waits for ResumeThread. 0 if it cannot be made or runs
    // already. Unless it is suspended the object may be gone on return.
    BOOL CreateThread(DWORD flags = 0, UINT stackBytes = 0, void* attributes = nullptr);
    // How often the thread was held back, 1 for one that begins now; 0xFFFFFFFF on failure.
    DWORD ResumeThread() { return ::ResumeThread(m_hThread); }
    // Kept and given back; the machine's scheduler goes by its own judgement.
    int GetThreadPriority() const { return ::GetThreadPriority(m_hThread); }
    // Closed by the destructor; null before CreateThread.
    BOOL SetThreadPriority(int priority) { return ::SetThreadPriority(m_hThread, priority); }

    // On the new thread: if InitInstance gives nonzero, Run and then its result; else ExitInstance. Run ends
    // with ExitInstance, whose result is the thread's exit code.
    virtual BOOL InitInstance() { return FALSE; }
    // Deals with messages for as long as there is a main window; at once over without one.
    virtual int Run();
    virtual int ExitInstance() { return m_nExitCode; }

    // Waits for messages and deals with them, once; FALSE when the thread is to end. FALSE at once without
    // the window library.
    virtual BOOL PumpMessage();
    // True: the message is consumed. Asked for every message of the queued kind before its window, also in
    // modal loops and menus; asks the window and those above it.
    virtual BOOL PreTranslateMessage(tagMSG* message);
    // What there is to do while no message waits: brings the state of commands up to date at count 0,
    // forgets temporary objects at 1. True: there is more, with the next count. Counts from 0 each time that
    // something has come.
    virtual BOOL OnIdle(LONG count);
    // What a handler of a window threw; shows it and frees it.
    virtual LRESULT ProcessWndProcException(CException* thrown, const tagMSG* message);
    // Called last on the thread: deletes the object if m_bAutoDelete is set.
    virtual void Delete();

    CWnd* m_pMainWnd = nullptr; // not owned
    BOOL m_bAutoDelete = TRUE;  // cleared for the application object
    HANDLE m_hThread = nullptr;
    DWORD m_nThreadID = 0; // 0 before it is created
    int m_nExitCode = 0;   // that PostQuitMessage named

private:
    // What runs on the new thread.
    static DWORD Entry(void* self);

    AFX_THREADPROC m_pfnThreadProc = nullptr;
    void* m_pThreadParams = nullptr;
};

// Null, with the last error, if the thread cannot be made or started. The second form makes an object of a
// class declared with DECLARE_DYNCREATE and derived from CWinThread.
COREKIT_API CWinThread* AfxBeginThread(AFX_THREADPROC procedure, void* parameter,
                                       int priority = THREAD_PRIORITY_NORMAL, UINT stackBytes = 0,
                                       DWORD flags = 0, void* attributes = nullptr);
COREKIT_API CWinThread* AfxBeginThread(CRuntimeClass* threadClass, int priority = THREAD_PRIORITY_NORMAL,
                                       UINT stackBytes = 0, DWORD flags = 0, void* attributes = nullptr);

// The object of the calling thread; the application object on the thread that made it; else null. An object
// that CreateThread started is current for as long as its thread runs.
COREKIT_API CWinThread* AfxGetThread();

namespace corekit::detail {
// Makes `thread` the calling thread's object, null for none; returns the one before.
CWinThread* setCurrentThreadObject(CWinThread* thread);
} // namespace corekit::detail
