// From the machine's errno to the platform's error numbers. The one place that knows the mapping.
#pragma once

#include "corekit/platform/Errors.h"

#include <string>

namespace corekit::detail {

// The platform's number for an errno value; ERROR_GEN_FAILURE for one that has no counterpart.
DWORD errorFromErrno(int value);

// Stores the platform's number for the current errno as the thread's last error.
void setLastErrorFromErrno();

// Stores the last error and passes the result on: `return fail(ERROR_..., FALSE);`.
template <typename Result>
Result fail(DWORD code, Result result)
{
    SetLastError(code);
    return result;
}

// The machine's text for a platform number that stands for an errno value; empty for any other.
std::string machineTextOf(DWORD code);

// Our own text for a number; null when the table has none.
const char* systemTextOf(DWORD code);

} // namespace corekit::detail
