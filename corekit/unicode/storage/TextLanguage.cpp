#include "corekit/unicode/storage/Rules.h"

#include <algorithm>

namespace corekit::detail {
namespace {

// Primary languages.
constexpr unsigned urdu = 0x20, persian = 0x29, kurdish = 0x92, punjabi = 0x46, kashmiri = 0x60;
constexpr LANGID primaryPart = 0x3FF;

// Letters that Arabic lacks; those of Urdu that Persian lacks; those of languages that have both yehs.
constexpr std::u16string_view farsiLetters = u"\u067E\u0686\u0698\u06A9\u06AF\u06CC";
constexpr std::u16string_view urduLetters = u"\u0679\u0688\u0691\u06BA\u06BE\u06C1\u06C2\u06C3\u06D2";
constexpr std::u16string_view otherLetters =
    u"\u067A\u067B\u067C\u067F\u0680\u0681\u0683\u0684\u0685\u0687\u0689\u068A"
    u"\u068C\u068D\u068F\u0690\u0693\u0696\u0699\u069A\u06A6\u06AB\u06AD\u06B1"
    u"\u06B3\u06BB\u06BC\u06C6\u06C7\u06C8\u06CB\u06CD\u06D0";

bool hasAny(std::u16string_view text, std::u16string_view letters)
{
    return text.find_first_of(letters) != text.npos;
}

} // namespace

TextLanguage languageOf(LANGID language, std::u16string_view text)
{
    if (language != 0) {
        const unsigned primary = language & primaryPart;
        const bool likeUrdu = primary == urdu || primary == punjabi || primary == kashmiri;
        return {likeUrdu || primary == persian || primary == kurdish, likeUrdu};
    }
    if (hasAny(text, otherLetters)) return {};
    const bool likeUrdu = hasAny(text, urduLetters);
    return {likeUrdu || hasAny(text, farsiLetters), likeUrdu};
}

} // namespace corekit::detail
