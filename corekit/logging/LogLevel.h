// How grave an entry of a log is. Each level is a bit of a log's mask.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <string_view>

enum eLogLevel : DWORD {
    logDebug = 1,          // for who looks for a fault
    logTrace = 2,          // step by step what happens
    logInformation = 4,    // what an operator may want to know
    logWarning = 8,        // something to be looked at
    logMinorError = 16,    // something failed, the program goes on as before
    logMajorError = 32,    // a part of its work is not done
    logCriticalError = 64, // it cannot go on
};

namespace corekit {

// "Debug", "Trace", "Information", "Warning", "MinorError", "MajorError" or "CriticalError"; "*Unknown*" for
// what is not one level.
COREKIT_API std::string_view LogLevelName(DWORD level);
// The same with the blanks that follow it in a line: 16 columns and two more.
COREKIT_API std::string_view LogLevelField(DWORD level);
// The level of that name, case aside; 0 if there is none.
COREKIT_API DWORD LogLevelOfName(std::string_view name);

} // namespace corekit
