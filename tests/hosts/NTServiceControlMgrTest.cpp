#include "tests/hosts/FakeManager.h"
#include "tests/support/Positions.h"
#include "tests/support/TempFolder.h"

#include "corekit/hosts/NTServiceControlMgr.h"
#include "corekit/platform/Errors.h"

#include <chrono>
#include <gtest/gtest.h>

namespace {

class ServiceControl : public testing::Test {
protected:
    ServiceControl() { Point(500); }
    ~ServiceControl() override { SetServicePlaces({}); }

    void Point(DWORD timeLimit)
    {
        SetServicePlaces({folder.Path(), [this] { return machine.Connect(); }, timeLimit});
    }
    int Create(const char* name, const char* path, DWORD startType = SERVICE_DEMAND_START,
               const CStringArray& dependencies = {}, const char* user = nullptr)
    {
        return manager.CreateServiceA(name, "Uploads 100% of \"scripts\"\n[Service]\nExecStart=/bin/evil",
                                      SERVICE_WIN32_OWN_PROCESS, startType, SERVICE_ERROR_NORMAL, path,
                                      nullptr, nullptr, dependencies, user, nullptr);
    }
    std::string UnitFile(const std::string& name) const { return ReadWhole(folder / name); }

    TempFolder folder;
    FakeManager machine;
    CNTServiceControlMgr manager; // goes first
    Positions positions;
};

TEST_F(ServiceControl, StatesAreThoseOfTheManagerAndItsServices)
{
    const struct {
        FakeManager::Unit unit;
        DWORD state, checkPoint, exitCode;
    } cases[] = {
        {{"active", "Running"}, SERVICE_RUNNING, 0, 0},
        {{"active", "Paused"}, SERVICE_PAUSED, 0, 0},
        {{"active", "Serving, step 4 of 5"}, SERVICE_RUNNING, 0, 0},
        {{"reloading", ""}, SERVICE_RUNNING, 0, 0},
        {{"activating", "Starting, step 3"}, SERVICE_START_PENDING, 3, 0},
        {{"deactivating", "Stopping, step 12"}, SERVICE_STOP_PENDING, 12, 0},
        {{"deactivating", "Starting, step 12"}, SERVICE_STOP_PENDING, 0, 0},
        {{"inactive", "Stopping, step 12"}, SERVICE_STOPPED, 0, 0},
        {{"inactive", "", 17}, SERVICE_START_PENDING, 0, 0}, // its start is due
        {{"failed", "", 0, 100}, SERVICE_STOPPED, 0, ERROR_SERVICE_SPECIFIC_ERROR},
    };
    ASSERT_TRUE(manager.OpenLocal(SC_MANAGER_CONNECT));
    for (const auto& row : cases) {
        SCOPED_TRACE(row.unit.active + " " + row.unit.status);
        machine.Set("Script\\x20Upload.service", row.unit);
        SERVICE_STATUS status{};
        ASSERT_TRUE(manager.QueryServiceStatus("Script Upload", status));
        EXPECT_EQ(status.dwCurrentState, row.state);
        EXPECT_EQ(status.dwCheckPoint, row.checkPoint);
        EXPECT_EQ(status.dwWin32ExitCode, row.exitCode);
        EXPECT_EQ(status.dwServiceSpecificExitCode, static_cast<DWORD>(row.unit.exitStatus));
    }
    EXPECT_TRUE(manager.ServiceExists("Script Upload"));
    EXPECT_FALSE(manager.ServiceExists("Nobody"));
    EXPECT_EQ(GetLastError(), ERROR_SERVICE_DOES_NOT_EXIST);
    EXPECT_FALSE(manager.ServiceExists(""));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_NAME);
}

TEST_F(ServiceControl, AStartTurnsTheProgressUntilItRuns)
{
    machine.Set("a.service", {});
    machine.onStart = [](FakeManager::Unit& unit) { unit = {"inactive", "", 5}; };
    machine.onLook = [](FakeManager::Unit& unit) {
        if (unit.job != 0)
            unit = {"activating", "Starting, step 2"};
        else if (unit.active == "activating")
            unit.active = "active";
    };
    ASSERT_TRUE(manager.OpenLocal(SC_MANAGER_CONNECT));
    EXPECT_TRUE(manager.StartServiceA("a", &positions));
    EXPECT_EQ(positions.seen, (std::vector<int>{0, 2}));
    EXPECT_FALSE(manager.StartServiceA("a", nullptr));
    EXPECT_EQ(GetLastError(), ERROR_SERVICE_ALREADY_RUNNING);
}

