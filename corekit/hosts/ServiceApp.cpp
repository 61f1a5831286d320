#include "corekit/hosts/ServiceApp.h"

#include "corekit/logging/LogTarget.h"
#include "corekit/platform/Console.h"
#include "corekit/platform/Debugging.h"
#include "corekit/platform/EventLog.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Runtime.h"
#include "corekit/platform/Waits.h"
#include "corekit/stores/RegistryKey.h"

#include <cstdio>
#include <iterator>
#include <string>
#include <utility>

IMPLEMENT_DYNAMIC(CServiceApp, CConsoleApp)

namespace {

constexpr int badArgument = 100;
constexpr int noManager = 100;
constexpr int startFailed = -1;
constexpr DWORD waitHint = 60000;
constexpr WORD brightWhite = 15;
// So that a reader sees the last lines.
constexpr DWORD restAfterStop = 1000, restBeforeEnd = 2000;

// By number of the state, from 1.
constexpr const char* stateTexts[] = {
    "Service status set: SERVICE_STOPPED\n",          "Service status set: SERVICE_START_PENDING\n",
    "Service status set: SERVICE_STOP_PENDING\n",     "Service status set: SERVICE_RUNNING\n",
    "Service status set: SERVICE_CONTINUE_PENDING\n", "Service status set: SERVICE_PAUSE_PENDING\n",
    "Service status set: SERVICE_PAUSED\n",
};

bool is(const char* argument, const char* option) { return _stricmp(argument, option) == 0; }

} // namespace

CServiceApp* AfxGetService()
{
    CWinApp* const app = AfxGetApp();
    return app && app->IsKindOf(RUNTIME_CLASS(CServiceApp)) ? static_cast<CServiceApp*>(app) : nullptr;
}

CServiceApp::CServiceApp(const char* name) : CConsoleApp(name), m_name(name), m_progress(*this) {}

CServiceApp::~CServiceApp()
{
    SetConsoleCtrlHandler(ConsoleCtrlHandler, FALSE);
    if (m_stopEvent) CloseHandle(m_stopEvent);
}

int CServiceApp::RunConsoleApp(int argc, char** argv)
{
    m_isConsole = false;
    while (argc > 0) {
        if (is(argv[0], "-help")) return ShowHelp(), 0;
        if (is(argv[0], "-about")) return ShowAbout(), 0;
        if (is(argv[0], "-console")) {
            m_isConsole = true;
        } else if (is(argv[0], "-debugbreak")) {
            const auto before = std::pair(argc, argv);
            const char* const argument = argv[0];
            if (!ParseArgument(&argc, &argv)) {
                std::printf("Fatal: Service \"%s\" started with illegal argument \"%s\".\n"
                            "   Use \"-help\" for a list of legal arguments.\n",
                            m_name.GetString(), argument);
                return badArgument;
            }
            if (before != std::pair(argc, argv)) continue; // else nobody would ever pass it
        } else {
            DebugBreak();
        }
        --argc;
        ++argv;
    }
    if (m_stopEvent) CloseHandle(m_stopEvent);
    m_stopEvent = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    if (!m_stopEvent) return startFailed; // nothing could end the service
    return m_isConsole ? DoConsoleStart() : DoServiceStart();
}

void CServiceApp::ShowHelp()
{
    for (const char* line :
         {"Command line options:\n", "  -console           Run as a console-mode app instead of a service.\n",
          "  -help              Show this help page.\n",
          "  -debugbreak        Invoke debugger on startup (beta versions only).\n",
          "  -about             Display service version information.\n", "\n"})
        WriteConsoleA(line);
}

int CServiceApp::DoConsoleStart()
{
    SetConsoleTitleA(m_name);
    SetConsoleCtrlHandler(ConsoleCtrlHandler, TRUE);
    m_alerts.RegisterHook(AlertSinkTraceHook);
    const int result = RunService();
    Sleep(restBeforeEnd);
    return result;
}

