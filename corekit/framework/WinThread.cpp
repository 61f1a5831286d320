#include "corekit/framework/WinThread.h"

#include "corekit/framework/Exception.h"
#include "corekit/framework/ThreadWindows.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Messages.h"

#include <atomic>
#include <new>
#include <utility>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

namespace {
constinit thread_local CWinThread* current = nullptr;
constinit std::atomic<const corekit::ThreadWindows*> installed = nullptr;

constexpr DWORD startFailed = 0xFFFFFFFF; // from ResumeThread

CWinThread* begun(CWinThread* thread, int priority, UINT stackBytes, DWORD flags, void* attributes)
{
    if (!thread) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    bool stands = thread->CreateThread(flags | CREATE_SUSPENDED, stackBytes, attributes);
    if (stands && priority != THREAD_PRIORITY_NORMAL) thread->SetThreadPriority(priority);
    if (stands && !(flags & CREATE_SUSPENDED)) stands = thread->ResumeThread() != startFailed;
    if (stands) return thread;
    const DWORD why = GetLastError();
    thread->Delete();
    SetLastError(why);
    return nullptr;
}
} // namespace

CWinThread::CWinThread(AFX_THREADPROC procedure, void* parameter)
    : m_pfnThreadProc(procedure), m_pThreadParams(parameter)
{
}

CWinThread::~CWinThread()
{
    if (current == this) current = nullptr;
    if (m_hThread) CloseHandle(m_hThread);
}

BOOL CWinThread::CreateThread(DWORD flags, UINT stackBytes, void* attributes)
{
    if (m_hThread) return FALSE;
    m_hThread = ::CreateThread(attributes, stackBytes, &Entry, this, flags | CREATE_SUSPENDED, &m_nThreadID);
    if (!m_hThread) return FALSE;
    if ((flags & CREATE_SUSPENDED) || ::ResumeThread(m_hThread) != startFailed) return TRUE;
    const DWORD why = GetLastError();
    CloseHandle(std::exchange(m_hThread, nullptr));
    SetLastError(why);
    return FALSE;
}

DWORD CWinThread::Entry(void* self)
{
    CWinThread* thread = static_cast<CWinThread*>(self);
    current = thread;
    DWORD result;
    if (thread->m_pfnThreadProc)
        result = thread->m_pfnThreadProc(thread->m_pThreadParams);
    else
        result = static_cast<DWORD>(thread->InitInstance() ? thread->Run() : thread->ExitInstance());
    thread->Delete();
    current = nullptr;
    return result;
}

int CWinThread::Run()
{
    const auto* const windows = corekit::detail::threadWindows();
    if (windows && m_pMainWnd) m_nExitCode = windows->run(*this);
    return ExitInstance();
}

BOOL CWinThread::PumpMessage()
{
    const auto* const windows = corekit::detail::threadWindows();
    return windows && windows->pump(*this);
}

BOOL CWinThread::PreTranslateMessage(MSG* message)
{
    const auto* const windows = corekit::detail::threadWindows();
    return windows && windows->preTranslate(*this, message);
}

BOOL CWinThread::OnIdle(LONG count)
{
    const auto* const windows = corekit::detail::threadWindows();
    return windows && windows->idle(*this, count);
}

LRESULT CWinThread::ProcessWndProcException(CException* thrown, const MSG* message)
{
    thrown->ReportError();
    thrown->Delete();
    return message->message == WM_CREATE ? -1 : 0;
}

void CWinThread::Delete()
{
    if (m_bAutoDelete) delete this;
}

CWinThread* AfxBeginThread(AFX_THREADPROC procedure, void* parameter, int priority, UINT stackBytes,
                           DWORD flags, void* attributes)
{
    return begun(new (std::nothrow) CWinThread(procedure, parameter), priority, stackBytes, flags,
                 attributes);
}

CWinThread* AfxBeginThread(CRuntimeClass* threadClass, int priority, UINT stackBytes, DWORD flags,
                           void* attributes)
{
    if (!threadClass || !threadClass->IsDerivedFrom(RUNTIME_CLASS(CWinThread))) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return begun(static_cast<CWinThread*>(threadClass->CreateObject()), priority, stackBytes, flags,
                 attributes);
}

CWinThread* AfxGetThread() { return current; }

CWinThread* corekit::detail::setCurrentThreadObject(CWinThread* thread)
{
    return std::exchange(current, thread);
}

void corekit::setThreadWindows(const ThreadWindows* windows) { installed = windows; }
const corekit::ThreadWindows* corekit::detail::threadWindows() { return installed; }