TEST_F(ServiceControl, EndsOtherThanTheWantedOneGiveNothing)
{
    machine.Set("a.service", {});
    machine.onStart = [](FakeManager::Unit& unit) { unit = {"failed", "", 0, 3}; };
    ASSERT_TRUE(manager.OpenLocal(SC_MANAGER_CONNECT));
    EXPECT_FALSE(manager.StartServiceA("a", nullptr));
    EXPECT_EQ(GetLastError(), ERROR_SERVICE_SPECIFIC_ERROR);
    EXPECT_FALSE(manager.StopService("a", nullptr));
    EXPECT_EQ(GetLastError(), ERROR_SERVICE_NOT_ACTIVE);
    machine.Set("a.service", {"active", ""});
    machine.onStop = [](FakeManager::Unit& unit) { unit.status = "Paused"; };
    EXPECT_FALSE(manager.StopService("a", nullptr));
    machine.onStop = [](FakeManager::Unit& unit) { unit = {"deactivating", "Stopping, step 1"}; };
    machine.onLook = [turn = 0](FakeManager::Unit& unit) mutable {
        if (unit.active == "deactivating" && ++turn > 2) unit.active = "inactive";
    };
    machine.Set("a.service", {"active", ""});
    EXPECT_TRUE(manager.StopService("a", &positions));
    EXPECT_EQ(positions.seen, (std::vector<int>{0, 1}));
}

// Whatever becomes of the bus, no call waits longer than its limit, and the reason is reported.
TEST_F(ServiceControl, AManagerThatFailsEndsEveryWait)
{
    using Fault = FakeManager::Fault;
    const std::pair<Fault, DWORD> cases[] = {{Fault::Silent, ERROR_TIMEOUT},
                                             {Fault::Gone, RPC_S_SERVER_UNAVAILABLE},
                                             {Fault::WrongType, ERROR_INVALID_DATA},
                                             {Fault::Denied, ERROR_ACCESS_DENIED}};
    Point(100);
    for (const auto& [fault, error] : cases) {
        SCOPED_TRACE(error);
        machine.fault = Fault::None;
        machine.Set("a.service", {"activating", ""});
        ASSERT_TRUE(manager.OpenLocal(SC_MANAGER_CONNECT));
        const auto begun = std::chrono::steady_clock::now();
        std::thread breaker([&, broken = fault] {
            usleep(20000);
            machine.fault = broken;
        });
        machine.Set("a.service", {});
        machine.onStart = [](FakeManager::Unit& unit) { unit.active = "activating"; };
        EXPECT_FALSE(manager.StartServiceA("a", nullptr));
        EXPECT_EQ(GetLastError(), error);
        breaker.join();
        SERVICE_STATUS status;
        EXPECT_FALSE(manager.QueryServiceStatus("a", status));
        EXPECT_EQ(GetLastError(), error);
        EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(5));
        manager.Close();
    }
    machine.fault = Fault::Silent; // from the first word on
    EXPECT_FALSE(manager.OpenLocal(SC_MANAGER_CONNECT));
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);
    SetServicePlaces({folder.Path(), [] { return -1; }, 100});
    EXPECT_FALSE(manager.OpenLocal(SC_MANAGER_CONNECT));
    EXPECT_EQ(GetLastError(), RPC_S_SERVER_UNAVAILABLE);
    EXPECT_FALSE(manager.StartServiceA("a", nullptr)); // closed
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(ServiceControl, InstallingWritesAUnitFileThatHoldsWhatWasGivenAndNoMore)
{
    const std::string program = folder / "my \"100%\" program";
    WriteWhole(program, "");
    CStringArray dependencies;
    dependencies.Add("network");
    dependencies.Add("My Store%");
    dependencies.Add("+group");
    ASSERT_TRUE(manager.OpenLocal(SC_MANAGER_ALL_ACCESS));
    ASSERT_TRUE(Create("Script Upload", (program + " -port $PORT \"a b\" 50%n").c_str(), SERVICE_AUTO_START,
                       dependencies, ".\\uploader"));
    const std::string before = folder.Path() + "/my \\\"100%%\\\" program";
    EXPECT_EQ(UnitFile("Script\\x20Upload.service"),
              "# Written by the program that installed the service.\n"
              "\n[Unit]\n"
              "Description=Uploads 100%% of \"scripts\" [Service] ExecStart=/bin/evil\n"
              "Requires=network.service My\\x20Store\\x25.service\n"
              "After=network.service My\\x20Store\\x25.service\n"
              "\n[Service]\n"
              "Type=notify\n"
              "ExecStart=:\"" +
                  before +
                  "\" \"-port\" \"$PORT\" \"a b\" \"50%%n\"\n"
                  "User=uploader\n"
                  "\n[Install]\n"
                  "WantedBy=multi-user.target\n");
    EXPECT_EQ(machine.Calls(),
              (std::vector<std::string>{"EnableUnitFiles Script\\x20Upload.service", "Reload"}));
}

