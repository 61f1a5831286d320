#include "corekit/platform/Utf8Text.h"

#include "corekit/platform/posix/text/Utf8Windows.h"
#include "corekit/platform/TextVector.h"

#include <algorithm>

namespace corekit::detail {
namespace {

// The first two bytes of a character of two, the lead byte in the lower half, become its unit, and back.
Units unitsOfPairs(Units pairs) { return (pairs & spreadUnit(0x1F)) << 6 | (pairs >> 8 & spreadUnit(0x3F)); }
Units pairsOfUnits(Units units)
{
    return (units >> 6 | spreadUnit(0xC0)) | ((units & spreadUnit(0x3F)) | spreadUnit(0x80)) << 8;
}

// --- steps of any machine: runs of one kind of character

// 16 bytes to 8 units; how many characters at the front were of two bytes.
template <Utf8Forms forms>
std::size_t widenPairs(const char* from, WCHAR* to)
{
    const Units pairs = loadUnits(from);
    storeUnits(to, unitsOfPairs(pairs));
    Units fitting = equalUnits(pairs & spreadUnit(0xC0E0), spreadUnit(0x80C0));
    if constexpr (forms == Utf8Forms::proper) fitting &= ~zeroUnits(pairs & spreadUnit(0x1E));
    return leadingMarks(fitting);
}

// 8 units to 16 bytes.
std::size_t narrowPairs(const WCHAR* from, char* to)
{
    const Units units = loadUnits(from);
    storeUnits(to, pairsOfUnits(units));
    const Units isShort = zeroUnits(units & spreadUnit(0xF800));
    const Units isAscii = zeroUnits(units & spreadUnit(0xFF80));
    return leadingMarks(isShort & ~isAscii);
}

bool isSurrogate(WCHAR unit) { return (unit & 0xF800) == 0xD800; }

template <Utf8Forms forms>
Widening steps(Widening at, const char* last, const WCHAR* toLast)
{
    while (at.from < last && at.to < toLast) {
        const auto lead = static_cast<unsigned char>(*at.from);
        if (lead < 0x80) {
            const std::size_t run = widenAscii(at.from, at.to);
            at = {at.from + run, at.to + run};
        } else if (lead < 0xE0) {
            const std::size_t run = widenPairs<forms>(at.from, at.to);
            if (run == 0) break;
            at = {at.from + 2 * run, at.to + run};
        } else {
            const unsigned second = static_cast<unsigned char>(at.from[1]) ^ 0x80u;
            const unsigned third = static_cast<unsigned char>(at.from[2]) ^ 0x80u;
            const auto unit = static_cast<WCHAR>(lead << 12 | second << 6 | third);
            if (lead > 0xEF || (second | third) > 0x3F) break;
            if (forms == Utf8Forms::proper && (unit < 0x800 || isSurrogate(unit))) break;
            *at.to = unit;
            at = {at.from + 3, at.to + 1};
        }
    }
    return at;
}

template <Utf8Forms forms>
Narrowing steps(Narrowing at, const WCHAR* last, const char* toLast)
{
    const auto tail = [](unsigned bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    while (at.from < last && at.to < toLast) {
        const WCHAR unit = *at.from;
        if (unit < 0x80) {
            const std::size_t run = narrowAscii(at.from, at.to);
            at = {at.from + run, at.to + run};
        } else if (unit < 0x800) {
            const std::size_t run = narrowPairs(at.from, at.to);
            at = {at.from + run, at.to + 2 * run};
        } else {
            if (forms == Utf8Forms::proper && isSurrogate(unit)) break;
            at.to[0] = static_cast<char>(0xE0 | unit >> 12);
            at.to[1] = tail(unit >> 6);
            at.to[2] = tail(unit);
            at = {at.from + 1, at.to + 3};
        }
    }
    return at;
}

// --- windows and steps in turn

// What a step reads and writes at most.
constexpr std::size_t blockOf(const char*) { return 16; }
constexpr std::size_t blockOf(const WCHAR*) { return 8; }
constexpr std::size_t writtenBlock = 16;

template <Utf8Forms forms>
Widening windows(Widening at, const char* end, const WCHAR* toEnd)
{
    return widenWindows<forms>(at, end, toEnd);
}
template <Utf8Forms forms>
Narrowing windows(Narrowing at, const WCHAR* end, const char* toEnd)
{
    return narrowWindows<forms>(at, end, toEnd);
}

// The place behind the last one where a whole block begins.
template <class Unit>
Unit* lastBlock(Unit* begin, std::size_t size, std::size_t block)
{
    return begin + (size < block ? 0 : size - block + 1);
}

// Where no block can be read or written, a piece is converted aside with zeros behind it. Each zero that was
// taken for text is one in the result.
template <Utf8Forms forms, class From, class To>
TextPlace<From, To> stepAside(TextPlace<From, To> at, const From* end, const To* toEnd)
{
    constexpr std::size_t block = blockOf(static_cast<const From*>(nullptr));
    const std::size_t size = std::min(static_cast<std::size_t>(end - at.from), block);
    From piece[3 * block] = {};
    To result[4 * writtenBlock];
    std::copy_n(at.from, size, piece);
    const TextPlace<From, To> done =
        steps<forms>(TextPlace<From, To>{piece, result}, piece + size, std::end(result) - writtenBlock);
    const auto over = std::max<std::ptrdiff_t>(done.from - (piece + size), 0);
    const auto read = done.from - piece - over, written = done.to - result - over;
    if (written > toEnd - at.to) return at;
    return {at.from + read, std::copy_n(result, written, at.to)};
}

template <Utf8Forms forms, class From, class To>
TextPlace<From, To> convert(std::basic_string_view<From> text, To* to, std::size_t room)
{
    constexpr std::size_t block = blockOf(static_cast<const From*>(nullptr));
    const From* const end = text.data() + text.size();
    const From* const last = lastBlock(text.data(), text.size(), block);
    const To* const toEnd = to + room;
    const To* const toLast = lastBlock(to, room, writtenBlock);
    for (TextPlace<From, To> at{text.data(), to};;) {
        if (hasUtf8Windows) at = windows<forms>(at, end, toEnd);
        if (at.from == end || at.to == toEnd) return at;
        const From* const before = at.from;
        at = at.from < last && at.to < toLast
                 ? steps<forms>(at, hasUtf8Windows ? std::min(at.from + block, last) : last, toLast)
                 : stepAside<forms>(at, end, toEnd);
        if (at.from == before) return at;
    }
}

} // namespace

TextPlace<char, WCHAR> widenUtf8(Utf8Forms forms, std::string_view text, WCHAR* to, std::size_t room)
{
    return forms == Utf8Forms::any ? convert<Utf8Forms::any>(text, to, room)
                                   : convert<Utf8Forms::proper>(text, to, room);
}

TextPlace<WCHAR, char> narrowUtf8(Utf8Forms forms, std::u16string_view text, char* to, std::size_t room)
{
    return forms == Utf8Forms::any ? convert<Utf8Forms::any>(text, to, room)
                                   : convert<Utf8Forms::proper>(text, to, room);
}

std::size_t utf8Length(std::u16string_view text)
{
    std::size_t bytes = text.size();
    for (const WCHAR unit : text) bytes += std::size_t{unit >= 0x80} + (unit >= 0x800);
    return bytes;
}

std::size_t utf16Length(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

} // namespace corekit::detail
