// Work in a process that divides from this one.
#pragma once

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// What `work` returned in a forked child, or minus the signal that ended it.
template <class Work>
int InChild(Work work)
{
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// A child that holds copies of all descriptors of this process until it goes.
class Bystander {
public:
    Bystander() : m_pid(::fork())
    {
        if (m_pid == 0) {
            ::pause();
            ::_exit(0);
        }
    }
    ~Bystander()
    {
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }
    Bystander(const Bystander&) = delete;
    Bystander& operator=(const Bystander&) = delete;

private:
    pid_t m_pid;
};

inline void LimitTo(int resource, rlim_t most)
{
    const rlimit limit{most, most};
    ::setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}
