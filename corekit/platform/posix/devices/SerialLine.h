// The settings of a serial line, as callers tell them and as the kernel has them.
#pragma once

#include "corekit/platform/SerialPorts.h"

struct termios2;

namespace corekit::detail {

// The settings put into what the kernel has; 0, or 87 for a setting that no line has.
DWORD applyToLine(const DCB& dcb, termios2& line);
DCB settingsOf(const termios2& line);

// The same on an open device; an error number, 0 for success. What a device does not take is undone.
DWORD setLine(int fd, const DCB& dcb);
DWORD getLine(int fd, DCB& dcb);
// Lets bytes pass as they are. ERROR_INVALID_FUNCTION for what is no line.
DWORD makeBinary(int fd);

} // namespace corekit::detail
