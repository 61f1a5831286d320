// The other side of a connection, made of the machine's own calls.
#pragma once

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

#undef htons
#undef ntohs
#undef htonl
#undef ntohl

namespace loopback {

inline sockaddr_in address(int port = 0)
{
    sockaddr_in where{};
    where.sin_family = AF_INET;
    where.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    where.sin_port = htons(static_cast<in_port_t>(port));
    return where;
}

// One end of a connection. Waits are bounded; what fails shows as less data.
class End {
public:
    explicit End(int fd = -1) : m_fd(fd) {}
    End(End&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    End& operator=(End&& other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~End() { close(); }

    int fd() const { return m_fd; }
    explicit operator bool() const { return m_fd >= 0; }
    void close()
    {
        if (m_fd >= 0) ::close(std::exchange(m_fd, -1));
    }
    void reset() // the other side learns that the connection was cut
    {
        const linger now{1, 0};
        ::setsockopt(m_fd, SOL_SOCKET, SO_LINGER, &now, sizeof now);
        close();
    }
    bool isReady(int milliseconds = 10000) const
    {
        pollfd state{m_fd, POLLIN, 0};
        return ::poll(&state, 1, milliseconds) > 0;
    }
    bool send(std::string_view data) const
    {
        while (!data.empty()) {
            const ssize_t count = ::send(m_fd, data.data(), data.size(), MSG_NOSIGNAL);
            if (count <= 0) return false;
            data.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }
    // Up to `size` bytes, fewer at the end.
    std::string receive(std::size_t size) const
    {
        std::string all;
        char part[65536];
        while (all.size() < size && isReady()) {
            const ssize_t count = ::recv(m_fd, part, std::min(sizeof part, size - all.size()), 0);
            if (count <= 0) break;
            all.append(part, static_cast<std::size_t>(count));
        }
        return all;
    }

private:
    int m_fd;
};

class Listener {
public:
    // Port 0 takes a free one.
    explicit Listener(int backlog = 16, int port = 0)
        : m_end(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const int again = port != 0;
        ::setsockopt(m_end.fd(), SOL_SOCKET, SO_REUSEADDR, &again, sizeof again);
        sockaddr_in where = address(port);
        socklen_t size = sizeof where;
        EXPECT_EQ(::bind(m_end.fd(), reinterpret_cast<sockaddr*>(&where), size), 0);
        EXPECT_EQ(::listen(m_end.fd(), backlog), 0);
        ::getsockname(m_end.fd(), reinterpret_cast<sockaddr*>(&where), &size);
        m_port = ntohs(where.sin_port);
    }
    int port() const { return m_port; }
    void setReceiveBuffer(int size) const // of the connections to come
    {
        ::setsockopt(m_end.fd(), SOL_SOCKET, SO_RCVBUF, &size, sizeof size);
    }
    void stop() { ::shutdown(m_end.fd(), SHUT_RDWR); } // ends accept on another thread
    // The next connection, sent at once; none after the time, or once stopped.
    End accept(int milliseconds = 10000) const
    {
        End end(m_end.isReady(milliseconds) ? ::accept4(m_end.fd(), nullptr, nullptr, SOCK_CLOEXEC) : -1);
        const int on = 1;
        ::setsockopt(end.fd(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        return end;
    }

private:
    End m_end;
    int m_port = 0;
};

// A port on which nobody listens, and that nobody else gets while this object lives.
class DeafPort {
public:
    DeafPort() : m_end(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in where = address();
        socklen_t size = sizeof where;
        EXPECT_EQ(::bind(m_end.fd(), reinterpret_cast<sockaddr*>(&where), size), 0);
        ::getsockname(m_end.fd(), reinterpret_cast<sockaddr*>(&where), &size);
        m_port = ntohs(where.sin_port);
    }
    int port() const { return m_port; }

private:
    End m_end;
    int m_port = 0;
};

} // namespace loopback
