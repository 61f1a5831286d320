#include "corekit/foundation/TextConversion.h"

#include "corekit/platform/TextScan.h"

#include <algorithm>

using namespace corekit::detail;

int _wcstombsz(char* dest, const WCHAR* src, std::size_t count)
{
    if (count == 0) return 0;
    const std::u16string_view text(src, textLength(src));
    const int room = static_cast<int>(std::min<std::size_t>(count - 1, INT_MAX - 1));
    int written = 0;
    if (!text.empty() && room > 0) {
        written = narrowInto(text, dest, room);
        if (written <= 0) {
            const std::string cut = narrowText(text, room);
            written = static_cast<int>(cut.copy(dest, cut.size()));
        }
    }
    dest[written] = '\0';
    return written + 1;
}

int _mbstowcsz(WCHAR* dest, const char* src, std::size_t count)
{
    if (count == 0) return 0;
    const std::string_view text(src);
    const int room = static_cast<int>(std::min<std::size_t>(count - 1, INT_MAX - 1));
    int written = 0;
    if (!text.empty() && room > 0) {
        written = widenInto(text, dest, room);
        if (written <= 0) {
            std::u16string cut = wideText(text).substr(0, static_cast<std::size_t>(room));
            if (!cut.empty() && isHighSurrogate(cut.back())) cut.pop_back();
            written = static_cast<int>(cut.copy(dest, cut.size()));
        }
    }
    dest[written] = u'\0';
    return written + 1;
}