int CServiceApp::DoServiceStart()
{
    m_eventSource = RegisterEventSourceA(nullptr, m_name);
    if (!m_eventSource) return noManager;
    m_alerts.RegisterHook(AlertSinkEventLogHook);
    std::string name = m_name.GetString();
    const SERVICE_TABLE_ENTRYA table[] = {{name.data(), ServiceMain}, {nullptr, nullptr}};
    int result = noManager;
    if (StartServiceCtrlDispatcherA(table))
        result = m_exitCode;
    else
        m_alerts.Alert(alertMajorError, "Failed to connect to service control manager");
    DeregisterEventSource(std::exchange(m_eventSource, nullptr));
    return result;
}

void CServiceApp::InternalServiceMain(unsigned long, char**)
{
    constexpr DWORD accepted = SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN;
    {
        const std::scoped_lock lock(m_statusLock);
        m_statusHandle = RegisterServiceCtrlHandlerA(m_name, ServiceCtrlHandler);
        m_status = {SERVICE_WIN32_OWN_PROCESS, SERVICE_START_PENDING, accepted, 0, 0, 0, waitHint};
    }
    if (!m_statusHandle) return m_alerts.Alert(alertMajorError, "Failed service control handler connect");
    if (CanPauseContinue()) {
        const std::scoped_lock lock(m_statusLock);
        m_status.dwControlsAccepted |= SERVICE_ACCEPT_PAUSE_CONTINUE;
    }
    SetStatus(SERVICE_START_PENDING);
    m_exitCode = RunService();
}

int CServiceApp::RunService()
{
    SetStatus(SERVICE_START_PENDING);
    if (!InitAlertSink()) {
        SetStatus(SERVICE_STOPPED);
        return startFailed;
    }
    const bool hasStarted = OnServiceStart() != 0;
    if (hasStarted) {
        SetStatus(SERVICE_RUNNING);
        m_alerts.Alert(alertInformation, m_name + " Started OK");
        WaitForStop();
    }
    SetStatus(SERVICE_STOP_PENDING);
    OnServiceStop();
    SetStatus(SERVICE_STOPPED);
    if (m_isConsole) Sleep(restAfterStop);
    return hasStarted ? m_exitCode.load() : startFailed;
}

bool CServiceApp::InitAlertSink()
try {
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, GetRegistryKeyName());
    CAlertSinkConfig config;
    config.LoadConfig(key);
    return m_alerts.Initialise(config, m_name) != 0;
} catch (CException* e) {
    m_alerts.AlertException(alertMajorError, "Failed to open service settings", e);
    e->Delete();
    return false;
}

void CServiceApp::WaitForStop()
{
    const DWORD interval = m_isConsole ? INFINITE : ServiceWatchdogInterval();
    while (WaitForSingleObject(m_stopEvent, interval) == WAIT_TIMEOUT) PingServiceWatchdog();
}

void CServiceApp::ExitService(int exitCode)
{
    m_exitCode = exitCode;
    SetEvent(m_stopEvent);
}

void CServiceApp::SetStatus(unsigned long state)
{
    if (!m_isConsole) {
        const std::scoped_lock lock(m_statusLock);
        m_status.dwCurrentState = static_cast<DWORD>(state);
        m_status.dwCheckPoint = 0;
        SetServiceStatus(m_statusHandle, &m_status);
    } else if (state >= 1 && state <= std::size(stateTexts)) {
        TraceGreen(stateTexts[state - 1]);
    } else {
        CString text;
        text.Format("Service status set: New status code %d\n", static_cast<int>(state));
        TraceRed(text);
    }
}

void CServiceApp::Checkpoint()
{
    if (m_isConsole) {
        const std::scoped_lock lock(m_consoleLock);
        WriteConsoleText("Checkpoint\n", brightWhite);
    } else {
        const std::scoped_lock lock(m_statusLock);
        ++m_status.dwCheckPoint;
        SetServiceStatus(m_statusHandle, &m_status);
    }
}

void CServiceApp::OnControlInterrogate()
{
    const std::scoped_lock lock(m_statusLock);
    SetServiceStatus(m_statusHandle, &m_status);
}

