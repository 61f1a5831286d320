#include "corekit/framework/WinApp.h"

#include "corekit/framework/ThreadWindows.h"

#include <atomic>

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace {
constinit std::atomic<CWinApp*> application = nullptr;
}

CWinApp::CWinApp(const char* appName) : m_pszAppName(appName ? appName : "")
{
    m_bAutoDelete = FALSE;
    m_nThreadID = GetCurrentThreadId();
    application = this;
    corekit::detail::setCurrentThreadObject(this);
}

CWinApp::~CWinApp()
{
    CWinApp* self = this;
    application.compare_exchange_strong(self, nullptr);
}

void CWinApp::DoWaitCursor(int change)
{
    if (const auto* const windows = corekit::detail::threadWindows()) windows->waitCursor(change);
}

CWinApp* AfxGetApp() { return application; }

BOOL AfxWinInit(HINSTANCE instance, HINSTANCE, const char* commandLine, int)
{
    CWinApp* const app = AfxGetApp();
    if (!app) return FALSE;
    app->m_hInstance = instance;
    app->m_lpCmdLine = commandLine ? commandLine : "";
    return TRUE;
}
