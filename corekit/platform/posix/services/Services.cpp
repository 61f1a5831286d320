#include "corekit/platform/Services.h"

#include "corekit/platform/Handles.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/services/ControlSocket.h"
#include "corekit/platform/posix/services/SignalReader.h"
#include "corekit/platform/posix/services/StatusText.h"
#include "corekit/platform/Threads.h"
#include "corekit/platform/Waits.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <systemd/sd-daemon.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace corekit::detail;

// One run of a service, from the dispatcher's start to its return.
class ServiceRun {
public:
    explicit ServiceRun(const SERVICE_TABLE_ENTRYA& entry)
        : m_name(entry.lpServiceName), m_main(entry.lpServiceProc), m_controls(m_name)
    {
    }

    bool run();

    // On the service's thread.
    bool setHandler(const char* name, LPHANDLER_FUNCTION handler);
    void setStatus(const SERVICE_STATUS& status);

private:
    static DWORD serviceThread(void* self);
    void readControls();
    void claimSignals();
    void deliver();

    const std::string m_name;
    const LPSERVICE_MAIN_FUNCTIONA m_main;
    SignalReader m_signals;
    ControlSocket m_controls;
    std::vector<DWORD> m_waiting; // controls that were not delivered yet
    std::atomic<LPHANDLER_FUNCTION> m_handler = nullptr;
    std::atomic<DWORD> m_accepted = SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN;
    std::atomic<bool> m_hasEnded = false;
};

constinit std::atomic<ServiceRun*> current = nullptr;

bool hasVariable(const char* name)
{
    const char* const value = ::getenv(name);
    return value && *value;
}

bool hasManager() { return hasVariable("NOTIFY_SOCKET"); }
bool startedByUser() { return !hasManager() && !hasVariable("INVOCATION_ID") && ::isatty(STDIN_FILENO); }

bool greetManager() { return sd_notifyf(0, "MAINPID=%d\nSTATUS=Starting", static_cast<int>(::getpid())) > 0; }

DWORD controlOf(int signal)
{
    switch (signal) {
    case SIGTSTP:
        return SERVICE_CONTROL_PAUSE;
    case SIGCONT:
        return SERVICE_CONTROL_CONTINUE;
    default:
        return SERVICE_CONTROL_STOP;
    }
}

bool accepts(DWORD accepted, DWORD control)
{
    switch (control) {
    case SERVICE_CONTROL_STOP:
        return accepted & SERVICE_ACCEPT_STOP;
    case SERVICE_CONTROL_PAUSE:
    case SERVICE_CONTROL_CONTINUE:
        return accepted & SERVICE_ACCEPT_PAUSE_CONTINUE;
    case SERVICE_CONTROL_SHUTDOWN:
        return accepted & SERVICE_ACCEPT_SHUTDOWN;
    default:
        return true;
    }
}

bool ServiceRun::run()
{
    m_signals.claim(SIGTERM);
    m_signals.claim(SIGINT);
    const HANDLE thread = CreateThread(nullptr, 0, serviceThread, this, 0, nullptr);
    if (thread == nullptr) return false;
    while (!m_hasEnded) {
        // Without a control socket its descriptor is below 0 and passed over.
        pollfd waiting[] = {{m_signals.descriptor(), POLLIN, 0}, {m_controls.descriptor(), POLLIN, 0}};
        ::poll(waiting, 2, -1);
        readControls();
        claimSignals();
        if (m_handler.load()) deliver();
    }
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    return true;
}

DWORD ServiceRun::serviceThread(void* self)
{
    auto* const run = static_cast<ServiceRun*>(self);
    std::string name = run->m_name;
    char* arguments[] = {name.data(), nullptr};
    run->m_main(1, arguments);
    run->m_hasEnded = true;
    run->m_signals.wake();
    return 0;
}

