#include "corekit/unicode/ui/MarkCounter.h"

#include "corekit/unicode/tables/UnicodeCharTypes.h"

namespace corekit::detail {

bool MarkCounter::IsMark(WCHAR c)
{
    constexpr WCHAR first = 0x0300;
    if (c < first) return false;
    const bool isLater = (c >= 0x1AB0 && c < 0x1B00) || (c >= 0x1DC0 && c < 0x1E00); // than the tables
    return isLater || CUnicodeCharTypes::GetGeneralType(c) == general::Mn;
}

} // namespace corekit::detail
