#include "Names.h"

#include "TextFile.h"

#include "corekit/foundation/StringW.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <cstdio>
#include <iterator>

namespace {

constexpr const char* generalTypes[] = {
    "non-spacing mark",      "spacing mark",         "decimal digit",       "other number",
    "space separator",       "line separator",       "paragraph separator", "control",
    "private-use surrogate", "surrogate or private", "upper-case letter",   "lower-case letter",
    "title-case letter",     "modifier letter",      "other letter",        "dash punctuation",
    "opening punctuation",   "closing punctuation",  "other punctuation",   "mathematical symbol",
    "currency symbol",       "other symbol",
};

constexpr const char* biDirectionalTypes[] = {
    "left-to-right",     "right-to-left", "European number",  "number separator",
    "number terminator", "Arabic number", "common separator", "block separator",
    "segment separator", "white space",   "other neutral",
};

constexpr const char* joiningTypes[] = {
    "right joining", "left joining", "dual joining", "join causing", "non-joining", "transparent",
};

template <std::size_t N>
std::string Name(const char* const (&names)[N], int code)
{
    return code >= 0 && code < static_cast<int>(N) ? names[code] : "no entry";
}

} // namespace

std::string GeneralTypeName(int type) { return Name(generalTypes, type); }
std::string BiDirectionalTypeName(int type) { return Name(biDirectionalTypes, type); }
std::string JoiningTypeName(int type) { return Name(joiningTypes, type); }

std::string CodePoint(char16_t c)
{
    char text[8];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(c));
    return text;
}

std::string Visible(char16_t c)
{
    const int type = CUnicodeCharTypes::GetGeneralType(c);
    const bool privateUse = c >= 0xE000 && c <= 0xF8FF, surrogate = c >= 0xD800 && c <= 0xDFFF;
    if (type == 7 || type == 5 || type == 6 || privateUse || surrogate || c >= 0xFFFE) return "";
    return (type == 0 ? "\u25CC" : "") + Utf8(std::u16string_view(&c, 1)); // a mark stands on a dotted circle
}
