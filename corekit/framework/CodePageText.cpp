#include "corekit/framework/CodePageText.h"

#include "corekit/platform/CodePages.h"
#include "corekit/platform/TextScan.h"

#include <algorithm>

namespace corekit::detail {

int narrowInto(std::u16string_view text, char* out, int room)
{
    return WideCharToMultiByte(CP_ACP, 0, text.data(), countedLength(text.size()), out, room, nullptr,
                               nullptr);
}

int widenInto(std::string_view text, WCHAR* out, int room)
{
    return MultiByteToWideChar(CP_ACP, 0, text.data(), countedLength(text.size()), out, room);
}

namespace {

// Units that make one character at the front of a text.
std::size_t firstCharacter(std::u16string_view text)
{
    return text.size() > 1 && isHighSurrogate(text[0]) && isLowSurrogate(text[1]) ? 2 : 1;
}

} // namespace

std::u16string wideText(std::string_view text)
{
    if (text.empty()) return {};
    std::u16string wide(text.size(), u'\0'); // hardly a code page makes more units than bytes
    int units = widenInto(text, wide.data(), countedLength(wide.size()));
    if (units <= 0) {
        units = std::max(0, widenInto(text, nullptr, 0));
        wide.resize(static_cast<std::size_t>(units));
        if (units) units = widenInto(text, wide.data(), units);
    }
    wide.resize(static_cast<std::size_t>(std::max(units, 0)));
    return wide;
}

std::string narrowText(std::u16string_view text, int most)
{
    if (text.empty() || most == 0) return {};
    const int whole = narrowInto(text, nullptr, 0);
    std::string narrow(static_cast<std::size_t>(std::max(whole, 0)), '\0');
    if (most < 0 || whole <= most) {
        narrowInto(text, narrow.data(), whole);
        return narrow;
    }
    narrow.clear();
    while (!text.empty()) {
        char bytes[8];
        const std::size_t units = firstCharacter(text);
        const int n = narrowInto(text.substr(0, units), bytes, sizeof bytes);
        if (narrow.size() + static_cast<std::size_t>(n) > static_cast<std::size_t>(most)) break;
        narrow.append(bytes, static_cast<std::size_t>(n));
        text.remove_prefix(units);
    }
    return narrow;
}

} // namespace corekit::detail
