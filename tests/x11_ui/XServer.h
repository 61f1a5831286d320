// An X server of the test's own, without a screen that anyone sees.
#pragma once

#include <array>
#include <csignal>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

class XServer {
public:
    // DISPLAY names it from here on.
    XServer()
    {
        std::array<int, 2> ready{};
        if (pipe(ready.data()) != 0) return;
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_adddup2(&files, ready[1], 3);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", 1, 0);
        const char* const arguments[] = {"Xvfb",       "-displayfd", "3",   "-screen",  "0",
                                         "320x240x24", "-nolisten",  "tcp", "-noreset", nullptr};
        if (posix_spawnp(&m_process, arguments[0], &files, nullptr, const_cast<char* const*>(arguments),
                         environ) != 0)
            m_process = 0;
        posix_spawn_file_actions_destroy(&files);
        close(ready[1]);
        // A line with the display's number once it serves; nothing if it could not start.
        std::string line(1, ':');
        for (char c = 0; c != '\n' && read(ready[0], &c, 1) == 1;) line += c;
        if (line.back() == '\n') m_name = line.substr(0, line.size() - 1);
        close(ready[0]);
        setenv("DISPLAY", m_name.c_str(), 1);
    }
    ~XServer() { End(); }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    bool IsRunning() const { return !m_name.empty(); }
    void End()
    {
        if (!m_process) return;
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
        m_process = 0;
    }
    // What a user does in the desktop's settings; `arguments` as setxkbmap takes them.
    bool SetLayouts(const std::string& arguments) const
    {
        return std::system(("setxkbmap " + arguments).c_str()) == 0;
    }

private:
    pid_t m_process = 0;
    std::string m_name;
};