TEST_F(ServiceControl, InstallingAgainChangesTheSettingsAndKeepsWhatAPersonAdded)
{
    ASSERT_TRUE(manager.OpenLocal(SC_MANAGER_ALL_ACCESS));
    ASSERT_TRUE(Create("a", "/opt/a -one"));
    machine.Set("a.service", {});
    WriteWhole(folder / "a.service", UnitFile("a.service") + "# mine\nWatchdogSec=30\n");
    ASSERT_TRUE(Create("a", "\"/opt/new a\" -two", SERVICE_DISABLED));
    const std::string text = UnitFile("a.service");
    EXPECT_NE(text.find("ExecStart=:\"/opt/new a\" \"-two\"\n"), text.npos);
    EXPECT_EQ(text.find("-one"), text.npos);
    EXPECT_NE(text.find("# mine\nWatchdogSec=30\n"), text.npos);
    EXPECT_NE(text.find("RefuseManualStart=yes\n"), text.npos);
    ASSERT_TRUE(Create("a", "/opt/a", SERVICE_DEMAND_START));
    EXPECT_EQ(UnitFile("a.service").find("RefuseManualStart"), text.npos);
    ASSERT_TRUE(manager.DisableService("a"));
    EXPECT_NE(UnitFile("a.service").find("RefuseManualStart=yes\n"), text.npos);
    WriteWhole(folder / "a.service", "[Service]\nEnvironment=A=1\\"); // goes on into whatever comes next
    ASSERT_TRUE(Create("a", "/opt/a"));
    EXPECT_NE(UnitFile("a.service").find("A=1\\\n\nExecStart=:\"/opt/a\"\n"), text.npos);
    ASSERT_TRUE(manager.DeleteService("a"));
    EXPECT_FALSE(std::filesystem::exists(folder / "a.service"));
    EXPECT_EQ(machine.Calls().back(), "Reload");
}

TEST_F(ServiceControl, WhatNoUnitCouldHoldIsRefusedAndLeavesNothing)
{
    ASSERT_TRUE(manager.OpenLocal(SC_MANAGER_ALL_ACCESS));
    const struct {
        const char *name, *path, *user;
        DWORD error;
    } cases[] = {{"", "/opt/a", nullptr, ERROR_INVALID_NAME},
                 {"a", "", nullptr, ERROR_INVALID_PARAMETER},
                 {"a", "relative -x", nullptr, ERROR_INVALID_PARAMETER},
                 {"a", "/opt/a", "root\nExecStartPre=/bin/evil", ERROR_INVALID_SERVICE_ACCOUNT},
                 {"a", "/opt/a", "-r", ERROR_INVALID_SERVICE_ACCOUNT}};
    for (const auto& wrong : cases) {
        EXPECT_FALSE(Create(wrong.name, wrong.path, SERVICE_DEMAND_START, {}, wrong.user));
        EXPECT_EQ(GetLastError(), wrong.error);
    }
    machine.fault = FakeManager::Fault::Denied;
    EXPECT_FALSE(Create("a", "/opt/a"));
    machine.fault = FakeManager::Fault::None;
    machine.Set("ssh.service", {}); // came with the system
    EXPECT_FALSE(manager.DisableService("ssh"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(manager.DeleteService("ssh"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

} // namespace
