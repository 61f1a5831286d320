// The application object: one per program, usually a static of a class derived from CWinApp. It stands for
// the thread that makes it.
#pragma once

#include "corekit/framework/WinThread.h"

class COREKIT_API CWinApp : public CWinThread {
    DECLARE_DYNAMIC(CWinApp)
public:
    // The name must outlive the object; null counts as "".
    explicit CWinApp(const char* appName = nullptr);
    ~CWinApp() override;

    // The cursor that asks for patience, over all windows: 1 begins, -1 ends, 0 shows it again. Counts.
    virtual void DoWaitCursor(int change);
    void BeginWaitCursor() { DoWaitCursor(1); }
    void EndWaitCursor() { DoWaitCursor(-1); }
    void RestoreWaitCursor() { DoWaitCursor(0); }

    const char* m_pszAppName;
    const char* m_lpCmdLine = ""; // without the program's name; set by whoever starts the application
    HINSTANCE m_hInstance = nullptr;
};

// The application object, or null before it is made and after it is gone.
COREKIT_API CWinApp* AfxGetApp();

// Shows the waiting cursor for as long as it lives; nothing without an application object.
class CWaitCursor {
public:
    CWaitCursor()
    {
        if (CWinApp* const app = AfxGetApp()) app->BeginWaitCursor();
    }
    ~CWaitCursor()
    {
        if (CWinApp* const app = AfxGetApp()) app->EndWaitCursor();
    }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    void Restore()
    {
        if (CWinApp* const app = AfxGetApp()) app->RestoreWaitCursor();
    }
};

// Tells the application object what the process was started with: the module, null for the program itself,
// and the command line without the program's name, which must outlive the object. The others are not used. 0
// if there is no application object yet.
COREKIT_API BOOL AfxWinInit(HINSTANCE instance, HINSTANCE previous, const char* commandLine, int show);
