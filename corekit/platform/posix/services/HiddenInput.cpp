#include "corekit/platform/HiddenInput.h"

#include "corekit/platform/posix/files/File.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

// Shows nothing of what is typed, for as long as it lives.
class Silence {
public:
    explicit Silence(int terminal) : m_terminal(terminal)
    {
        m_isOn = ::tcgetattr(terminal, &m_before) == 0;
        termios quiet = m_before;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        m_isOn = m_isOn && ::tcsetattr(terminal, TCSAFLUSH, &quiet) == 0;
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    ~Silence()
    {
        if (m_isOn) ::tcsetattr(m_terminal, TCSAFLUSH, &m_before);
    }
    bool isOn() const { return m_isOn; }

private:
    int m_terminal;
    termios m_before{};
    bool m_isOn = false;
};

bool write(int terminal, const char* text)
{
    const std::size_t size = std::strlen(text);
    return ::write(terminal, text, size) == static_cast<ssize_t>(size);
}

} // namespace

bool ReadHiddenLine(const char* prompt, std::string& line)
{
    const corekit::detail::Descriptor terminal(::open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY));
    if (!terminal || !write(terminal.get(), prompt)) return false;
    const Silence silence(terminal.get());
    if (!silence.isOn()) return false;
    line.clear();
    for (char c;;) {
        const ssize_t count = ::read(terminal.get(), &c, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        if (c == '\n') break;
        line += c;
    }
    return write(terminal.get(), "\n");
}
