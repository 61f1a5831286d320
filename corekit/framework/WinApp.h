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

    const char* m_pszAppName;
    const char* m_lpCmdLine = ""; // without the program's name; set by whoever starts the application
    HINSTANCE m_hInstance = nullptr;
};

// The application object, or null before it is made and after it is gone.
COREKIT_API CWinApp* AfxGetApp();

// Tells the application object what the process was started with: the module, null for the program itself,
// and the command line without the program's name, which must outlive the object. The others are not used. 0
// if there is no application object yet.
COREKIT_API BOOL AfxWinInit(HINSTANCE instance, HINSTANCE previous, const char* commandLine, int show);
