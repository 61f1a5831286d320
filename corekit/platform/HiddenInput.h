// A line that nobody is to read over a shoulder.
#pragma once

#include "corekit/platform/Export.h"

#include <string>

// Asks on the process's terminal, whatever its standard streams are, and reads a line without showing it.
// False when there is no terminal or no line.
COREKIT_API bool ReadHiddenLine(const char* prompt, std::string& line);
