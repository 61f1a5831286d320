// What a process shares with those that divide from it, and with the program that it is part of.
#include "corekit/platform/Console.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/EventLog.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/ShellFolders.h"
#include "corekit/platform/Sockets.h"
#include "corekit/platform/Waits.h"
#include "tests/support/Forked.h"
#include "tests/support/TempFolder.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/epoll.h>
#include <sys/file.h>
#include <sys/syslog.h>

namespace {

// A datagram socket that an event watches.
struct Watched {
    SOCKET socket = WSASocketA(AF_INET, SOCK_DGRAM, 0, nullptr, 0, 0);
    HANDLE event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    sockaddr_in address{};

    Watched()
    {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = 0x0100007F;
        int size = sizeof address;
        sockets::bind(socket, reinterpret_cast<sockaddr*>(&address), size);
        sockets::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
        WSAEventSelect(socket, event, FD_READ);
    }
    void close()
    {
        sockets::closesocket(socket);
        CloseHandle(event);
    }
    bool hears()
    {
        const SOCKET from = WSASocketA(AF_INET, SOCK_DGRAM, 0, nullptr, 0, 0);
        sockets::connect(from, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        sockets::send(from, "x", 1, 0);
        sockets::closesocket(from);
        return WaitForSingleObject(event, 5000) == WAIT_OBJECT_0;
    }
};

HANDLE OpenAlone(const std::string& name)
{
    return CreateFileA(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
}

} // namespace

#ifndef __SANITIZE_THREAD__ // which lets no thread begin behind a fork
TEST(Forks, AChildsSocketsAreItsOwnAffair)
{
    WSADATA data;
    ASSERT_EQ(WSAStartup(2, &data), 0);
    Watched ours;
    EXPECT_EQ(InChild([&] {
                  Watched another;
                  const bool hears = another.hears();
                  ours.close();
                  return hears ? 7 : 0;
              }),
              7);
    EXPECT_TRUE(ours.hears());
    ours.close();
    WSACleanup();
}
#endif

// A child that kept the instance could put in what it likes.
TEST(Forks, WhatOthersPutIntoThePollerIsPassedOver)
{
    WSADATA data;
    ASSERT_EQ(WSAStartup(2, &data), 0);
    Watched ours;
    int ends[2], instances = 0;
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    ASSERT_EQ(::write(ends[1], "x", 1), 1);
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry.path(), gone) != "anon_inode:[eventpoll]") continue;
        epoll_event wild{EPOLLIN | EPOLLONESHOT, {.u64 = 0x70000000}}; // far beyond every descriptor
        instances += ::epoll_ctl(std::stoi(entry.path().filename()), EPOLL_CTL_ADD, ends[0], &wild) == 0;
    }
    EXPECT_GT(instances, 0);
    EXPECT_TRUE(ours.hears());
    ours.close();
    for (const int end : ends) ::close(end);
    WSACleanup();
}

TEST(Forks, ClosedFilesAreFreeThoughAChildLives)
{
    const TempFolder folder;
    const std::string name = folder / "alone";
    const HANDLE file = OpenAlone(name);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    const auto isFree = [&] {
        return ::flock(::open(name.c_str(), O_RDONLY | O_CLOEXEC), LOCK_SH | LOCK_NB) == 0;
    };
    const Bystander child;
    EXPECT_EQ(InChild([&] { return CloseHandle(file); }), TRUE); // says nothing about our own handle
    EXPECT_FALSE(isFree());
    CloseHandle(file);
    EXPECT_TRUE(isFree());
}

#ifndef COREKIT_SANITIZED // whose checks need descriptors of their own
TEST(Signals, KeepTheirEffectWhereNoPipeCanBeMade)
{
    EXPECT_EQ(InChild([] {
                  LimitTo(RLIMIT_NOFILE, 3);
                  SetConsoleCtrlHandler([](DWORD) { return BOOL{TRUE}; }, TRUE);
                  ::raise(SIGTERM);
                  return 0;
              }),
              -SIGTERM);
}
#endif

// What the program has from these calls of the system, the library does not touch.
TEST(Hosts, KeepTheirAccountAndTheirSyslog)
{
    EXPECT_EQ(InChild([] {
                  ::unsetenv("HOME");
                  ::unsetenv("XDG_DATA_HOME");
                  const passwd* const daemon = ::getpwuid(1);
                  const std::string name = daemon ? daemon->pw_name : "";
                  char path[MAX_PATH];
                  SHGetSpecialFolderPathA(nullptr, path, CSIDL_PERSONAL, FALSE);
                  return daemon && name == daemon->pw_name ? 7 : 0;
              }),
              7);
    const bool toJournal = ::access("/run/systemd/journal/socket", F_OK) == 0;
    testing::internal::CaptureStderr();
    ::openlog("the host", LOG_PERROR, LOG_USER);
    const HANDLE source = RegisterEventSourceA(nullptr, "source");
    const char* text = "text";
    EXPECT_TRUE(ReportEventA(source, EVENTLOG_ERROR_TYPE, 0, 1, nullptr, 1, 0, &text, nullptr));
    ::closelog();
    DeregisterEventSource(source);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(said, toJournal ? "" : "the host: source: text\n");
}
