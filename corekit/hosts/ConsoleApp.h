// CConsoleApp: the application object of a program without windows.
//
//     class CReport : public CConsoleApp {
//     public:
//         CReport() : CConsoleApp("Report") {}
//         int RunConsoleApp(int argc, char** argv) override;
//     };
//     int main(int argc, char** argv) { return CReport().StartConsoleApp("Report", argc - 1, argv + 1); }
#pragma once

#include "corekit/framework/WinApp.h"

class COREKIT_API CConsoleApp : public CWinApp {
    DECLARE_DYNAMIC(CConsoleApp)
public:
    // The name must outlive the object.
    explicit CConsoleApp(const char* appName) : CWinApp(appName) {}

    // Makes the framework ready and runs the program on the arguments, which leave out the program's name.
    // The result of RunConsoleApp, or -100 and a line on standard output if the framework cannot be made
    // ready.
    int StartConsoleApp(const char* appName, int argc, char** argv);

    // The program; its result is the process's.
    virtual int RunConsoleApp(int argc, char** argv) = 0;
};
