// The application object: one per program, usually a static of a class derived from CWinApp. It stands for
// the thread that makes it.
//
// It is made before main runs and goes after it has ended, or lives on main's stack; never in two places, as
// the newest one counts. AfxWinInit tells it the command line; CWinThread::Run then runs the program, if it
// has a main window.
//
//     class CPrompterApp : public CWinApp {
//     public:
//         CPrompterApp() : CWinApp("Prompter") {}
//         BOOL InitInstance() override; // makes the main window and sets m_pMainWnd
//     };
//     CPrompterApp theApp;
//
//     int main(int argc, char** argv)
//     {
//         AfxWinInit(nullptr, nullptr, argc > 1 ? argv[1] : "", 1);
//         return theApp.InitInstance() ? theApp.Run() : theApp.ExitInstance();
//     }
#pragma once

#include "corekit/framework/WinThread.h"

class COREKIT_API CWinApp : public CWinThread {
    DECLARE_DYNAMIC(CWinApp)
public:
    // The name must outlive the object; null counts as "". The object becomes that of the calling thread
    // (AfxGetThread) and of the program (AfxGetApp).
    explicit CWinApp(const char* appName = nullptr);
    // Does not destroy the main window.
    ~CWinApp() override;

    // The cursor that asks for patience, over all windows: 1 begins, -1 ends, 0 shows it again. Counts.
    // User-interface thread; without the window library nothing happens. Ends beyond the begins are
    // disregarded.
    virtual void DoWaitCursor(int change);
    void BeginWaitCursor() { DoWaitCursor(1); }   // one more
    void EndWaitCursor() { DoWaitCursor(-1); }    // one less; the last one brings the cursor back
    void RestoreWaitCursor() { DoWaitCursor(0); } // changes nothing: it lies over all other cursors

    const char* m_pszAppName;        // titles message boxes; never null
    const char* m_lpCmdLine = "";    // without the program's name; set by whoever starts the application
    HINSTANCE m_hInstance = nullptr; // null for the program itself
};

// The application object, or null before it is made and after it is gone. Any thread; the object itself
// belongs to its own.
COREKIT_API CWinApp* AfxGetApp();

// Shows the waiting cursor for as long as it lives; nothing without an application object. User-interface
// thread; nests.
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

    void Restore() // as CWinApp::RestoreWaitCursor
    {
        if (CWinApp* const app = AfxGetApp()) app->RestoreWaitCursor();
    }
};

// Tells the application object what the process was started with: the module, null for the program itself,
// and the command line without the program's name, which must outlive the object. The others are not used. 0
// if there is no application object yet.
COREKIT_API BOOL AfxWinInit(HINSTANCE instance, HINSTANCE previous, const char* commandLine, int show);
