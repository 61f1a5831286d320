// CServiceApp: one program that is a service, and with "-console" a console program that does the same in
// sight.
//
// Derive from it, say what the service does, and start it from main:
//
//     int main(int argc, char** argv)
//     {
//         CUploadService service;
//         return service.StartConsoleApp("Script Upload", argc - 1, argv + 1);
//     }
//
// The frame calls OnServiceStart, which starts the work and returns; then it waits until somebody calls
// ExitService, calls OnServiceStop, and ends the process with the code given to ExitService, or with -1 if
// the start failed. Controls come on another thread: their handlers call ExitService, or note what is wanted,
// and return soon.
//
// As a service it tells its states to the service manager (platform/Services.h) and its alerts to the
// system's log; a watchdog that the manager asks for is pinged while the frame waits. On the console both
// appear in colour, and Ctrl-C stops it. docs/services.md shows the way from a class to a unit file.
//
// Options, in any case of letters: -console, -help, -about, -debugbreak. The last one goes to ParseArgument;
// an argument that is none of them stops in the debugger and is dropped.
//
// Tracing, ExitService and alerts may be used on any thread; SetStatus and Checkpoint belong to the one that
// OnServiceStart is called on. What a handler throws is not caught here.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/hosts/ConsoleApp.h"
#include "corekit/hosts/TraceProgressSink.h"
#include "corekit/logging/AlertSink.h"
#include "corekit/platform/Services.h"

#include <atomic>
#include <mutex>

class CLogTarget;

class COREKIT_API CServiceApp : public CConsoleApp {
    DECLARE_DYNAMIC(CServiceApp)
public:
    // The name of the service, of its events and of the console's window.
    explicit CServiceApp(const char* name);
    ~CServiceApp() override;

    // 0 after -help and -about; 100 for an argument that ParseArgument refuses, and if the service manager or
    // the system's log cannot be reached.
    int RunConsoleApp(int argc, char** argv) override;

    // Tells one of the SERVICE_ states. The frame tells start, running, stop and stopped itself.
    void SetStatus(unsigned long state);
    // Says in a long start or stop that it goes on; the manager then waits for 60 seconds more.
    void Checkpoint();

    // A line to the console, in bright colour, if there is one, and to the trace log. Line ends at the end of
    // the text count for nothing.
    void Trace(unsigned short colour, const char* text);
    void TraceWhite(const char* text);
    void TraceRed(const char* text);
    void TraceGreen(const char* text);
    void TraceBlue(const char* text);
    void TraceYellow(const char* text);
    void TraceCyan(const char* text);
    void TraceMagenta(const char* text);

    CAlertSink* GetAlertSink() { return &m_alerts; }
    CProgressSink* GetTraceProgressSink() { return &m_progress; }

protected:
    // Nonzero if the work has been started.
    virtual int OnServiceStart() = 0;
    // Stops the work; also called after a start that failed.
    virtual void OnServiceStop() = 0;
    // The key below HKEY_LOCAL_MACHINE that holds the service's settings. Where it can neither be opened nor
    // made, the start has failed before OnServiceStart, which is reported.
    virtual CString GetRegistryKeyName() = 0;
    // Calls ExitService.
    virtual void OnControlStop() = 0;
    // The bodies here alert that the call is invalid.
    virtual void OnControlPause() = 0;
    virtual void OnControlContinue() = 0;
    // Calls ExitService.
    virtual void OnControlShutdown() = 0;
    // Codes 128 to 255. The body here alerts that the call is invalid.
    virtual void OnControlUserDefined(unsigned long code) = 0;
    // Asked once. Nonzero if the manager may pause the service.
    virtual int CanPauseContinue() = 0;
    virtual void ShowAbout() = 0;
    // Nonzero after moving both past what was understood; 0 ends the program.
    virtual int ParseArgument(int* argc, char*** argv) = 0;

    // Ends the waiting of the frame; any thread.
    void ExitService(int exitCode);
    int IsConsoleMode() const { return m_isConsole; }
    // To standard output as it stands.
    void WriteConsoleA(const char* text);
    // Where Trace also writes; stays the caller's, null for none.
    void SetTraceLogTarget(CLogTarget* target) { m_traceLog = target; }

private:
    void ShowHelp();
    int DoConsoleStart();
    int DoServiceStart();
    int RunService();
    bool InitAlertSink(); // false with an alert where the settings cannot be had
    void WaitForStop();
    void LogEvent(eAlertCategory category, const char* text);
    void OnControlInterrogate();
    void InternalServiceMain(unsigned long argc, char** argv);
    void InternalServiceCtrlHandler(unsigned long code);
    int InternalConsoleCtrlHandler(unsigned long event);

    static void ServiceMain(DWORD argc, char** argv);
    static void ServiceCtrlHandler(DWORD code);
    static BOOL ConsoleCtrlHandler(DWORD event);
    static void AlertSinkTraceHook(eAlertCategory category, const char* text);
    static void AlertSinkEventLogHook(eAlertCategory category, const char* text);

    CString m_name;
    // Whether the program was started with -console.
    bool m_isConsole = false;
    CAlertSink m_alerts;
    HANDLE m_stopEvent = nullptr;
    std::atomic<int> m_exitCode = 0;
    HANDLE m_eventSource = nullptr;
    std::mutex m_statusLock; // guards the next two
    SERVICE_STATUS_HANDLE m_statusHandle = nullptr;
    SERVICE_STATUS m_status{};
    std::mutex m_consoleLock;
    std::atomic<CLogTarget*> m_traceLog = nullptr;
    CTraceProgressSink m_progress;
};

// The application object, if it is a CServiceApp; else null.
COREKIT_API CServiceApp* AfxGetService();
