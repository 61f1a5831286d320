#include "corekit/unicode/storage/IndicSpellings.h"
#include "corekit/unicode/storage/Rules.h"

namespace corekit::detail {
namespace {

constexpr char16_t virama = 0x09CD, nukta = 0x09BC, signE = 0x09C7, signAi = 0x09C8;
constexpr char16_t wordSeparator = 0x09FF;

bool isDevanagari(char16_t c) { return c >= 0x0900 && c <= 0x097F; }
bool isDevanagariGlyph(char16_t c) { return c >= 0xE000 && c <= 0xE0FF; }
bool isBengaliGlyph(char16_t c) { return c >= 0xE100 && c <= 0xE1FF; }
bool isBengali(char16_t c) { return c >= 0x0980 && c <= 0x09FF; }
bool isTamil(char16_t c) { return (c >= 0x0B80 && c <= 0x0BFF) || c == 0xE27C || c == 0xE27D; }
bool isPlainLetter(char16_t c) { return bengaliPlainLetters.find(c) != bengaliPlainLetters.npos; }
bool isConsonant(char16_t c)
{
    return (c >= 0x0995 && c <= 0x09B9) || (c >= 0x09DC && c <= 0x09DF) || c == 0x09F0 || c == 0x09F1;
}
bool isLowerMember(char16_t c) { return c == 0x09D3 || c == 0x09FD || c == 0x09FE; }

// The letter that takes no sign in front, and the units it is spelled with; 0 for another.
struct Letter {
    char16_t letter;
    std::size_t length;
};
Letter plainLetterAt(std::u16string_view text)
{
    if (text.starts_with(u"\u09A2\u09BC")) return {0x09DD, 2};
    return isPlainLetter(text[0]) ? Letter{text[0], 1} : Letter{0, 0};
}

bool beginsWord(std::u16string_view stored) { return stored.empty() || stored.back() == wordSeparator; }

std::size_t storeSplitSign(std::u16string_view text, std::u16string& stored)
{
    const Letter plain = plainLetterAt(text);
    // No member of a cluster, and without a sign in front already.
    const bool isBare = stored.empty() || (stored.back() != virama && !isBengaliGlyph(stored.back()));
    if (plain.length == 0 || plain.length >= text.size() || !isBare) return 0;
    const auto sign = std::ranges::find(bengaliSplitSigns, text[plain.length], &SplitSign::sign);
    if (sign == std::end(bengaliSplitSigns)) return 0;
    stored.push_back(beginsWord(stored) ? sign->frontOfWord : sign->front);
    stored.push_back(plain.letter);
    if (sign->rest) stored.push_back(sign->rest);
    return plain.length + 1;
}

std::size_t restoreSplitSign(std::u16string_view stored, std::u16string& text)
{
    if (stored.size() < 2 || !isPlainLetter(stored[1])) return 0;
    const auto isFront = [&](const SplitSign& s) {
        return stored[0] == s.front || stored[0] == s.frontOfWord;
    };
    const SplitSign* found = nullptr;
    for (const SplitSign& sign : bengaliSplitSigns) { // the longest that fits: o and au begin as e does
        const bool hasRest = sign.rest == 0 || (stored.size() > 2 && stored[2] == sign.rest);
        if (isFront(sign) && hasRest && (!found || sign.rest)) found = &sign;
    }
    if (!found) return 0;
    text.push_back(stored[1]);
    text.push_back(found->sign);
    return found->rest ? 3 : 2;
}

std::size_t clusterLength(std::u16string_view text)
{
    std::size_t at = 0;
    while (at < text.size() && isConsonant(text[at])) {
        ++at;
        while (at < text.size() && (text[at] == nukta || isLowerMember(text[at]))) ++at;
        if (at + 1 >= text.size() || text[at] != virama || !isConsonant(text[at + 1])) break;
        ++at;
    }
    return at;
}

void restoreTo(std::u16string& text, std::u16string_view stored)
{
    for (std::size_t at = 0; at < stored.size();) {
        const std::size_t taken = restoreIndic(stored, at, text);
        if (taken == 0) text.push_back(stored[at]);
        at += taken ? taken : 1;
    }
}

// A sign that was typed in front of its cluster goes behind it.
std::size_t restoreTypedSign(std::u16string_view stored, std::u16string& text)
{
    if (stored[0] != signE && stored[0] != signAi) return 0;
    const std::size_t length = clusterLength(stored.substr(1));
    if (length == 0) return 0;
    restoreTo(text, stored.substr(1, length));
    text.push_back(stored[0]);
    return 1 + length;
}

// Whether the text goes on in Tamil; spaces and marks of others in between do not count.
bool followsTamil(std::u16string_view stored)
{
    const std::size_t last = stored.find_last_not_of(u" .,;:!?)'\"\u200C\u200D\u2019\u201D");
    return last != stored.npos && isTamil(stored[last]);
}

std::size_t take(const Spelling* row, std::u16string_view Spelling::*from, std::u16string_view Spelling::*to,
                 std::u16string& out)
{
    if (!row) return 0;
    out.append(row->*to);
    return (row->*from).size();
}

} // namespace

std::size_t storeIndic(std::u16string_view text, std::size_t at, std::u16string& stored)
{
    text.remove_prefix(at);
    constexpr auto from = &Spelling::plain, to = &Spelling::stored;
    if ((text[0] == 0x0964 || text[0] == 0x0965) && followsTamil(stored))
        return take(findSpelling(tamilDandas, from, text), from, to, stored);
    if (isDevanagari(text[0])) {
        const std::size_t taken = storeDevanagari(text, stored);
        return taken ? taken : take(findSpelling(devanagariSpellings, from, text), from, to, stored);
    }
    if (text[0] == u' ' && text.size() > 1 && isBengali(text[1]) && text[1] != wordSeparator) {
        stored.push_back(wordSeparator);
        return 1;
    }
    if (!isBengali(text[0])) return 0;
    if (const std::size_t taken = storeBengaliSyllable(text, stored)) return taken;
    if (const std::size_t taken = storeSplitSign(text, stored)) return taken;
    return take(findSpelling(bengaliSpellings, from, text), from, to, stored);
}

std::size_t restoreIndic(std::u16string_view stored, std::size_t at, std::u16string& text)
{
    stored.remove_prefix(at);
    constexpr auto from = &Spelling::stored, to = &Spelling::plain;
    if (isDevanagari(stored[0]) || isDevanagariGlyph(stored[0])) {
        const std::size_t taken = take(findSpelling(devanagariSpellings, from, stored), from, to, text);
        return taken || isDevanagari(stored[0]) ? taken : restoreDevanagari(stored, text);
    }
    if (const std::size_t taken = restoreSplitSign(stored, text)) return taken;
    if (const std::size_t taken = take(findSpelling(tamilDandas, from, stored), from, to, text)) return taken;
    if (isBengaliGlyph(stored[0]))
        if (const std::size_t taken = restoreBengaliSyllable(stored, text)) return taken;
    if (!isBengali(stored[0]) && stored[0] != 0xE124) return 0;
    if (const std::size_t taken = restoreTypedSign(stored, text)) return taken;
    if (const std::size_t taken = take(findSpelling(bengaliSpellings, from, stored), from, to, text))
        return taken;
    return take(findSpelling(bengaliTyped, from, stored), from, to, text);
}

} // namespace corekit::detail
