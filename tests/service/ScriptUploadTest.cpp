// The upload service as a program: under a manager, and on the console.
#include "tests/hosts/Child.h"
#include "tests/hosts/NotifySocket.h"
#include "tests/service/SmallFtp.h"
#include "tests/support/RegistryHome.h"

#include "corekit/foundation/TimeFunctions.h"
#include "corekit/logging/LogFollower.h"
#include "corekit/stores/RegistryKey.h"

#include <sys/stat.h>

namespace {

class ScriptUpload : public RegistryHome {
protected:
    ScriptUpload()
    {
        CRegistryKey key;
        key.Create(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Script Upload");
        key.SetValue("Folder", scripts.Path().c_str());
        key.SetValue("Server", "127.0.0.1");
        key.SetValue("Port", server.Port());
        key.SetValue("Interval", 20);
        key.SetValue("Log Folder", logs.Path().c_str());
    }
    Child Start(std::vector<std::string> arguments) const
    {
        return {SCRIPT_UPLOAD,
                std::move(arguments),
                {{"NOTIFY_SOCKET", manager.Path()}, {"XDG_RUNTIME_DIR", logs.Path()}}};
    }
    // Reads the manager's messages up to one with the text.
    bool Hears(const std::string& text)
    {
        for (std::string message; message != "nothing";)
            if ((message = manager.Next()).find(text) != std::string::npos) return true;
        return false;
    }
    bool Arrives(const std::string& name) const
    {
        for (int turn = 0; turn < 1000; ++turn) {
            if (server.Files().contains(name) && std::filesystem::exists(scripts / ("sent/" + name)))
                return true;
            usleep(10000);
        }
        return false;
    }
    std::string Logged() const
    {
        CLogFollower log("Script Upload", logs.Path().c_str());
        std::string all;
        for (std::string line; log.Next(line);) all += std::string(ParseLogLine(line).text) + "|";
        return all;
    }

    TempFolder scripts, logs;
    SmallFtp server;
    mutable NotifySocket manager;
};

TEST_F(ScriptUpload, RunsUnderAManagerAndStopsBySignal)
{
    Child service = Start({});
    ASSERT_TRUE(Hears("READY=1"));
    WriteWhole(scripts / "news.txt", "Good evening.\n");
    WriteWhole(scripts / "notes.doc", "not a script");
    EXPECT_TRUE(Arrives("news.txt"));
    service.Signal(SIGTERM);
    EXPECT_TRUE(Hears("STOPPING=1"));
    EXPECT_EQ(service.End(), 0);
    EXPECT_EQ(server.Files(), (std::map<std::string, std::string>{{"news.txt", "Good evening.\n"}}));
    EXPECT_EQ(Logged(), "Log file opened|Script Upload Started OK|news.txt: sent, 14 bytes|Log file closed|");
}

TEST_F(ScriptUpload, RunsOnTheConsoleAndStopsByInterrupt)
{
    Child service = Start({"-console"});
    EXPECT_TRUE(service.WaitFor("Script Upload Started OK\n"));
    WriteWhole(scripts / "news.txt", "Good evening.\n");
    EXPECT_TRUE(service.WaitFor("news.txt: sent, 14 bytes\n"));
    service.Signal(SIGINT);
    EXPECT_EQ(service.End(), 0);
    EXPECT_EQ(service.Said(), "Service status set: SERVICE_START_PENDING\n"
                              "Service status set: SERVICE_RUNNING\n"
                              "Script Upload Started OK\n"
                              "news.txt: sent, 14 bytes\n"
                              "Service status set: SERVICE_STOP_PENDING\n"
                              "Service status set: SERVICE_STOPPED\n");
}

TEST_F(ScriptUpload, NothingInTheFolderHoldsItUpOrSpeaksToTheServer)
{
    ASSERT_EQ(mkfifo((scripts / "a.txt").c_str(), 0600), 0);
    WriteWhole(scripts / "x\r\nDELE precious.txt", "evil");
    std::filesystem::create_directory(scripts / "sent");
    WriteWhole(scripts / "sent/news.txt", "the first");
    Child service = Start({});
    ASSERT_TRUE(Hears("READY=1"));
    WriteWhole(scripts / "news.txt", "the second");
    for (int turn = 0; turn < 1000 && !std::filesystem::exists(scripts / "sent/news.2.txt"); ++turn)
        usleep(10000);
    WriteWhole(scripts / "late.txt", "late");
    EXPECT_TRUE(Arrives("late.txt"));
    service.Signal(SIGTERM);
    EXPECT_EQ(service.End(), 0);
    EXPECT_EQ(ReadWhole(scripts / "sent/news.txt"), "the first");
    EXPECT_EQ(ReadWhole(scripts / "sent/news.2.txt"), "the second");
    EXPECT_EQ(server.Files().size(), 2u);
    EXPECT_NE(Logged().find("x\\x0D\\x0ADELE precious.txt: not sent, "), std::string::npos) << Logged();
}

TEST_F(ScriptUpload, MakesTheFolderOfItsLogAgain)
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Script Upload");
    key.SetValue("Log Folder", (logs / "own").c_str());
    std::filesystem::create_directory(logs / "own");
    Child service = Start({});
    ASSERT_TRUE(Hears("READY=1"));
    std::filesystem::remove_all(logs / "own");
    WriteWhole(scripts / "late.txt", "late");
    EXPECT_TRUE(Arrives("late.txt"));
    service.Signal(SIGTERM);
    EXPECT_EQ(service.End(), 0);
    CLogFollower log("Script Upload", (logs / "own").c_str());
    std::string all;
    for (std::string line; log.Next(line);) all += line;
    EXPECT_NE(all.find("has been made again"), std::string::npos);
    EXPECT_NE(all.find("late.txt: sent, "), std::string::npos);
}

TEST_F(ScriptUpload, WithoutSettingsItSaysSoAndDoesNotStart)
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Script Upload");
    key.DeleteValue("Server");
    Child service = Start({});
    EXPECT_EQ(service.End(), 255);
    EXPECT_NE(Logged().find("The registry does not tell Folder and Server|"), std::string::npos);
}

} // namespace
