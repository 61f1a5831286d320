// Another process, and what it says.
#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <map>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// Ends with its object. All waits give up after ten seconds.
class Child {
public:
    enum class Stdout { Pipe, Terminal };

    Child(const std::string& program, std::vector<std::string> arguments,
          const std::map<std::string, std::string>& environment = {}, Stdout out = Stdout::Pipe)
    {
        int ends[2];
        const int made =
            out == Stdout::Pipe ? pipe(ends) : openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr);
        EXPECT_EQ(made, 0);
        fcntl(ends[0], F_SETFD, FD_CLOEXEC);
        m_pid = fork();
        if (m_pid == 0) {
            for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
            dup2(ends[1], STDOUT_FILENO);
            dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
            arguments.insert(arguments.begin(), program);
            std::vector<char*> argv;
            for (std::string& argument : arguments) argv.push_back(argument.data());
            argv.push_back(nullptr);
            execv(program.c_str(), argv.data());
            _exit(99);
        }
        close(ends[1]);
        m_out = ends[0];
    }
    ~Child()
    {
        if (!m_hasEnded) kill(m_pid, SIGKILL), waitpid(m_pid, nullptr, 0);
        close(m_out);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    pid_t Pid() const { return m_pid; }
    void Signal(int signal) const { kill(m_pid, signal); }
    const std::string& Said() const { return m_said; }

    // Reads until the text has appeared.
    bool WaitFor(const std::string& text)
    {
        while (m_said.find(text) == std::string::npos)
            if (!Read()) return false;
        return true;
    }
    // Reads to the end. The exit code, or minus the signal that ended it.
    int End()
    {
        while (Read()) {
        }
        int status = 0;
        waitpid(m_pid, &status, 0);
        m_hasEnded = true;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

private:
    bool Read()
    {
        pollfd waiting{m_out, POLLIN, 0};
        char buffer[4096];
        if (poll(&waiting, 1, 10000) <= 0) {
            Signal(SIGKILL);
            return false;
        }
        const ssize_t count = read(m_out, buffer, sizeof buffer);
        if (count <= 0) return false;
        m_said.append(buffer, static_cast<std::size_t>(count));
        return true;
    }

    pid_t m_pid = -1;
    int m_out = -1;
    bool m_hasEnded = false;
    std::string m_said;
};
