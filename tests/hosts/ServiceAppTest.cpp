#include "tests/hosts/Child.h"
#include "tests/hosts/NotifySocket.h"
#include "tests/support/RegistryHome.h"

#include "corekit/platform/Services.h"

#include <sstream>

namespace {

class ServiceApp : public RegistryHome {
protected:
    using Environment = std::map<std::string, std::string>;

    // The service as a process, with whose manager the test speaks.
    Child Start(std::vector<std::string> arguments, Environment environment = {},
                Child::Stdout out = Child::Stdout::Pipe) const
    {
        arguments.insert(arguments.begin(), "--service");
        environment.emplace("TEST_LOG", folder / "log");
        environment.emplace("TEST_EVENTS", folder / "events");
        environment.emplace("XDG_RUNTIME_DIR", folder.Path());
        environment.emplace("NOTIFY_SOCKET", manager.Path());
        return {"/proc/self/exe", std::move(arguments), environment, out};
    }
    // What the log has of that level, without its times.
    std::string Logged(const std::string& level) const
    {
        std::istringstream text(ReadWhole(folder / "log.log"));
        std::string logged;
        for (std::string line; std::getline(text, line);)
            if (line.size() >= 39 && line.substr(21, level.size()) == level) logged += line.substr(39) + "|";
        return logged;
    }
    // Waits until the service has noted the text.
    bool Heard(const std::string& text) const
    {
        for (int turn = 0; turn < 1000; ++turn) {
            if (Logged("Debug").find(text) != std::string::npos) return true;
            usleep(10000);
        }
        return false;
    }
    // Reads the manager's messages up to the one that says it is running.
    bool IsRunning(const Child& service)
    {
        for (std::string message; message != "nothing";) {
            message = manager.Next();
            if (message.find("READY=1") != std::string::npos)
                return message == "STATUS=Running READY=1 MAINPID=" + std::to_string(service.Pid());
        }
        return false;
    }
    bool Send(DWORD control) const
    {
        setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
        return SendServiceControl("Test Service", control);
    }

