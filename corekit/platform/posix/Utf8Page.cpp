#include "corekit/platform/posix/CodePage.h"

namespace corekit::detail {
namespace {

constexpr WCHAR kReplacement = 0xFFFD;

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

class Utf8Page final : public CodePage {
public:
    Converted widen(std::string_view text, WCHAR* result, std::size_t size) const override
    {
        Sink<WCHAR> sink(result, size);
        while (!text.empty()) {
            text.remove_prefix(copyAscii(text, sink));
            if (text.empty()) break;
            if (static_cast<unsigned char>(text[0]) < 0x80) { // no room is left, only counting
                sink.put(static_cast<WCHAR>(text[0]));
                text.remove_prefix(1);
                continue;
            }
            const Decoded character = decode(text);
            text.remove_prefix(character.length);
            if (character.point == 0) {
                sink.markUnknown();
                sink.put(kReplacement);
            } else if (character.point < 0x10000) {
                sink.put(static_cast<WCHAR>(character.point));
            } else {
                const char32_t above = character.point - 0x10000;
                const WCHAR pair[] = {static_cast<WCHAR>(0xD800 + (above >> 10)),
                                      static_cast<WCHAR>(0xDC00 + (above & 0x3FF))};
                sink.put(pair, 2);
            }
        }
        return sink.converted();
    }

    Converted narrow(std::u16string_view text, char* result, std::size_t size,
                     std::string_view) const override
    {
        Sink<char> sink(result, size);
        while (!text.empty()) {
            text.remove_prefix(copyAscii(text, sink));
            if (text.empty()) break;
            char32_t point = text[0];
            std::size_t units = 1;
            if (point >= 0xD800 && point <= 0xDFFF) {
                if (point < 0xDC00 && text.size() > 1 && text[1] >= 0xDC00 && text[1] <= 0xDFFF) {
                    point = 0x10000 + ((point - 0xD800) << 10) + (text[1] - 0xDC00);
                    units = 2;
                } else {
                    sink.markUnknown();
                    point = kReplacement;
                }
            }
            text.remove_prefix(units);
            encode(point, sink);
        }
        return sink.converted();
    }

private:
    static void encode(char32_t point, Sink<char>& sink)
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
};

} // namespace

std::unique_ptr<const CodePage> makeUtf8Page() { return std::make_unique<Utf8Page>(); }

} // namespace corekit::detail
