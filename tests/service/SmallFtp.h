// An FTP server that keeps what it is sent in memory. One session at a time.
#pragma once

#include "tests/net/Loopback.h"

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

class SmallFtp {
public:
    // Port 0 takes a free one.
    explicit SmallFtp(int port = 0) : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const int on = 1;
        ::setsockopt(m_socket.fd(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        sockaddr_in where = loopback::address(port);
        socklen_t size = sizeof where;
        EXPECT_EQ(::bind(m_socket.fd(), reinterpret_cast<sockaddr*>(&where), size), 0);
        EXPECT_EQ(::listen(m_socket.fd(), 4), 0);
        ::getsockname(m_socket.fd(), reinterpret_cast<sockaddr*>(&where), &size);
        m_port = ntohs(where.sin_port);
        m_thread = std::thread([this] { Serve(); });
    }
    ~SmallFtp()
    {
        ::shutdown(m_socket.fd(), SHUT_RDWR);
        m_thread.join();
    }

    int Port() const { return m_port; }
    std::map<std::string, std::string> Files() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_files;
    }
    // From now on uploads are refused, or not.
    void SetFull(bool full)
    {
        const std::scoped_lock lock(m_mutex);
        m_isFull = full;
    }
    // Called when the next upload has begun, before anything more is read of it.
    void OnNextUpload(std::function<void()> call)
    {
        const std::scoped_lock lock(m_mutex);
        m_onUpload = std::move(call);
    }

private:
    void Serve()
    {
        for (;;) {
            const loopback::End control(::accept(m_socket.fd(), nullptr, nullptr));
            if (!control) return;
            Session(control);
        }
    }
    void Session(const loopback::End& control)
    {
        loopback::Listener data;
        control.send("220 ready\r\n");
        for (std::string line; !(line = Line(control)).empty();) {
            const std::string verb = line.substr(0, 4), argument = line.size() > 5 ? line.substr(5) : "";
            if (verb == "USER")
                control.send("331 who\r\n");
            else if (verb == "PASS")
                control.send("230 in\r\n");
            else if (verb == "PASV")
                control.send("227 here (127,0,0,1," + std::to_string(data.port() / 256) + "," +
                             std::to_string(data.port() % 256) + ")\r\n");
            else if (verb == "STOR")
                Store(control, data.accept(), argument);
            else
                control.send("200 ok\r\n");
        }
    }
    void Store(const loopback::End& control, const loopback::End& data, const std::string& name)
    {
        std::function<void()> onUpload;
        {
            const std::scoped_lock lock(m_mutex);
            if (m_isFull) return static_cast<void>(control.send("552 no room\r\n"));
            onUpload.swap(m_onUpload);
        }
        control.send("150 go\r\n");
        std::string content;
        if (onUpload) {
            content = data.receive(1);
            onUpload();
        }
        if (!ReadToEnd(data, content)) return static_cast<void>(control.send("426 cut\r\n"));
        {
            const std::scoped_lock lock(m_mutex);
            m_files[name] = content;
        }
        control.send("226 done\r\n");
    }
    // False if the connection was cut.
    static bool ReadToEnd(const loopback::End& data, std::string& content)
    {
        std::string part(65536, '\0');
        for (;;) {
            if (!data.isReady()) return false;
            const ssize_t count = ::recv(data.fd(), part.data(), part.size(), 0);
            if (count <= 0) return count == 0;
            content.append(part, 0, static_cast<std::size_t>(count));
        }
    }
    static std::string Line(const loopback::End& control)
    {
        std::string line;
        while (!line.ends_with("\r\n")) {
            const std::string more = control.receive(1);
            if (more.empty()) return more;
            line += more;
        }
        return line.substr(0, line.size() - 2);
    }

    loopback::End m_socket;
    int m_port = 0;
    std::thread m_thread;
    mutable std::mutex m_mutex;
    std::map<std::string, std::string> m_files;
    std::function<void()> m_onUpload;
    bool m_isFull = false;
};
