#include "model/ScriptText.h"

#include "corekit/platform/CodePages.h"

#include <algorithm>
#include <climits>

namespace prompter {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF", littleMark = "\xFF\xFE", bigMark = "\xFE\xFF";

unsigned PageOf(const TextForm& form)
{
    return form.encoding == Encoding::codePage ? form.codePage : CP_UTF8;
}

std::u16string Widen(std::string_view bytes, unsigned page)
{
    if (bytes.empty() || bytes.size() > INT_MAX) return {};
    const int length = static_cast<int>(bytes.size());
    std::u16string text(bytes.size(), u'\0'); // no page makes more units than it has bytes
    int made = MultiByteToWideChar(page, 0, bytes.data(), length, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(made, 0)));
    return text;
}

std::optional<std::string> Narrow(std::u16string_view text, unsigned page)
{
    if (text.empty()) return std::string();
    if (text.size() > INT_MAX / 4) return std::nullopt;
    const int length = static_cast<int>(text.size());
    BOOL lost = FALSE;
    const bool isUtf8 = page == CP_UTF8;
    std::string bytes(text.size() * (isUtf8 ? 3 : 4), '\0');
    const int made =
        WideCharToMultiByte(page, isUtf8 ? WC_ERR_INVALID_CHARS : 0, text.data(), length, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, isUtf8 ? nullptr : &lost);
    if (made <= 0 || lost) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(made));
    return bytes;
}

std::u16string FromUnits(std::string_view bytes, bool bigEndian)
{
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

std::string ToUnits(std::u16string_view text, bool bigEndian)
{
    std::string bytes(bigEndian ? bigMark : littleMark);
    bytes.reserve(2 + text.size() * 2);
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

bool EveryLineHasCarriageReturn(std::u16string_view text)
{
    bool any = false;
    for (std::size_t at = text.find(u'\n'); at != text.npos; at = text.find(u'\n', at + 1)) {
        if (at == 0 || text[at - 1] != u'\r') return false;
        any = true;
    }
    return any;
}

void DropCarriageReturns(std::u16string& text)
{
    std::size_t to = 0;
    for (std::size_t from = 0; from < text.size(); ++from)
        if (text[from] != u'\r' || from + 1 == text.size() || text[from + 1] != u'\n')
            text[to++] = text[from];
    text.resize(to);
}

std::u16string WithCarriageReturns(std::u16string_view text)
{
    std::u16string out;
    out.reserve(text.size() + text.size() / 16);
    for (const char16_t unit : text) {
        if (unit == u'\n') out += u'\r';
        out += unit;
    }
    return out;
}

} // namespace

ScriptText DecodeScript(std::string_view bytes, unsigned codePage)
{
    ScriptText script;
    std::string_view body = bytes;
    if (bytes.starts_with(utf8Mark)) {
        script.form.encoding = Encoding::utf8WithMark;
        body.remove_prefix(utf8Mark.size());
    } else if (bytes.starts_with(littleMark) || bytes.starts_with(bigMark)) {
        script.form.encoding = bytes.starts_with(littleMark) ? Encoding::utf16Little : Encoding::utf16Big;
        body.remove_prefix(littleMark.size());
    } else if (codePage != 0 && codePage != CP_UTF8) {
        script.form.encoding = Encoding::codePage;
        script.form.codePage = codePage;
    }
    const bool isWide =
        script.form.encoding == Encoding::utf16Little || script.form.encoding == Encoding::utf16Big;
    script.text = isWide ? FromUnits(body, script.form.encoding == Encoding::utf16Big)
                         : Widen(body, PageOf(script.form));
    script.form.carriageReturns = EveryLineHasCarriageReturn(script.text);
    if (script.form.carriageReturns) DropCarriageReturns(script.text);
    const auto again = EncodeScript(script.text, script.form);
    script.isExact = again && *again == bytes;
    return script;
}

std::optional<std::string> EncodeScript(std::u16string_view text, const TextForm& form)
{
    const std::u16string ended = form.carriageReturns ? WithCarriageReturns(text) : std::u16string();
    const std::u16string_view body = form.carriageReturns ? std::u16string_view(ended) : text;
    switch (form.encoding) {
    case Encoding::utf16Little:
    case Encoding::utf16Big:
        return ToUnits(body, form.encoding == Encoding::utf16Big);
    case Encoding::utf8WithMark: {
        auto bytes = Narrow(body, CP_UTF8);
        if (bytes) bytes->insert(0, utf8Mark);
        return bytes;
    }
    default:
        return Narrow(body, PageOf(form));
    }
}

} // namespace prompter
