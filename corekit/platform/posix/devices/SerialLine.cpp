#include "corekit/platform/posix/devices/SerialLine.h"

#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <asm/termbits.h>
#include <cerrno>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace corekit::detail {
namespace {

struct RateRow {
    DWORD rate;
    tcflag_t flag;
};
// Rates with a flag of their own; every other one is told as a number.
constexpr RateRow rates[] = {
    {50, B50},           {75, B75},           {110, B110},         {134, B134},         {150, B150},
    {200, B200},         {300, B300},         {600, B600},         {1200, B1200},       {1800, B1800},
    {2400, B2400},       {4800, B4800},       {9600, B9600},       {19200, B19200},     {38400, B38400},
    {57600, B57600},     {115200, B115200},   {230400, B230400},   {460800, B460800},   {500000, B500000},
    {576000, B576000},   {921600, B921600},   {1000000, B1000000}, {1152000, B1152000}, {1500000, B1500000},
    {2000000, B2000000}, {2500000, B2500000}, {3000000, B3000000}, {3500000, B3500000}, {4000000, B4000000}};

constexpr tcflag_t sizes[] = {CS5, CS6, CS7, CS8};
constexpr tcflag_t parities[] = {0, PARENB | PARODD, PARENB, PARENB | CMSPAR | PARODD, PARENB | CMSPAR};
constexpr tcflag_t parityBits = PARENB | CMSPAR | PARODD;
constexpr tcflag_t frameBits = CSIZE | CSTOPB | parityBits;

void putFlag(tcflag_t& flags, tcflag_t flag, bool on) { flags = on ? flags | flag : flags & ~flag; }

void putRate(DWORD rate, termios2& line)
{
    const auto* const row = std::ranges::find(rates, rate, &RateRow::rate);
    line.c_cflag &= ~static_cast<tcflag_t>(CBAUD | CIBAUD);
    line.c_cflag |= row != std::end(rates) ? row->flag : static_cast<tcflag_t>(BOTHER);
    line.c_ispeed = line.c_ospeed = rate;
}

DWORD errnoOr(int result) { return result == 0 ? NO_ERROR : errorFromErrno(errno); }

// Whether the line is what was asked for. A pseudo-terminal has no frames on a wire: whatever it says of them
// is right. A rate is right within what receivers bear.
bool isAsAsked(int fd, const termios2& asked, const termios2& now)
{
    struct stat facts;
    const bool isPseudo =
        ::fstat(fd, &facts) == 0 && ::major(facts.st_rdev) >= 136 && ::major(facts.st_rdev) <= 143;
    if (isPseudo) return true;
    const auto asFlags = [](tcflag_t flags) { return flags & (frameBits | static_cast<tcflag_t>(CRTSCTS)); };
    const double ratio = static_cast<double>(now.c_ospeed) / static_cast<double>(asked.c_ospeed);
    return asFlags(asked.c_cflag) == asFlags(now.c_cflag) && ratio > 0.95 && ratio < 1.05;
}

// Devices without the signal pass it over.
void putSignal(int fd, int signal, bool on) { ::ioctl(fd, on ? TIOCMBIS : TIOCMBIC, &signal); }

} // namespace

DWORD applyToLine(const DCB& dcb, termios2& line)
{
    const bool isKnown = dcb.DCBlength == sizeof dcb && dcb.fBinary && dcb.BaudRate > 0 &&
                         dcb.ByteSize >= 5 && dcb.ByteSize <= 8 && dcb.Parity <= SPACEPARITY &&
                         dcb.StopBits <= TWOSTOPBITS && dcb.fDtrControl <= DTR_CONTROL_ENABLE &&
                         dcb.fRtsControl <= RTS_CONTROL_HANDSHAKE;
    if (!isKnown) return ERROR_INVALID_PARAMETER;
    putRate(dcb.BaudRate, line);
    line.c_cflag &= ~frameBits;
    line.c_cflag |= sizes[dcb.ByteSize - 5] | parities[dcb.Parity];
    putFlag(line.c_cflag, CSTOPB, dcb.StopBits != ONESTOPBIT); // 1.5 with five bits, else 2
    putFlag(line.c_cflag, static_cast<tcflag_t>(CRTSCTS),
            dcb.fOutxCtsFlow || dcb.fRtsControl == RTS_CONTROL_HANDSHAKE);
    putFlag(line.c_iflag, INPCK, dcb.fParity);
    putFlag(line.c_iflag, IXON, dcb.fOutX);
    putFlag(line.c_iflag, IXOFF, dcb.fInX);
    if (dcb.fOutX || dcb.fInX) {
        line.c_cc[VSTART] = static_cast<cc_t>(dcb.XonChar);
        line.c_cc[VSTOP] = static_cast<cc_t>(dcb.XoffChar);
    }
    return NO_ERROR;
}

