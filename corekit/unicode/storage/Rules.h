// The rules of the scripts, on text that is composed. A rule looks at the text from `at` on and, where it
// applies, writes what stands for it and returns the units it took; 0 where it does not.
#pragma once

#include "corekit/platform/Types.h"

#include <string>
#include <string_view>

namespace corekit::detail {

// Which letters the text of a language has where one stored letter stands for several.
struct TextLanguage {
    bool farsiYeh = false; // yeh is U+06CC, as in Persian and Urdu
    bool urdu = false;     // heh with hamza is U+06C2, joined teh marbuta U+06C3
};
TextLanguage languageOf(LANGID language, std::u16string_view text);

std::size_t storeArabic(std::u16string_view text, std::size_t at, std::u16string& stored);
std::size_t restoreArabic(std::u16string_view stored, std::size_t at, TextLanguage language,
                          std::u16string& text);

// A hyphen between a letter of a right-to-left script and a number, which would go to the number's side.
std::size_t storeHyphen(std::u16string_view text, std::size_t at, std::u16string& stored);
std::size_t restoreHyphen(std::u16string_view stored, std::size_t at, std::u16string& text);

std::size_t storeIndic(std::u16string_view text, std::size_t at, std::u16string& stored);
std::size_t restoreIndic(std::u16string_view stored, std::size_t at, std::u16string& text);

// The same for a syllable at the beginning of the text that is kept as glyph codes.
std::size_t storeDevanagari(std::u16string_view text, std::u16string& stored);
std::size_t restoreDevanagari(std::u16string_view codes, std::u16string& text);
std::size_t storeBengaliSyllable(std::u16string_view text, std::u16string& stored);
std::size_t restoreBengaliSyllable(std::u16string_view codes, std::u16string& text);

} // namespace corekit::detail
