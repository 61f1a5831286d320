#include "IndicText.h"

#include <algorithm>
#include <span>

namespace {

struct Spelling {
    std::u16string_view usual, stored;
};
constexpr Spelling spellings[] = {
    {u"\u0924\u094D\u0930", u"\u097C"}, // t-r
    {u"\u0936\u094D\u0930", u"\u097D"}, // sh-r
    {u"\u091C\u094D\u091E", u"\u097E"}, // j-ny
    {u"\u0915\u094D\u0937", u"\u097F"}, // k-ss
    {u"\u0981", u"\u09FA"},             // candrabindu
    {u"\u09CE", u"\u09FC"},             // khanda ta
    {u"\u09DC", u"\u09A1\u09BC"},       // rra, of which signs know as the letter with nukta
    {u"\u09AF\u09BC", u"\u09DF"},       // yya, as one letter
    {u"\u09C7", u"\u09D5"},             // e and ai behind their cluster
    {u"\u09C8", u"\u09D1"},
};

// Signs with a part in front of the letter, which the shaping does not put there for these letters.
constexpr std::u16string_view plainLetters = u"\u09DD\u09F0\u09F1";
constexpr Spelling drawnSigns[] = {
    {u"\u09BF", u"\u09BF"}, {u"\u09C7", u"\u09C7"}, {u"\u09C8", u"\u09C8"},
    {u"\u09CB", u"\u09C7"}, {u"\u09CC", u"\u09C7"},
};
constexpr Spelling restOfSigns[] = {{u"\u09CB", u"\u09BE"}, {u"\u09CC", u"\u09D7"}};

const Spelling* Find(std::span<const Spelling> table, std::u16string_view text)
{
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const auto& s) { return text.starts_with(s.usual); });
    return found == table.end() ? nullptr : &*found;
}

bool IsBengali(char16_t c) { return c >= 0x0980 && c <= 0x09FF; }

bool IsPlainLetter(char16_t c) { return plainLetters.find(c) != std::u16string_view::npos; }

// A letter and its sign as they are drawn; the units taken, 0 if this is no such pair.
std::size_t StoreAsDrawn(std::u16string_view text, std::u16string& stored)
{
    const bool isBare = stored.empty() || stored.back() != 0x09CD; // no member of a cluster
    const Spelling* const sign =
        isBare && IsPlainLetter(text[0]) ? Find(drawnSigns, text.substr(1)) : nullptr;
    if (sign == nullptr) return 0;
    stored.append(sign->stored).push_back(text[0]);
    if (const Spelling* const rest = Find(restOfSigns, sign->usual)) stored.append(rest->stored);
    return 2;
}

} // namespace

std::u16string StoredIndic(std::u16string_view text)
{
    std::u16string stored;
    stored.reserve(text.size());
    while (!text.empty()) {
        std::size_t taken = StoreAsDrawn(text, stored);
        if (taken == 0) {
            const Spelling* const spelling = Find(spellings, text);
            const bool endsWord = text[0] == u' ' && text.size() > 1 && IsBengali(text[1]);
            taken = spelling ? spelling->usual.size() : 1;
            stored.append(spelling ? spelling->stored : endsWord ? u"\u09FF" : text.substr(0, 1));
        }
        text.remove_prefix(taken);
    }
    return stored;
}
