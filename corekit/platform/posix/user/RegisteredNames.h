// Numbers for names that parts of the program agree on: messages and clipboard formats. Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <string>

namespace corekit {

namespace detail {
// 0 for an empty name, and when all numbers are taken.
UINT registerName(const char* name);
} // namespace detail

// As it was first spelled; empty for a number that was not given out.
COREKIT_API std::string registeredName(UINT number);

} // namespace corekit
