#include "corekit/platform/posix/text/CodePage.h"
#include "corekit/platform/Utf8Text.h"

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

// The plain characters at the front of the text, as far as there is room; the others are left.
template <class From, class To, class Convert>
void takePlain(std::basic_string_view<From>& text, Sink<To>& sink, Convert convert)
{
    const auto [from, to] = convert(Utf8Forms::proper, text, sink.place(), sink.room());
    sink.advance(static_cast<std::size_t>(to - sink.place()));
    text.remove_prefix(static_cast<std::size_t>(from - text.data()));
}

void widenOne(std::string_view& text, Sink<WCHAR>& sink)
{
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

void narrowOne(std::u16string_view& text, Sink<char>& sink)
{
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

// Most texts are plain from end to end.
template <class From, class To, class Convert, class One>
Converted convertAll(std::basic_string_view<From> text, To* result, std::size_t size, Convert plain, One one)
{
    Sink<To> sink(result, size);
    while (!text.empty()) {
        takePlain(text, sink, plain);
        if (!text.empty()) one(text, sink);
    }
    return sink.converted();
}

class Utf8Page final : public CodePage {
public:
    Converted widen(std::string_view text, WCHAR* result, std::size_t size) const override
    {
        return convertAll(text, result, size, widenUtf8, widenOne);
    }
    Converted narrow(std::u16string_view text, char* result, std::size_t size,
                     std::string_view) const override
    {
        return convertAll(text, result, size, narrowUtf8, narrowOne);
    }
    std::size_t longest() const override { return 3; } // four bytes are two units
};

} // namespace

std::unique_ptr<const CodePage> makeUtf8Page() { return std::make_unique<Utf8Page>(); }

} // namespace corekit::detail
