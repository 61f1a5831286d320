#include "corekit/logging/LogLevel.h"

#include "corekit/platform/Runtime.h"

#include <bit>
#include <iterator>
#include <string>

namespace corekit::detail {
namespace {
// By number of the bit.
constexpr std::string_view names[] = {"Debug",      "Trace",      "Information",  "Warning",
                                      "MinorError", "MajorError", "CriticalError"};
} // namespace

std::string_view LogLevelName(DWORD level)
{
    const auto bit = static_cast<std::size_t>(std::countr_zero(level));
    return std::has_single_bit(level) && bit < std::size(names) ? names[bit] : "*Unknown*";
}

DWORD LogLevelOfName(std::string_view name)
{
    const std::string wanted(name);
    for (DWORD bit = 0; bit < std::size(names); ++bit)
        if (_stricmp(wanted.c_str(), std::string(names[bit]).c_str()) == 0) return DWORD{1} << bit;
    return 0;
}

} // namespace corekit::detail