void ServiceRun::readControls()
{
    for (int signal; (signal = m_signals.next()) >= 0;)
        if (signal > 0) m_waiting.push_back(controlOf(signal));
    while (const DWORD control = m_controls.next()) m_waiting.push_back(control);
}

// A service that cannot pause is stopped by these as any program is.
void ServiceRun::claimSignals()
{
    const bool canPause = m_accepted & SERVICE_ACCEPT_PAUSE_CONTINUE;
    for (const int signal : {SIGTSTP, SIGCONT})
        canPause ? m_signals.claim(signal) : m_signals.release(signal);
}

void ServiceRun::deliver()
{
    for (const DWORD control : std::exchange(m_waiting, {}))
        if (accepts(m_accepted, control)) m_handler.load()(control);
}

bool ServiceRun::setHandler(const char* name, LPHANDLER_FUNCTION handler)
{
    if (m_name != name) return false;
    m_handler = handler;
    m_signals.wake();
    return true;
}

void ServiceRun::setStatus(const SERVICE_STATUS& status)
{
    const bool isPending =
        status.dwCurrentState == SERVICE_START_PENDING || status.dwCurrentState == SERVICE_STOP_PENDING;
    std::string message = "STATUS=" + statusText(status);
    if (status.dwCurrentState == SERVICE_RUNNING)
        message += "\nREADY=1\nMAINPID=" + std::to_string(::getpid());
    if (status.dwCurrentState == SERVICE_STOP_PENDING) message += "\nSTOPPING=1";
    if (isPending && status.dwCheckPoint > 0)
        message += "\nEXTEND_TIMEOUT_USEC=" + std::to_string(std::uint64_t{status.dwWaitHint} * 1000);
    sd_notify(0, message.c_str());
    if (m_accepted.exchange(status.dwControlsAccepted) != status.dwControlsAccepted) m_signals.wake();
}

} // namespace

BOOL StartServiceCtrlDispatcherA(const SERVICE_TABLE_ENTRYA* table)
{
    if (table == nullptr || table->lpServiceName == nullptr || table->lpServiceProc == nullptr)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (startedByUser() || (hasManager() && !greetManager()))
        return fail(ERROR_FAILED_SERVICE_CONTROLLER_CONNECT, FALSE);
    ServiceRun run(*table);
    ServiceRun* none = nullptr;
    if (!current.compare_exchange_strong(none, &run)) return fail(ERROR_BUSY, FALSE);
    const bool hasRun = run.run();
    current = nullptr;
    return hasRun;
}

SERVICE_STATUS_HANDLE RegisterServiceCtrlHandlerA(const char* name, LPHANDLER_FUNCTION handler)
{
    ServiceRun* const run = current;
    if (run == nullptr || name == nullptr || handler == nullptr || !run->setHandler(name, handler))
        return fail(ERROR_INVALID_PARAMETER, SERVICE_STATUS_HANDLE{});
    return reinterpret_cast<SERVICE_STATUS_HANDLE>(run);
}

BOOL SetServiceStatus(SERVICE_STATUS_HANDLE service, SERVICE_STATUS* status)
{
    ServiceRun* const run = current;
    if (run == nullptr || reinterpret_cast<ServiceRun*>(service) != run)
        return fail(ERROR_INVALID_HANDLE, FALSE);
    if (status == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    run->setStatus(*status);
    return TRUE;
}

DWORD ServiceWatchdogInterval()
{
    std::uint64_t microseconds = 0;
    if (sd_watchdog_enabled(0, &microseconds) <= 0) return INFINITE;
    return static_cast<DWORD>(std::clamp<std::uint64_t>(microseconds / 2000, 1, INFINITE - 1));
}

void PingServiceWatchdog() { sd_notify(0, "WATCHDOG=1"); }

BOOL SendServiceControl(const char* name, DWORD control)
{
    const int error = ControlSocket::send(name ? name : "", control);
    return error == 0 ? TRUE : fail(errorFromErrno(error), FALSE);
}
