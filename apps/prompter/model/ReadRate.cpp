#include "model/ReadRate.h"

#include <algorithm>

namespace prompter {
namespace {

// What is read at a glance: English news is spoken at about 15 characters a second.
constexpr double charactersPerSecond = 15;

bool IsSpoken(char16_t unit)
{
    const bool isMark = (unit >= 0x300 && unit < 0x370) || (unit >= 0x64B && unit < 0x660);
    return unit > u' ' && !isMark && (unit & 0xFC00) != 0xDC00;
}

} // namespace

double ReadRate::SecondsPerLine() const
{
    if (bySeconds) return static_cast<double>(std::max(seconds, 1)) / std::max(lines, 1);
    return std::max(charactersPerLine, 1) / charactersPerSecond;
}

long long ReadRate::LinesFor(std::u16string_view text) const
{
    const int perLine = std::max(charactersPerLine, 1);
    long long displayLines = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u'\n'), text.size());
        const auto spoken = std::ranges::count_if(text.substr(0, end), IsSpoken);
        if (spoken > 0) displayLines += (spoken + perLine - 1) / perLine;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return displayLines;
}

} // namespace prompter
