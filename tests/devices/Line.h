// A pseudo-terminal that is a serial port of the machine: COM7, in a folder of devices of its own.
#pragma once

#include "tests/support/RegistryHome.h"

#include "corekit/platform/DeviceFolders.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

class Line : public RegistryHome {
protected:
    static constexpr int number = 7;

    Line()
    {
        char name[128];
        EXPECT_EQ(openpty(&other, &m_slave, name, nullptr, nullptr), 0);
        std::filesystem::create_directories(folder / "dev");
        std::filesystem::create_symlink(name, folder / "dev/COM7");
        SetDeviceFolders({folder / "dev", folder / "sys"});
    }
    ~Line() override
    {
        HangUp();
        close(m_slave);
        SetDeviceFolders({});
    }

    // What the other side sees of the line's settings.
    termios Seen() const
    {
        termios line{};
        tcgetattr(other, &line);
        return line;
    }
    void Send(const std::string& bytes) const
    {
        EXPECT_EQ(write(other, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // Exactly so many bytes, or what has come in ten seconds.
    std::string Receive(std::size_t count) const
    {
        std::string bytes;
        char buffer[4096];
        for (pollfd waiting{other, POLLIN, 0}; bytes.size() < count && poll(&waiting, 1, 10000) > 0;) {
            const ssize_t part = read(other, buffer, std::min(sizeof buffer, count - bytes.size()));
            if (part <= 0) break;
            bytes.append(buffer, static_cast<std::size_t>(part));
        }
        return bytes;
    }
    void HangUp()
    {
        if (other >= 0) close(other);
        other = -1;
    }

    TempFolder folder;
    int other = -1;

private:
    int m_slave = -1; // keeps the line while the port is closed
};
