#include "corekit/platform/posix/text/CodePage.h"
#include "corekit/platform/Utf8Runs.h"

#include <algorithm>

namespace corekit::detail {
namespace {

constexpr WCHAR replacement = 0xFFFD;

bool isTrail(unsigned char byte) { return (byte & 0xC0) == 0x80; }

struct Decoded {
    char32_t point = 0; // 0 when the bytes stand for nothing
    std::size_t length; // of the character, or of the longest start of one
};

// One character of more than one byte; refuses overlong forms, surrogates and what lies above U+10FFFF.
Decoded decode(std::string_view text)
{
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = at(0);
    if (lead < 0xC2 || lead > 0xF4) return {0, 1};
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    unsigned char low = 0x80, high = 0xBF; // of the second byte
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
    if (text.size() < 2 || at(1) < low || at(1) > high) return {0, 1};
    char32_t point = (lead & (0x7F >> length)) << 6 | (at(1) & 0x3F);
    for (std::size_t i = 2; i < length; ++i) {
        if (i >= text.size() || !isTrail(at(i))) return {0, i};
        point = point << 6 | (at(i) & 0x3F);
    }
    return {point, length};
}

template <typename Unit>
std::size_t left(const Unit* at, const Unit* end)
{
    return static_cast<std::size_t>(end - at);
}

void encode(char32_t point, Sink<char>& sink)
{
    const auto tail = [&](unsigned shift) { return static_cast<char>(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80) {
        sink.put(static_cast<char>(point));
    } else if (point < 0x800) {
        const char bytes[] = {static_cast<char>(0xC0 | point >> 6), tail(0)};
        sink.put(bytes, 2);
    } else if (point < 0x10000) {
        const char bytes[] = {static_cast<char>(0xE0 | point >> 12), tail(6), tail(0)};
        sink.put(bytes, 3);
    } else {
        const char bytes[] = {static_cast<char>(0xF0 | point >> 18), tail(12), tail(6), tail(0)};
        sink.put(bytes, 4);
    }
}

// Characters at the front of the text that are short, or plain ones of three bytes, with room for a block;
// the others are left.
std::size_t widenRuns(std::string_view text, Sink<WCHAR>& sink)
{
    const char* from = text.data();
    WCHAR* to = sink.place();
    const char* const fromEnd = from + text.size();
    const WCHAR* const end = to + sink.room();
    while (left(from, fromEnd) >= runBytes && left(to, end) >= runUnits) {
        const auto lead = static_cast<unsigned char>(*from);
        if (lead < 0x80) {
            const std::size_t run = widenAscii(from, to);
            from += run;
            to += run;
        } else if (lead < 0xE0) {
            const std::size_t run = widenPairs<Overlong::refused>(from, to);
            if (run == 0) break;
            from += 2 * run;
            to += run;
        } else {
            const unsigned second = static_cast<unsigned char>(from[1]) ^ 0x80u;
            const unsigned third = static_cast<unsigned char>(from[2]) ^ 0x80u;
            const auto unit = static_cast<WCHAR>(lead << 12 | second << 6 | third);
            if (lead > 0xEF || (second | third) > 0x3F || unit < 0x800 || (unit & 0xF800) == 0xD800) break;
            *to++ = unit;
            from += 3;
        }
    }
    sink.advance(static_cast<std::size_t>(to - sink.place()));
    return static_cast<std::size_t>(from - text.data());
}

std::size_t narrowRuns(std::u16string_view text, Sink<char>& sink)
{
    const WCHAR* from = text.data();
    char* to = sink.place();
    const WCHAR* const fromEnd = from + text.size();
    const char* const end = to + sink.room();
    while (left(from, fromEnd) >= runUnits && left(to, end) >= runBytes) {
        const WCHAR unit = *from;
        if (unit < 0x80) {
            const std::size_t run = narrowAscii(from, to);
            from += run;
            to += run;
        } else if (unit < 0x800) {
            const std::size_t run = narrowPairs(from, to);
            from += run;
            to += 2 * run;
        } else {
            if ((unit & 0xF800) == 0xD800) break;
            to[0] = static_cast<char>(0xE0 | unit >> 12);
            to[1] = static_cast<char>(0x80 | (unit >> 6 & 0x3F));
            to[2] = static_cast<char>(0x80 | (unit & 0x3F));
            to += 3;
            ++from;
        }
    }
    sink.advance(static_cast<std::size_t>(to - sink.place()));
    return static_cast<std::size_t>(from - text.data());
}

// The same for a text that is shorter than a block, with something behind it at which every run stops.
std::size_t widenRest(std::string_view text, Sink<WCHAR>& sink)
{
    char rest[2 * runBytes] = {};
    *std::ranges::copy(text, rest).out = '\xFF';
    return widenRuns({rest, text.size() + runBytes}, sink);
}

std::size_t narrowRest(std::u16string_view text, Sink<char>& sink)
{
    WCHAR rest[2 * runUnits] = {};
    *std::ranges::copy(text, rest).out = 0xDFFF;
    return narrowRuns({rest, text.size() + runUnits}, sink);
}

class Utf8Page final : public CodePage {
public:
    Converted widen(std::string_view text, WCHAR* result, std::size_t size) const override
    {
        Sink<WCHAR> sink(result, size);
        while (!text.empty()) {
            const bool isShort = text.size() < runBytes;
            text.remove_prefix(isShort ? widenRest(text, sink) : widenRuns(text, sink));
            if (text.empty()) break;
            const auto lead = static_cast<unsigned char>(text[0]);
            const Decoded character = lead < 0x80 ? Decoded{lead, 1} : decode(text);
            text.remove_prefix(character.length);
            if (character.point > 0xFFFF) {
                const char32_t above = character.point - 0x10000;
                const WCHAR pair[] = {static_cast<WCHAR>(0xD800 + (above >> 10)),
                                      static_cast<WCHAR>(0xDC00 + (above & 0x3FF))};
                sink.put(pair, 2);
            } else if (character.point == 0 && lead != 0) {
                sink.markUnknown();
                sink.put(replacement);
            } else {
                sink.put(static_cast<WCHAR>(character.point));
            }
        }
        return sink.converted();
    }

    Converted narrow(std::u16string_view text, char* result, std::size_t size,
                     std::string_view) const override
    {
        Sink<char> sink(result, size);
        while (!text.empty()) {
            const bool isShort = text.size() < runUnits;
            text.remove_prefix(isShort ? narrowRest(text, sink) : narrowRuns(text, sink));
            if (text.empty()) break;
            char32_t point = text[0];
            std::size_t units = 1;
            if (point >= 0xD800 && point <= 0xDFFF) {
                if (point < 0xDC00 && text.size() > 1 && text[1] >= 0xDC00 && text[1] <= 0xDFFF) {
                    point = 0x10000 + ((point - 0xD800) << 10) + (text[1] - 0xDC00);
                    units = 2;
                } else {
                    sink.markUnknown();
                    point = replacement;
                }
            }
            text.remove_prefix(units);
            encode(point, sink);
        }
        return sink.converted();
    }

    std::size_t longest() const override { return 3; } // four bytes are two units
};

} // namespace

std::unique_ptr<const CodePage> makeUtf8Page() { return std::make_unique<Utf8Page>(); }

} // namespace corekit::detail
