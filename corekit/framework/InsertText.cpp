#include "corekit/framework/InsertText.h"

#include <cstring>

namespace corekit::detail {
CString replaceInserts(const char* format, std::span<const char* const> inserts)
{
    CString result;
    const char* from = format;
    while (const char* percent = std::strchr(from, '%')) {
        const char digit = percent[1];
        const bool isInsert = digit >= '1' && digit <= '9';
        result.Append(from, static_cast<int>(percent - from) + (isInsert ? 0 : 1));
        from = percent + (isInsert ? 2 : 1);
        if (!isInsert) continue;
        const std::size_t number = static_cast<std::size_t>(digit - '1');
        if (number < inserts.size())
            result += inserts[number];
        else
            result += '?';
    }
    return result += from;
}
} // namespace corekit::detail
