#include "corekit/platform/RawTerminal.h"

#include <cerrno>
#include <poll.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

struct RawTerminal::Settings {
    termios flags;
};

bool RawTerminal::IsThere() { return isatty(STDIN_FILENO) == 1; }

RawTerminal::RawTerminal() : m_before(std::make_unique<Settings>())
{
    if (tcgetattr(STDIN_FILENO, &m_before->flags) != 0)
        throw std::runtime_error("standard input is no terminal");
    termios raw = m_before->flags;
    raw.c_iflag &= ~static_cast<tcflag_t>(ICRNL | INLCR | IXON);
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | IEXTEN | ISIG);
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    if (tcsetattr(STDIN_FILENO, TCSANOW, &raw) != 0)
        throw std::runtime_error("the terminal does not give its keys one by one");
}

RawTerminal::~RawTerminal() { tcsetattr(STDIN_FILENO, TCSANOW, &m_before->flags); }

int RawTerminal::ReadByte(int milliseconds)
{
    pollfd input{STDIN_FILENO, POLLIN, 0};
    int ready = poll(&input, 1, milliseconds);
    while (ready < 0 && errno == EINTR) ready = poll(&input, 1, milliseconds);
    unsigned char byte = 0;
    return ready > 0 && read(STDIN_FILENO, &byte, 1) == 1 ? byte : -1;
}
