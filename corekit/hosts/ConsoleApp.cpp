#include "corekit/hosts/ConsoleApp.h"

#include <cstdio>
#include <string>

IMPLEMENT_DYNAMIC(CConsoleApp, CWinApp)

int CConsoleApp::StartConsoleApp(const char* appName, int argc, char** argv)
{
    static std::string commandLine; // the framework keeps the pointer
    commandLine.clear();
    for (int i = 0; i < argc; ++i) commandLine.append(i > 0 ? " " : "").append(argv[i]);
    if (!AfxWinInit(nullptr, nullptr, commandLine.c_str(), 0)) {
        std::printf("%s: FATAL: AFX Init Failed\n", appName ? appName : "");
        return -100;
    }
    return RunConsoleApp(argc, argv);
}
