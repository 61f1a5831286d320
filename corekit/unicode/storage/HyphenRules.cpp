#include "corekit/unicode/storage/Rules.h"
#include "corekit/unicode/tables/ArabicJoiningClasses.h"

namespace corekit::detail {
namespace {

// A hyphen counts as a sign of the number behind it and would be drawn on its far side. The maqaf is a Hebrew
// letter to the ordering; the other hyphen is neutral and stays in a run of Arabic.
constexpr char16_t hyphen = u'-', maqaf = 0x05BE, neutralHyphen = 0x2010;

bool isDigit(char16_t c)
{
    return (c >= u'0' && c <= u'9') || (c >= 0x0660 && c <= 0x0669) || (c >= 0x06F0 && c <= 0x06F9);
}

// What stands for a hyphen behind this character; 0 where the hyphen itself does.
char16_t hyphenBehind(char16_t c)
{
    if (c >= 0x05D0 && c <= 0x05EA) return maqaf;
    const bool isArabic = c >= 0x0621 && c <= 0x06D3 && !isDigit(c);
    return isArabic && (CArabicJoiningClasses::IsDualJoining(c) || CArabicJoiningClasses::IsRightJoining(c))
               ? neutralHyphen
               : 0;
}

char16_t hyphenAt(std::u16string_view text, std::size_t at)
{
    return at > 0 && at + 1 < text.size() && isDigit(text[at + 1]) ? hyphenBehind(text[at - 1]) : u'\0';
}

} // namespace

std::size_t storeHyphen(std::u16string_view text, std::size_t at, std::u16string& stored)
{
    const char16_t kept = text[at] == hyphen ? hyphenAt(text, at) : u'\0';
    if (kept == 0) return 0;
    stored.push_back(kept);
    return 1;
}

std::size_t restoreHyphen(std::u16string_view stored, std::size_t at, std::u16string& text)
{
    const bool isKept = stored[at] == maqaf || stored[at] == neutralHyphen;
    if (!isKept || hyphenAt(stored, at) != stored[at]) return 0;
    text.push_back(hyphen);
    return 1;
}

} // namespace corekit::detail
