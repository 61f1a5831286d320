#include "corekit/platform/Console.h"

#include <sys/ioctl.h>
#include <unistd.h>

int TerminalColumns(StandardStream stream)
{
    const int descriptor = static_cast<int>(stream);
    winsize size{};
    if (!isatty(descriptor)) return 0;
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}