void CServiceApp::OnControlPause() { m_alerts.Alert(alertMajorError, "Invalid service control call"); }
void CServiceApp::OnControlContinue() { m_alerts.Alert(alertMajorError, "Invalid service control call"); }
void CServiceApp::OnControlUserDefined(unsigned long)
{
    m_alerts.Alert(alertMajorError, "Invalid service control call");
}

void CServiceApp::InternalServiceCtrlHandler(unsigned long code)
{
    switch (code) {
    case SERVICE_CONTROL_STOP:
        return OnControlStop();
    case SERVICE_CONTROL_PAUSE:
        return OnControlPause();
    case SERVICE_CONTROL_CONTINUE:
        return OnControlContinue();
    case SERVICE_CONTROL_INTERROGATE:
        return OnControlInterrogate();
    case SERVICE_CONTROL_SHUTDOWN:
        return OnControlShutdown();
    default:
        if (code >= SERVICE_CONTROL_USER_FIRST && code <= SERVICE_CONTROL_USER_LAST)
            OnControlUserDefined(code);
    }
}

int CServiceApp::InternalConsoleCtrlHandler(unsigned long event)
{
    if (event > CTRL_CLOSE_EVENT) return 0;
    OnControlStop();
    return 1;
}

void CServiceApp::WriteConsoleA(const char* text)
{
    const std::scoped_lock lock(m_consoleLock);
    WriteConsoleText(text);
}

void CServiceApp::Trace(unsigned short colour, const char* text)
{
    CString line = text;
    line.TrimRight("\n");
    if (m_isConsole) {
        const std::scoped_lock lock(m_consoleLock);
        WriteConsoleText(line + "\n", static_cast<WORD>(colour | FOREGROUND_INTENSITY));
    }
    if (CLogTarget* const log = m_traceLog) log->LogTraceMsg(line.GetString());
}

void CServiceApp::TraceBlue(const char* text) { Trace(1, text); }
void CServiceApp::TraceGreen(const char* text) { Trace(2, text); }
void CServiceApp::TraceCyan(const char* text) { Trace(3, text); }
void CServiceApp::TraceRed(const char* text) { Trace(4, text); }
void CServiceApp::TraceMagenta(const char* text) { Trace(5, text); }
void CServiceApp::TraceYellow(const char* text) { Trace(6, text); }
void CServiceApp::TraceWhite(const char* text) { Trace(7, text); }

void CServiceApp::LogEvent(eAlertCategory category, const char* text)
{
    const WORD type = category == alertInformation ? EVENTLOG_INFORMATION_TYPE
                      : category == alertWarning   ? EVENTLOG_WARNING_TYPE
                                                   : EVENTLOG_ERROR_TYPE;
    ReportEventA(m_eventSource, type, 0, 1, nullptr, 1, 0, &text, nullptr);
}

void CServiceApp::ServiceMain(DWORD argc, char** argv) { AfxGetService()->InternalServiceMain(argc, argv); }
void CServiceApp::ServiceCtrlHandler(DWORD code) { AfxGetService()->InternalServiceCtrlHandler(code); }

// May still come when the application object is gone.
BOOL CServiceApp::ConsoleCtrlHandler(DWORD event)
{
    CServiceApp* const app = AfxGetService();
    return app ? app->InternalConsoleCtrlHandler(event) : 0;
}

void CServiceApp::AlertSinkTraceHook(eAlertCategory category, const char* text)
{
    CServiceApp* const app = AfxGetService();
    const CString line = CString(text) + "\n";
    if (category == alertInformation)
        app->TraceGreen(line);
    else if (category == alertWarning)
        app->TraceYellow(line);
    else
        app->TraceRed(line);
}

void CServiceApp::AlertSinkEventLogHook(eAlertCategory category, const char* text)
{
    AfxGetService()->LogEvent(category, text);
}

// --- its progress sink

void CTraceProgressSink::DoSetStatus(const char* text) { m_app.TraceWhite(CString(text) + "\n"); }

int CTraceProgressSink::DoMessageBox(const char* text, unsigned int)
{
    m_app.TraceRed(CString(text) + "\n");
    return 0;
}
