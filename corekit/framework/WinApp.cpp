#include "corekit/framework/WinApp.h"

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
    corekit::detail::SetCurrentThreadObject(this);
}

CWinApp::~CWinApp()
{
    CWinApp* self = this;
    application.compare_exchange_strong(self, nullptr);
}

CWinApp* AfxGetApp() { return application; }
