#include "corekit/logging/LogLevel.h"

#include "corekit/platform/Runtime.h"

#include <bit>
#include <iterator>
#include <string>

namespace corekit {
namespace {

// By number of the bit; the last for all else.
constexpr std::string_view fields[] = {
    "Debug             ", "Trace             ", "Information       ", "Warning           ",
    "MinorError        ", "MajorError        ", "CriticalError     ", "*Unknown*         ",
};
constexpr DWORD unknown = std::size(fields) - 1;

} // namespace

std::string_view LogLevelField(DWORD level)
{
    const bool isOneBit = (level & (level - 1)) == 0 && level < (DWORD{1} << unknown) && level != 0;
    return fields[isOneBit ? static_cast<DWORD>(std::countr_zero(level)) : unknown];
}

std::string_view LogLevelName(DWORD level)
{
    const std::string_view field = LogLevelField(level);
    return field.substr(0, field.find(' '));
}

DWORD LogLevelOfName(std::string_view name)
{
    const std::string wanted(name);
    for (DWORD level = 1; level < (DWORD{1} << unknown); level <<= 1)
        if (_stricmp(wanted.c_str(), std::string(LogLevelName(level)).c_str()) == 0) return level;
    return 0;
}

} // namespace corekit
