#include "TextFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace {

constexpr char32_t replacement = 0xFFFD;

// Decodes the sequence at `at` and moves past it; a malformed one yields U+FFFD for each byte that starts
// nothing.
char32_t Decode(std::string_view s, std::size_t& at)
{
    static constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(s[at++]);
    if (lead < 0x80) return lead;
    const int more = lead >= 0xF0 && lead < 0xF5   ? 3
                     : lead >= 0xE0 && lead < 0xF0 ? 2
                     : lead >= 0xC2 && lead < 0xE0 ? 1
                                                   : 0;
    if (more == 0) return replacement;
    char32_t c = lead & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        if (at == s.size() || (static_cast<unsigned char>(s[at]) & 0xC0) != 0x80) return replacement;
        c = c << 6 | (static_cast<unsigned char>(s[at++]) & 0x3F);
    }
    return c < least[more] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000) ? replacement : c;
}

void Append(std::u16string& out, char32_t c)
{
    if (c > 0xFFFF) {
        out += static_cast<char16_t>(0xD7C0 + (c >> 10));
        c = 0xDC00 | (c & 0x3FF);
    }
    out += static_cast<char16_t>(c);
}

std::u16string FromUtf16Bytes(std::string_view bytes, bool bigEndian)
{
    std::u16string out;
    out.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto a = static_cast<unsigned char>(bytes[i]), b = static_cast<unsigned char>(bytes[i + 1]);
        out += static_cast<char16_t>(bigEndian ? a << 8 | b : b << 8 | a);
    }
    return out;
}

std::u16string DecodeFile(std::string_view bytes)
{
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xFF\xFE"sv)) return FromUtf16Bytes(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF"sv)) return FromUtf16Bytes(bytes.substr(2), true);
    return Utf16(bytes.starts_with("\xEF\xBB\xBF"sv) ? bytes.substr(3) : bytes);
}

} // namespace

std::u16string Utf16(std::string_view utf8)
{
    std::u16string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) Append(out, Decode(utf8, at));
    return out;
}

std::string Utf8(std::u16string_view utf16)
{
    std::string out;
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t c = utf16[i];
        const bool high = c >= 0xD800 && c < 0xDC00;
        if (high && i + 1 < utf16.size() && (utf16[i + 1] & 0xFC00) == 0xDC00)
            c = 0x10000 + ((c & 0x3FF) << 10 | (utf16[++i] & 0x3FF));
        else if ((c & 0xF800) == 0xD800)
            c = replacement;
        const int more = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        static constexpr int marks[] = {0, 0xC0, 0xE0, 0xF0};
        out += static_cast<char>(marks[more] | static_cast<int>(c >> (6 * more)));
        for (int k = more - 1; k >= 0; --k) out += static_cast<char>(0x80 | (c >> (6 * k) & 0x3F));
    }
    return out;
}

std::vector<std::u16string> ReadLines(const std::string& path)
{
    std::ifstream file(path == "-" ? "/dev/stdin" : path, std::ios::binary);
    std::ostringstream whole;
    if (!file.is_open())
        throw std::runtime_error("cannot read " + path + ": " + std::generic_category().message(errno));
    if (file.peek() != std::ifstream::traits_type::eof()) whole << file.rdbuf();
    if (file.bad())
        throw std::runtime_error("cannot read " + path + ": it is a folder or cannot be read to its end");
    const std::string bytes = whole.str();
    const std::u16string text = DecodeFile(bytes);

    std::vector<std::u16string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of(u"\r\n", at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + (text.compare(end, 2, u"\r\n") == 0 ? 2 : 1);
    }
    return lines;
}