DCB settingsOf(const termios2& line)
{
    const auto has = [](tcflag_t flags, tcflag_t flag) { return (flags & flag) != 0; };
    DCB dcb{};
    dcb.DCBlength = sizeof dcb;
    dcb.BaudRate = line.c_ospeed;
    dcb.fBinary = 1;
    dcb.fParity = has(line.c_iflag, INPCK);
    dcb.fOutxCtsFlow = has(line.c_cflag, static_cast<tcflag_t>(CRTSCTS));
    dcb.fDtrControl = DTR_CONTROL_ENABLE;
    dcb.fTXContinueOnXoff = 1;
    dcb.fOutX = has(line.c_iflag, IXON);
    dcb.fInX = has(line.c_iflag, IXOFF);
    dcb.fRtsControl = dcb.fOutxCtsFlow ? RTS_CONTROL_HANDSHAKE : RTS_CONTROL_ENABLE;
    dcb.ByteSize = static_cast<BYTE>(5 + (std::ranges::find(sizes, line.c_cflag & CSIZE) - sizes));
    const tcflag_t parity = has(line.c_cflag, PARENB) ? line.c_cflag & parityBits : 0;
    dcb.Parity = static_cast<BYTE>(std::ranges::find(parities, parity) - parities);
    if (has(line.c_cflag, CSTOPB)) dcb.StopBits = dcb.ByteSize == 5 ? ONE5STOPBITS : TWOSTOPBITS;
    dcb.XonChar = static_cast<char>(line.c_cc[VSTART]);
    dcb.XoffChar = static_cast<char>(line.c_cc[VSTOP]);
    return dcb;
}

DWORD setLine(int fd, const DCB& dcb)
{
    termios2 before, now;
    if (::ioctl(fd, TCGETS2, &before) != 0) return errorFromErrno(errno);
    termios2 line = before;
    if (const DWORD error = applyToLine(dcb, line); error != NO_ERROR) return error;
    if (::ioctl(fd, TCSETS2, &line) != 0) return errorFromErrno(errno);
    if (::ioctl(fd, TCGETS2, &now) == 0 && !isAsAsked(fd, line, now)) {
        ::ioctl(fd, TCSETS2, &before);
        return ERROR_INVALID_PARAMETER;
    }
    putSignal(fd, TIOCM_DTR, dcb.fDtrControl != DTR_CONTROL_DISABLE);
    if (dcb.fRtsControl != RTS_CONTROL_HANDSHAKE)
        putSignal(fd, TIOCM_RTS, dcb.fRtsControl == RTS_CONTROL_ENABLE);
    return NO_ERROR;
}

DWORD getLine(int fd, DCB& dcb)
{
    termios2 line;
    const DWORD error = errnoOr(::ioctl(fd, TCGETS2, &line));
    if (error == NO_ERROR) dcb = settingsOf(line);
    return error;
}

DWORD makeBinary(int fd)
{
    termios2 line;
    if (::ioctl(fd, TCGETS2, &line) != 0) return errorFromErrno(errno);
    line.c_iflag &= ~static_cast<tcflag_t>(IGNBRK | BRKINT | IGNPAR | PARMRK | ISTRIP | INLCR | IGNCR |
                                           ICRNL | IUCLC | IMAXBEL | IUTF8);
    line.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    line.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL | ICANON | ISIG | IEXTEN);
    line.c_cflag |= CREAD | CLOCAL; // the other side's carrier decides nothing
    line.c_cc[VMIN] = 1;
    line.c_cc[VTIME] = 0;
    return errnoOr(::ioctl(fd, TCSETS2, &line));
}

} // namespace corekit::detail
