// How grave an entry of a log is. Each level is a bit of a log's mask.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <string_view>

enum eLogLevel : DWORD {
    logDebug = 1,
    logTrace = 2,
    logInformation = 4,
    logWarning = 8,
    logMinorError = 16,
    logMajorError = 32,
    logCriticalError = 64,
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