    TempFolder folder;
    mutable NotifySocket manager;
};

TEST_F(ServiceApp, HelpAboutAndWrongCommandLinesStartNothing)
{
    const std::string help = "Command line options:\n"
                             "  -console           Run as a console-mode app instead of a service.\n"
                             "  -help              Show this help page.\n"
                             "  -debugbreak        Invoke debugger on startup (beta versions only).\n"
                             "  -about             Display service version information.\n"
                             "\n";
    const std::string refused =
        "Fatal: Service \"Test Service\" started with illegal argument \"-debugbreak\".\n"
        "   Use \"-help\" for a list of legal arguments.\n";
    const struct {
        std::vector<std::string> arguments;
        int result;
        std::string said;
    } cases[] = {{{"-help"}, 0, help},
                 {{"-HELP", "-debugbreak", "no"}, 0, help},
                 {{"-Console", "-help"}, 0, help},
                 {{"-about"}, 0, "Test Service 1.0\n"},
                 {{"-debugbreak", "yes", "-About"}, 0, "Test Service 1.0\n"},
                 {{"-debugbreak", "no"}, 100, refused},
                 {{"-debugbreak"}, 100, refused},
                 {{"plain", "-about"}, 0, "Test Service 1.0\n"}};
    for (const auto& [arguments, result, said] : cases) {
        Child service = Start(arguments);
        EXPECT_EQ(service.End(), result);
        EXPECT_EQ(service.Said(), said);
    }
    Child trapped = Start({"plain", "-about"}, {{"TEST_IGNORES_TRAP", "1"}});
    EXPECT_EQ(trapped.End(), 0);
    EXPECT_EQ(trapped.Said(), "trap\nTest Service 1.0\n");
}

TEST_F(ServiceApp, ReportsEveryStateToItsManager)
{
    Child service = Start({}, {{"WATCHDOG_USEC", "50000"}});
    const std::string pid = "MAINPID=" + std::to_string(service.Pid());
    EXPECT_EQ(manager.Next(), pid + " STATUS=Starting");
    EXPECT_EQ(manager.Next(), "STATUS=Starting");
    EXPECT_EQ(manager.Next(), "STATUS=Starting");
    EXPECT_EQ(manager.Next(), "STATUS=Starting, step 1 EXTEND_TIMEOUT_USEC=60000000");
    EXPECT_EQ(manager.Next(), "STATUS=Starting, step 2 EXTEND_TIMEOUT_USEC=60000000");
    EXPECT_EQ(manager.Next(), "STATUS=Running READY=1 " + pid);
    EXPECT_EQ(manager.Next(), "WATCHDOG=1");
    EXPECT_EQ(manager.Next(), "WATCHDOG=1");
    service.Signal(SIGTERM);
    std::string message;
    while ((message = manager.Next()) == "WATCHDOG=1") {
    }
    EXPECT_EQ(message, "STATUS=Stopping STOPPING=1");
    EXPECT_EQ(manager.Next(), "STATUS=Stopping, step 1 STOPPING=1 EXTEND_TIMEOUT_USEC=60000000");
    EXPECT_EQ(manager.Next(), "STATUS=Stopped");
    EXPECT_EQ(service.End(), 7);
    EXPECT_EQ(service.Said(), "");
    EXPECT_EQ(Logged("Debug"), "stop|stopping|");
    EXPECT_EQ(ReadWhole(folder / "events"), "6 Test Service: Test Service Started OK\n");
}

TEST_F(ServiceApp, AFailedStartIsReportedAndEndsWithMinusOne)
{
    Child service = Start({}, {{"TEST_FAILS", "1"}});
    EXPECT_EQ(service.End(), 255);
    EXPECT_EQ(Logged("Debug"), "stopping|");
    std::string last;
    for (int i = 0; i < 8; ++i) EXPECT_EQ((last = manager.Next()).find("READY"), std::string::npos);
    EXPECT_EQ(last, "STATUS=Stopped");
}

TEST_F(ServiceApp, WithoutItsSettingsItSaysSoAndDoesNotStart)
{
    Child service = Start({}, {{"COREKIT_HOME", "/proc/none"}});
    EXPECT_EQ(service.End(), 255);
    EXPECT_EQ(ReadWhole(folder / "events").rfind("3 Test Service: Failed to open service settings\n", 0), 0u);
    EXPECT_FALSE(std::filesystem::exists(folder / "log.log")) << "it began its work";
}

TEST_F(ServiceApp, ControlsComeBySignalAndSocket)
{
    Child service = Start({}, {{"TEST_PAUSES", "1"}});
    ASSERT_TRUE(IsRunning(service));
    service.Signal(SIGTSTP);
    EXPECT_TRUE(Heard("pause"));
    service.Signal(SIGCONT);
    EXPECT_TRUE(Heard("continue"));
    EXPECT_TRUE(Send(SERVICE_CONTROL_INTERROGATE));
    EXPECT_EQ(manager.Next().rfind("STATUS=Running READY=1", 0), 0u);
    for (const DWORD nothing : {0u, 6u, 127u, 256u}) EXPECT_TRUE(Send(nothing));
    EXPECT_TRUE(Send(128));
    EXPECT_TRUE(Send(255));
    EXPECT_TRUE(Send(SERVICE_CONTROL_SHUTDOWN));
    EXPECT_EQ(service.End(), 8);
    EXPECT_EQ(Logged("Debug"), "pause|continue|user 128|user 255|shutdown|stopping|");
    EXPECT_EQ(Logged("MajorError"),
              "Invalid service control call|Invalid service control call|Invalid service control call|");
    EXPECT_FALSE(Send(128)) << "it is gone";
}

TEST_F(ServiceApp, OneThatCannotPauseHearsNothingOfIt)
{
    Child service = Start({});
    ASSERT_TRUE(IsRunning(service));
    EXPECT_TRUE(Send(SERVICE_CONTROL_PAUSE));
    EXPECT_TRUE(Send(200));
    EXPECT_TRUE(Heard("user 200"));
    service.Signal(SIGINT);
    EXPECT_EQ(service.End(), 7);
    EXPECT_EQ(Logged("Debug"), "user 200|stop|stopping|");
}

TEST_F(ServiceApp, RunsWithoutAManagerButNotWithADeadOne)
{
    Child alone = Start({}, {{"NOTIFY_SOCKET", ""}});
    for (int turn = 0; turn < 1000 && Logged("Information").find("Started OK") == std::string::npos; ++turn)
        usleep(10000);
    alone.Signal(SIGTERM);
    EXPECT_EQ(alone.End(), 7);
    Child lost = Start({}, {{"NOTIFY_SOCKET", folder / "nobody"}, {"TEST_EVENTS", folder / "lost"}});
    EXPECT_EQ(lost.End(), 100);
    EXPECT_EQ(ReadWhole(folder / "lost"), "3 Test Service: Failed to connect to service control manager\n");
}

TEST_F(ServiceApp, OnTheConsoleItIsPlainInAPipeAndColouredOnATerminal)
{
    const char green[] = "\x1B[92m", red[] = "\x1B[91m", yellow[] = "\x1B[93m", blue[] = "\x1B[94m",
               cyan[] = "\x1B[96m", white[] = "\x1B[97m";
    const struct {
        const char *colour, *text;
    } lines[] = {{green, "Service status set: SERVICE_START_PENDING"},
                 {white, "Checkpoint"},
                 {white, "Checkpoint"},
                 {cyan, "three ends"},
                 {blue, ""},
                 {red, "Service status set: New status code 99"},
                 {white, "sending"},
                 {red, "trouble"},
                 {yellow, "careful"},
                 {green, "Service status set: SERVICE_RUNNING"},
                 {green, "Test Service Started OK"},
                 {green, "Service status set: SERVICE_STOP_PENDING"},
                 {white, "Checkpoint"},
                 {green, "Service status set: SERVICE_STOPPED"}};
    std::string plain, coloured = "\x1B]0;Test Service\a";
    for (const auto& [colour, text] : lines) {
        plain += std::string(text) + "\n";
        coloured += std::string(colour) + text + "\x1B[0m\r\n";
    }
    Child piped = Start({"plain", "-console"});
    Child shown = Start({"-CONSOLE"}, {{"TEST_LOG", folder / "shown"}}, Child::Stdout::Terminal);
    EXPECT_TRUE(piped.WaitFor("Started OK\n"));
    EXPECT_TRUE(shown.WaitFor("Started OK\x1B[0m\r\n"));
    piped.Signal(SIGINT);
    shown.Signal(SIGHUP);
    EXPECT_EQ(piped.End(), 7);
    EXPECT_EQ(shown.End(), 7);
    EXPECT_EQ(piped.Said(), plain);
    EXPECT_EQ(shown.Said(), coloured);
    EXPECT_EQ(Logged("Trace"),
              "three ends||Service status set: New status code 99|sending|trouble|careful|"
              "Service status set: SERVICE_RUNNING|Test Service Started OK|"
              "Service status set: SERVICE_STOP_PENDING|Service status set: SERVICE_STOPPED|");
    EXPECT_EQ(ReadWhole(folder / "events"), "");
}

} // namespace
