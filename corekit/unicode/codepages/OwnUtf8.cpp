// UTF-8 by hand. Runs of characters of one and of two bytes go eight at a time.
#include "corekit/unicode/codepages/OwnUtf8.h"

#include "corekit/platform/Utf8Runs.h"

#include <algorithm>

namespace corekit::detail {
namespace {

char Tail(unsigned value) { return static_cast<char>(0x80 | (value & 0x3F)); }

// How far a conversion has come.
template <class From, class To>
struct Place {
    const From* from;
    To* to;
};

// Encodes the units before `last`; a whole block may be read from each of them.
Place<WCHAR, char> EncodeBlocks(Place<WCHAR, char> at, const WCHAR* last)
{
    while (at.from < last) {
        const WCHAR unit = *at.from;
        if (unit < 0x80) {
            const std::size_t run = narrowAscii(at.from, at.to);
            at = {at.from + run, at.to + run};
        } else if (unit < 0x800) {
            const std::size_t run = narrowPairs(at.from, at.to);
            at = {at.from + run, at.to + 2 * run};
        } else {
            at.to[0] = static_cast<char>(0xE0 | unit >> 12);
            at.to[1] = Tail(unit >> 6);
            at.to[2] = Tail(unit);
            at = {at.from + 1, at.to + 3};
        }
    }
    return at;
}

bool IsTail(char byte) { return (byte & 0xC0) == 0x80; }
unsigned Bits(char byte, unsigned mask) { return static_cast<unsigned char>(byte) & mask; }

// Decodes the characters that begin before `last`, and stops where nothing can be read; a whole block may be
// read from each.
Place<char, WCHAR> DecodeBlocks(Place<char, WCHAR> at, const char* last)
{
    while (at.from < last) {
        const auto lead = static_cast<unsigned char>(*at.from);
        if (lead < 0x80) {
            const std::size_t run = widenAscii(at.from, at.to);
            at = {at.from + run, at.to + run};
        } else if (lead < 0xE0) {
            const std::size_t run = widenPairs<Overlong::accepted>(at.from, at.to);
            if (run == 0) break;
            at = {at.from + 2 * run, at.to + run};
        } else {
            const unsigned second = Bits(at.from[1], 0xFF) ^ 0x80, third = Bits(at.from[2], 0xFF) ^ 0x80;
            if (lead > 0xEF || (second | third) > 0x3F) break;
            *at.to = static_cast<WCHAR>(lead << 12 | second << 6 | third);
            at = {at.from + 3, at.to + 1};
        }
    }
    return at;
}

// The last place from which a whole block can be read, and behind it.
template <class Char>
const Char* LastBlock(std::basic_string_view<Char> text, std::size_t block)
{
    return text.data() + (text.size() < block ? 0 : text.size() - block + 1);
}

} // namespace

std::size_t Utf8Length(std::u16string_view text)
{
    std::size_t bytes = text.size();
    for (const WCHAR unit : text) bytes += std::size_t{unit >= 0x80} + (unit >= 0x800);
    return bytes;
}

std::size_t EncodeUtf8(std::u16string_view text, char* to)
{
    auto at = EncodeBlocks({text.data(), to}, LastBlock(text, runUnits));
    // The rest, with a stop behind it that no run of short characters passes.
    WCHAR rest[2 * runUnits] = {};
    WCHAR* const restEnd = std::copy(at.from, text.data() + text.size(), rest);
    *restEnd = 0xFFFF;
    at = EncodeBlocks({rest, at.to}, restEnd);
    return static_cast<std::size_t>(at.to - to);
}

std::size_t Utf16Length(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return !IsTail(c); }));
}

DecodedUtf8 DecodeUtf8(std::string_view text, WCHAR* to)
{
    const char* const last = LastBlock(text, runBytes);
    auto at = DecodeBlocks({text.data(), to}, last);
    if (at.from >= last) {
        // The rest, with a stop behind it that belongs to no character.
        char rest[2 * runBytes] = {};
        char* const restEnd = std::copy(at.from, text.data() + text.size(), rest);
        *restEnd = '\xFF';
        at = DecodeBlocks({rest, at.to}, restEnd);
        return {at.from == restEnd, static_cast<std::size_t>(at.to - to)};
    }
    return {false, static_cast<std::size_t>(at.to - to)};
}

} // namespace corekit::detail
