#include "corekit/unicode/storage/StoredText.h"

#include "corekit/platform/Normalization.h"
#include "corekit/unicode/storage/Rules.h"

#include <algorithm>
#include <climits>

using namespace corekit::detail;

namespace {

constexpr char16_t farsiYeh = 0x06CC, yeh = 0x064A, hamzaAbove = 0x0654;

std::u16string_view viewOf(const WCHAR* text, int length)
{
    if (!text) return {};
    return length < 0 ? std::u16string_view(text)
                      : std::u16string_view(text, static_cast<std::size_t>(length));
}

StringW stringOf(const std::u16string& text)
{
    return StringW(text.data(), static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX)));
}

// Nothing below U+0300 has another form.
bool isComposed(std::u16string_view text)
{
    return std::ranges::all_of(text, [](char16_t c) { return c < 0x300; });
}

std::u16string composedText(std::u16string_view text)
{
    if (isComposed(text) || text.size() > INT_MAX / 3) return std::u16string(text);
    const int length = static_cast<int>(text.size());
    std::u16string composed(text.size() + text.size() / 4 + 16, u'\0');
    int made = NormalizeString(NormalizationC, text.data(), length, composed.data(),
                               static_cast<int>(composed.size()));
    if (made == 0) {
        composed.resize(
            static_cast<std::size_t>(NormalizeString(NormalizationC, text.data(), length, nullptr, 0)));
        made = NormalizeString(NormalizationC, text.data(), length, composed.data(),
                               static_cast<int>(composed.size()));
    }
    composed.resize(static_cast<std::size_t>(made));
    return composed;
}

// A Farsi yeh with a hamza on it is the yeh that bears one.
bool mergeYehHamza(std::u16string& text)
{
    bool merged = false;
    std::size_t letter = 0; // the last unit that is no Arabic mark
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == hamzaAbove && text[letter] == farsiYeh) {
            text[letter] = yeh;
            merged = true;
        }
        if (text[at] < 0x064B || text[at] > 0x065F) letter = at;
    }
    return merged;
}

bool isArabic(char16_t c) { return c >= 0x0600 && c <= 0x06FF; }

std::size_t storeOne(std::u16string_view text, std::size_t at, std::u16string& stored)
{
    const char16_t c = text[at];
    if (isArabic(c)) return storeArabic(text, at, stored);
    if (c == u'-') return storeHyphen(text, at, stored);
    return c == u' ' || (c >= 0x0900 && c <= 0x09FF) ? storeIndic(text, at, stored) : 0;
}

std::size_t restoreOne(std::u16string_view stored, std::size_t at, TextLanguage language,
                       std::u16string& text)
{
    if (const std::size_t taken = restoreArabic(stored, at, language, text)) return taken;
    if (const std::size_t taken = restoreHyphen(stored, at, text)) return taken;
    return restoreIndic(stored, at, text);
}

template <class Rule>
std::u16string rewritten(std::u16string_view text, Rule rule)
{
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t taken = rule(text, at, out);
        if (taken == 0) out.push_back(text[at]);
        at += taken ? taken : 1;
    }
    return out;
}

} // namespace

StoredText ToStoredText(const WCHAR* text, int length, LANGID)
{
    std::u16string plain = composedText(viewOf(text, length));
    if (mergeYehHamza(plain)) plain = composedText(plain);
    return stringOf(rewritten(plain, storeOne));
}

StringW ToPlainText(const WCHAR* stored, int length, LANGID language)
{
    const std::u16string_view text = viewOf(stored, length);
    const TextLanguage letters = languageOf(language, text);
    const auto restore = [letters](std::u16string_view from, std::size_t at, std::u16string& out) {
        return restoreOne(from, at, letters, out);
    };
    return stringOf(composedText(rewritten(text, restore)));
}
