#include "tests/hosts/TestService.h"

#include "corekit/hosts/ServiceApp.h"
#include "corekit/logging/LogTarget.h"

#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <syslog.h>
#include <unistd.h>

namespace {

class CTestService : public CServiceApp {
public:
    CTestService() : CServiceApp("Test Service") {}

protected:
    int OnServiceStart() override
    {
        if (const char* file = std::getenv("TEST_LOG")) m_log.CreateLogFile(file, "", 0);
        GetAlertSink()->SetLogTarget(&m_log);
        SetTraceLogTarget(&m_log);
        Checkpoint();
        Checkpoint();
        if (!IsConsoleMode()) return std::getenv("TEST_FAILS") == nullptr;
        TraceCyan("three ends\n\n\n");
        TraceBlue("");
        SetStatus(99);
        CProgressSink* const progress = GetTraceProgressSink();
        progress->SetStatus("sending");
        progress->SetPos(50);
        progress->MessageBoxA("trouble", 0);
        GetAlertSink()->Alert(alertWarning, "careful");
        return 1;
    }
    void OnServiceStop() override
    {
        Checkpoint();
        Note("stopping");
    }
    CString GetRegistryKeyName() override { return "Software\\Corvane\\Test Service"; }
    void OnControlStop() override { Note("stop"), ExitService(7); }
    void OnControlPause() override
    {
        Note("pause");
        CServiceApp::OnControlPause();
    }
    void OnControlContinue() override { Note("continue"); }
    void OnControlShutdown() override { Note("shutdown"), ExitService(8); }
    void OnControlUserDefined(unsigned long code) override
    {
        Note(("user " + std::to_string(code)).c_str());
        CServiceApp::OnControlUserDefined(code);
    }
    int CanPauseContinue() override { return std::getenv("TEST_PAUSES") != nullptr; }
    void ShowAbout() override { std::printf("Test Service 1.0\n"); }
    // Takes "-debugbreak yes".
    int ParseArgument(int* argc, char*** argv) override
    {
        if (*argc < 2 || std::string((*argv)[1]) != "yes") {
            --*argc, ++*argv; // looked at, and refused
            return 0;
        }
        *argc -= 2;
        *argv += 2;
        return 1;
    }

private:
    void Note(const char* text) { m_log.LogDebugMsg(text); }

    CLogTarget m_log;
};

void NoteEvent(int priority, const std::string& text)
{
    const char* const file = std::getenv("TEST_EVENTS");
    if (file) std::ofstream(file, std::ios::app) << priority << " " << text << "\n";
}

} // namespace

// They stand in for the system's log, whichever of the two this machine has.
extern "C" [[gnu::visibility("default")]] void syslog(int priority, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    char text[1024];
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    NoteEvent(LOG_PRI(priority), text);
}

// Called with MESSAGE, PRIORITY and SYSLOG_IDENTIFIER as the first three fields.
extern "C" [[gnu::visibility("default")]] int sd_journal_send_with_location(const char*, const char*,
                                                                            const char*, const char*, ...);
extern "C" int sd_journal_send_with_location(const char*, const char*, const char*, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const std::string message = va_arg(arguments, const char*);
    va_arg(arguments, const char*);
    const int priority = va_arg(arguments, int);
    va_arg(arguments, const char*);
    NoteEvent(priority, std::string(va_arg(arguments, const char*)) + ": " + message);
    va_end(arguments);
    return 0;
}

int RunTestService(int argc, char** argv)
{
    if (std::getenv("TEST_IGNORES_TRAP"))
        signal(SIGTRAP, [](int) { static_cast<void>(!write(1, "trap\n", 5)); });
    CTestService service;
    return service.StartConsoleApp("test_hosts", argc, argv);
}
