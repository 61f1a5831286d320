#include "corekit/platform/HarmlessText.h"

#include <cstdio>

namespace {
// Bytes of the well-formed UTF-8 sequence at the front, 0 if there is none.
std::size_t sequenceLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const auto follows = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    const unsigned lead = byte(0), second = byte(1);
    if (lead < 0xC2 || lead > 0xF4 || !follows(1)) return 0;
    if (lead < 0xE0) return 2;
    if (!follows(2) || (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F)) return 0;
    if (lead < 0xF0) return 3;
    return follows(3) && !(lead == 0xF0 && second < 0x90) && !(lead == 0xF4 && second > 0x8F) ? 4 : 0;
}

void escape(std::string& shown, const char* form, unsigned code)
{
    char escaped[8];
    std::snprintf(escaped, sizeof escaped, form, code);
    shown += escaped;
}
} // namespace

std::string corekit::HarmlessText(std::string_view text, LineEnds ends)
{
    std::string shown;
    shown.reserve(text.size());
    const bool keeps = ends == LineEnds::kept;
    while (!text.empty()) {
        const auto c = static_cast<unsigned char>(text[0]);
        const std::size_t length = c < 0x80 ? 1 : sequenceLength(text);
        const bool isControl = (c < ' ' && c != '\t') || c == 0x7F;
        if (keeps && (c == '\n' || text.starts_with("\r\n")))
            shown += text[0];
        else if (length == 0 || isControl)
            escape(shown, "\\x%02X", c);
        else if (length == 2 && c == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0)
            escape(shown, "\\u%04X", static_cast<unsigned char>(text[1]));
        else
            shown += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return shown;
}
