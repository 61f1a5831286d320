// FTP servers of other makes, each with a folder of its own. They serve the loopback on a free port and are
// ended by their process ids.
#pragma once

#include "tests/net/Loopback.h"
#include "tests/support/TempFolder.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <vector>

extern char** environ;

// A program that runs until this object goes.
class Process {
public:
    // `in` becomes its standard input, `out` its output; -1 leaves them.
    Process(const std::vector<std::string>& line, int in, int out)
    {
        std::vector<char*> arguments;
        for (const std::string& word : line) arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        if (in >= 0) ::posix_spawn_file_actions_adddup2(&actions, in, 0);
        if (out >= 0) ::posix_spawn_file_actions_adddup2(&actions, out, 1);
        EXPECT_EQ(::posix_spawn(&m_id, arguments[0], &actions, nullptr, arguments.data(), environ), 0)
            << line[0] << " is missing: ./go setup test";
        ::posix_spawn_file_actions_destroy(&actions);
    }
    Process(Process&& other) noexcept : m_id(std::exchange(other.m_id, -1)) {}
    ~Process()
    {
        if (m_id <= 0) return;
        ::kill(m_id, SIGTERM);
        int status;
        ::waitpid(m_id, &status, 0);
    }

private:
    pid_t m_id = -1;
};

class FtpServer {
public:
    virtual ~FtpServer() = default;
    virtual int port() const = 0;
    std::string user = "anonymous", password = "nobody@";
    std::string folder() const { return own("site"); } // what a client may write to
    std::string start;                                 // where the client finds that folder

protected:
    FtpServer() { std::filesystem::create_directories(folder()); }
    std::string own(const char* name) const { return m_temp / name; }
    const std::string& all() const { return m_temp.Path(); }

private:
    TempFolder m_temp;
};

// vsftpd as a super-server runs it: a process for each connection, which is its standard input.
class Vsftpd : public FtpServer {
public:
    Vsftpd() : m_thread([this] { serve(); })
    {
        start = "site";
        std::ofstream(own("vsftpd.conf"))
            << "listen=NO\nlisten_ipv6=NO\nbackground=NO\nanonymous_enable=YES\n"
               "no_anon_password=YES\nlocal_enable=NO\nwrite_enable=YES\n"
               "anon_upload_enable=YES\nanon_mkdir_write_enable=YES\n"
               "anon_other_write_enable=YES\nanon_world_readable_only=NO\n"
               "anon_umask=022\nseccomp_sandbox=NO\nxferlog_enable=NO\n"
               "run_as_launching_user=YES\nftp_username="
            << ::getpwuid(::geteuid())->pw_name << "\nanon_root=" << all() << "\nsecure_chroot_dir=" << all()
            << "\n";
    }
    ~Vsftpd() override
    {
        m_listener.stop();
        m_thread.join();
    }
    int port() const override { return m_listener.port(); }

private:
    void serve()
    {
        std::vector<Process> sessions;
        while (const loopback::End client = m_listener.accept(-1))
            sessions.emplace_back(std::vector<std::string>{"/usr/sbin/vsftpd", own("vsftpd.conf")},
                                  client.fd(), client.fd());
    }

    loopback::Listener m_listener;
    std::thread m_thread;
};

// pyftpdlib, which writes its port to its output.
class Pyftpd : public FtpServer {
public:
    Pyftpd()
    {
        user = "u";
        password = "p";
        start = "/";
        int ends[2];
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        const loopback::End from(ends[0]), to(ends[1]);
        m_process.emplace_back(std::vector<std::string>{"/usr/bin/python3", TEST_DATA "/pyftpd.py", folder()},
                               -1, to.fd());
        std::string text;
        char c = 0;
        while (c != '\n' && from.isReady(60000) && ::read(from.fd(), &c, 1) == 1) text += c;
        EXPECT_EQ(c, '\n') << "python3-pyftpdlib is missing: ./go setup test";
        m_port = std::atoi(text.c_str());
    }
    int port() const override { return m_port; }

private:
    std::vector<Process> m_process;
    int m_port = 0;
};
