#include "ShownText.h"

#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <iterator>

namespace {

// Private codes of the Indic scripts and how Unicode spells the same.
struct Spelling {
    char16_t code;
    const char16_t* text;
};
constexpr Spelling spellings[] = {
    {0x097A, u"\u094D\u0930"},
    {0x097B, u"\u0930\u094D"},
    {0x097C, u"\u0924\u094D\u0930"},
    {0x097D, u"\u0936\u094D\u0930"},
    {0x097E, u"\u091C\u094D\u091E"},
    {0x097F, u"\u0915\u094D\u0937"},
    {0x0980, u"\u0995\u09CD\u09B7"},
    {0x0984, u"\u09A4\u09CD\u09B0"},
    {0x098D, u"\u09B6\u09CD\u09B0"},
    {0x098E, u"\u0985\u09CD\u09AF\u09BE"},
    {0x09A9, u"\u09A8"},
    {0x09B1, u"\u099C\u09CD\u099E"},
    {0x09D1, u"\u09C8"},
    {0x09D3, u"\u09AC"},
    {0x09D4, u"\u098B"},
    {0x09D5, u"\u09C7"},
    {0x09F4, u"\u09B0\u09CD"},
    {0x09FA, u"\u0981"},
    {0x09FC, u"\u09CE"},
    {0x09FD, u"\u09CD\u09B0"},
    {0x09FE, u"\u09CD\u09AF"},
    {0x09FF, u" "},
};

std::u16string Standard(char16_t c)
{
    const auto* const own = std::ranges::find(spellings, c, &Spelling::code);
    if (own != std::end(spellings)) return own->text;
    StringW text;
    UrduIndicToUnicode(text, &c, 0);
    return {static_cast<const WCHAR*>(text), static_cast<std::size_t>(text.GetLength())};
}

bool IsMark(char16_t c)
{
    const int type = CUnicodeCharTypes::GetGeneralType(c);
    constexpr char16_t aytham = 0x0B83; // once thought to be a mark
    if (c == aytham) return false;
    return type == 0 || type == 1 || (c >= 0x0610 && c <= 0x061A) || (c >= 0x0653 && c <= 0x065F);
}

} // namespace

std::u16string StandardText(std::u16string_view text)
{
    std::u16string standard;
    for (const char16_t c : text) standard += Standard(c);
    return standard;
}

std::u16string ShownText(std::u16string_view typed)
{
    std::u16string text = StandardText(typed);
    if (text == u" ") return u"\u2423";
    if (!text.empty() && IsMark(text[0])) text.insert(0, 1, u'\u25CC');
    return text;
}
