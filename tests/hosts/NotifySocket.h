// The service manager's end of the notify protocol.
#pragma once

#include "tests/support/TempFolder.h"

#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

class NotifySocket {
public:
    NotifySocket() : m_socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, Path().c_str(), sizeof address.sun_path - 1);
        bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }
    ~NotifySocket() { close(m_socket); }
    NotifySocket(const NotifySocket&) = delete;
    NotifySocket& operator=(const NotifySocket&) = delete;

    std::string Path() const { return m_folder / "notify"; }

    // The next message, with blanks for line ends; "nothing" after ten seconds.
    std::string Next()
    {
        pollfd waiting{m_socket, POLLIN, 0};
        char buffer[4096];
        if (poll(&waiting, 1, 10000) <= 0) return "nothing";
        const ssize_t count = recv(m_socket, buffer, sizeof buffer, 0);
        std::string message(buffer, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        for (char& c : message)
            if (c == '\n') c = ' ';
        return message;
    }

private:
    TempFolder m_folder;
    int m_socket;
};
