// A disk without room: as long as this lives, no file of the process grows beyond `size` bytes.
#pragma once

#include <csignal>
#include <sys/resource.h>

class FullDisk {
public:
    explicit FullDisk(rlim_t size = 0) : m_former(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit lower{size, m_limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &lower);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_former);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*m_former)(int);
    rlimit m_limit{};
};
