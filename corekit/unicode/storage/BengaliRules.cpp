// Bengali syllables with a reph, which the shaping joins to few letters only, and the clusters that it draws
// in more pieces than the fonts have: kept as glyph codes, in the order in which they are drawn.
#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/BengaliConjunctRows.h"
#include "corekit/unicode/shaping/BengaliConjuncts.h"
#include "corekit/unicode/shaping/BengaliLetterRows.h"
#include "corekit/unicode/shaping/BengaliShaping.h"
#include "corekit/unicode/storage/PieceList.h"
#include "corekit/unicode/storage/Rules.h"

#include <algorithm>
#include <charconv>

namespace corekit::detail {
namespace {

constexpr char16_t virama = 0x09CD, nukta = 0x09BC, joiner = 0x200D, wordSeparator = 0x09FF;
constexpr char16_t ra = 0x09B0, assameseRa = 0x09F0;
constexpr char16_t yaPhala = 0xE193, assameseMark = 0xE1EC; // the mark is blank
constexpr std::u16string_view yaText = u"\u09CD\u09AF";

bool isConsonant(char16_t c)
{
    return (c >= 0x0995 && c <= 0x09B9) || (c >= 0x09DC && c <= 0x09DF) || c == assameseRa || c == 0x09F1;
}
bool isRa(char16_t c) { return c == ra || c == assameseRa; }

struct SignGlyphs {
    char16_t sign;               // 0 for none
    char16_t front, frontOfWord; // before the cluster, in a word and at its beginning
    char16_t behind;
};
constexpr SignGlyphs signs[] = {
    {0, 0, 0, 0},
    {0x09BE, 0, 0, 0xE176},
    {0x09BF, 0xE177, 0xE177, 0},
    {0x09C0, 0, 0, 0xE178},
    {0x09C1, 0, 0, 0xE179},
    {0x09C2, 0, 0, 0xE181},
    {0x09C3, 0, 0, 0xE112},
    {0x09C7, 0xE110, 0xE109, 0},
    {0x09C8, 0xE113, 0xE105, 0},
    {0x09CB, 0xE110, 0xE109, 0xE176},
    {0x09CC, 0xE110, 0xE109, 0xE102},
    {virama, 0, 0, 0xE126},
};

// The reph stands left of what its letter has right of the stem.
struct Reph {
    char16_t code;
    std::u16string_view letters; // that bear it
};
constexpr Reph rephs[] = {
    {0xE1F6, u"\u0995\u099E\u09AB"},
    {0xE1F7, u"\u0999\u099A\u099B\u09A1\u09A2\u09A4\u09A6\u09AD\u09B9"},
    {0xE1F8, u"\u0996\u0997\u099D\u09A3\u09A5\u09AA\u09B6"},
    {0xE1A9, u""}, // all others
};
char16_t rephOver(std::u16string_view cluster)
{
    const auto bears = [&](const Reph& reph) {
        return cluster.size() == 1 && reph.letters.find(cluster[0]) != reph.letters.npos;
    };
    const auto found = std::ranges::find_if(rephs, bears);
    return found == std::end(rephs) ? rephs[std::size(rephs) - 1].code : found->code;
}
bool isReph(char16_t code) { return std::ranges::find(rephs, code, &Reph::code) != std::end(rephs); }

std::u16string codesOf(std::string_view numbers)
{
    std::u16string codes;
    for (; !numbers.empty(); numbers.remove_prefix(std::min<std::size_t>(5, numbers.size()))) {
        unsigned value = 0;
        std::from_chars(numbers.data(), numbers.data() + 4, value, 16);
        codes.push_back(static_cast<char16_t>(value));
    }
    return codes;
}

// Letters and signs that others write too.
bool isCommonText(std::u16string_view text)
{
    constexpr std::u16string_view privateLetters = u"\u09A9\u09B1\u09D3";
    const auto isPlain = [&](char16_t c) {
        const bool isPart = isConsonant(c) || c == virama || (c >= 0x09C1 && c <= 0x09C3);
        return isPart && privateLetters.find(c) == privateLetters.npos;
    };
    return text.back() != virama && isConsonant(text[0]) && std::ranges::all_of(text, isPlain);
}

const PieceList& allClusters()
{
    static const PieceList clusters = [] {
        PieceList list;
        const auto add = [&list](const auto& rows) {
            for (const BengaliRow& row : rows) {
                const std::u16string text = codesOf(row.codes);
                if (isCommonText(text) && row.advance == static_cast<int>(text.size()))
                    list.Add({text, codesOf(row.glyphs)});
            }
        };
        add(bengaliLetterRows);
        add(bengaliConjunctRows);
        for (const BengaliConjunct& conjunct : bengaliConjuncts)
            list.Add({std::u16string(conjunct.text), std::u16string(1, conjunct.code), 0, true});
        for (const auto& [text, codes] : {std::pair{u"\u09AF\u09BC", u"\uE171"},
                                          {u"\u09A2\u09BC", u"\uE170"},
                                          {u"\u09A1\u09BC", u"\uE16F"},
                                          {u"\u09A8\u09CD\u09A8", u"\uE196"}})
            list.Add({text, codes});
        for (const auto& [text, codes] : {std::pair{u"\u09B0\u200D\u09CD\u09AF", u"\uE169\uE1A8"},
                                          {u"\u09F0\u200D\u09CD\u09AF", u"\uE1A0\uE1A8"},
                                          {u"\u0985\u09CD\u09AF", u"\uE141\uE1A8"},
                                          {u"\u098F\u09CD\u09AF", u"\uE147\uE1A8"}})
            list.Add({text, codes, 0, true});
        return list;
    }();
    return clusters;
}

std::size_t clusterLength(std::u16string_view text)
{
    if (isRa(text[0]) && text.substr(1).starts_with(u"\u200D\u09CD\u09AF")) return 4;
    if ((text[0] == 0x0985 || text[0] == 0x098F) && text.substr(1).starts_with(yaText)) return 3;
    std::size_t at = 0;
    while (at < text.size() && isConsonant(text[at])) {
        ++at;
        if (at < text.size() && text[at] == nukta) ++at;
        if (at + 1 >= text.size() || text[at] != virama || !isConsonant(text[at + 1])) break;
        ++at;
    }
    return at;
}

// The ra below another letter, which Assamese writes by its own code.
std::u16string withRa(std::u16string text, char16_t from, char16_t to)
{
    for (std::size_t at = 1; at < text.size(); ++at)
        if (text[at] == from && text[at - 1] == virama) text[at] = to;
    return text;
}

struct Syllable {
    bool hasReph = false, isAssamese = false;
    const Piece* cluster = nullptr;
    int yaPhalas = 0;
    const SignGlyphs* sign = signs;
    std::size_t length = 0; // of its text
};

// The cluster at `at`, with the signs that some take into their shape, and the lower yas behind it.
bool readCluster(const std::u16string& text, std::size_t& at, std::size_t end, Syllable& syllable)
{
    for (std::size_t behind = std::min(end + 1, text.size()); behind > at; --behind) {
        const std::u16string_view rest =
            std::u16string_view(text).substr(behind, behind < end ? end - behind : 0);
        std::size_t yas = 0;
        while (rest.substr(yas * 2).starts_with(yaText)) ++yas;
        if (rest.size() != yas * 2) continue;
        syllable.cluster = allClusters().OfText(std::u16string_view(text).substr(at, behind - at));
        if (!syllable.cluster) continue;
        syllable.yaPhalas = static_cast<int>(yas);
        at = std::max(behind, end);
        return true;
    }
    return false;
}

bool readSyllable(std::u16string_view text, Syllable& syllable)
{
    const std::size_t end = clusterLength(text);
    if (end == 0) return false;
    syllable.hasReph = end > 2 && isRa(text[0]) && text[1] == virama;
    const std::u16string cluster(text.substr(0, std::min(end + 1, text.size())));
    const std::u16string usual = withRa(cluster, assameseRa, ra);
    syllable.isAssamese = (syllable.hasReph && text[0] == assameseRa) || usual != cluster;
    std::size_t at = syllable.hasReph ? 2 : 0;
    if (!readCluster(usual, at, end, syllable)) return false;
    const bool hasSign = at == end && at < text.size();
    const auto sign = hasSign ? std::ranges::find(signs, text[at], &SignGlyphs::sign) : std::end(signs);
    if (sign != std::end(signs)) {
        syllable.sign = &*sign;
        ++at;
    }
    syllable.length = at;
    return true;
}

// Whether the shaping alone draws the cluster with this code.
bool isShaped(const Piece& cluster, char16_t next)
{
    const std::u16string text = cluster.text + next;
    StringW glyphs;
    int index = 0;
    ConvertBengaliCluster(glyphs, text.c_str(), index);
    return index == static_cast<int>(cluster.text.size()) && glyphs == cluster.codes.c_str();
}

std::u16string codesOf(const Syllable& syllable, bool beginsWord)
{
    std::u16string codes;
    const auto put = [&codes](char16_t code) {
        if (code) codes.push_back(code);
    };
    put(beginsWord ? syllable.sign->frontOfWord : syllable.sign->front);
    codes += syllable.cluster->codes;
    if (syllable.hasReph) put(rephOver(syllable.cluster->text));
    if (syllable.isAssamese) put(assameseMark);
    codes.append(static_cast<std::size_t>(syllable.yaPhalas), yaPhala);
    put(syllable.sign->behind);
    return codes;
}

bool standsInFront(char16_t code)
{
    const auto isFront = [code](const SignGlyphs& s) { return code == s.front || code == s.frontOfWord; };
    return code != 0 && std::ranges::any_of(signs, isFront);
}

const SignGlyphs* signOf(char16_t front, char16_t behind)
{
    const SignGlyphs* found = nullptr;
    for (const SignGlyphs& sign : signs) {
        const bool fits =
            (sign.front == front || sign.frontOfWord == front) && (sign.behind == 0 || sign.behind == behind);
        if (fits && (!found || sign.behind != 0)) found = &sign;
    }
    return found;
}

} // namespace

std::size_t storeBengaliSyllable(std::u16string_view text, std::u16string& stored)
{
    if (text.size() < 3 || (!stored.empty() && (stored.back() == virama || standsInFront(stored.back()))))
        return 0;
    const bool mayBeOwn = text[1] == virama || text[1] == joiner;
    Syllable syllable;
    if (!mayBeOwn || !readSyllable(text, syllable)) return 0;
    const char16_t next = syllable.length < text.size() ? text[syllable.length] : u'\0';
    const bool isOwn = syllable.cluster->isOwn && !isShaped(*syllable.cluster, syllable.sign->sign);
    // Not where more belongs to it: e and ai as they are stored stand for signs that were left alone before.
    const bool goesOn = next == nukta || next == virama || next == 0x09D5 || next == 0x09D1;
    if (!(syllable.hasReph || isOwn) || goesOn) return 0;
    const std::u16string codes = codesOf(syllable, stored.empty() || stored.back() == wordSeparator);
    std::u16string back;
    if (restoreBengaliSyllable(codes, back) != codes.size() || back != text.substr(0, syllable.length))
        return 0;
    stored += codes;
    return syllable.length;
}

std::size_t restoreBengaliSyllable(std::u16string_view codes, std::u16string& text)
{
    const char16_t front = standsInFront(codes[0]) ? codes[0] : u'\0';
    std::size_t at = front != 0;
    const auto is = [&](char16_t code) { return at < codes.size() && codes[at] == code; };
    const Piece* const cluster = allClusters().AtCodes(codes.substr(at));
    if (!cluster) return 0;
    at += cluster->codes.size();
    const bool hasReph = at < codes.size() && isReph(codes[at]);
    at += hasReph;
    const bool isAssamese = is(assameseMark);
    at += isAssamese;
    std::u16string yas;
    for (; is(yaPhala); ++at) yas += yaText;
    const SignGlyphs* const sign = signOf(front, at < codes.size() ? codes[at] : u'\0');
    if (!sign) return 0;
    if (hasReph) text.append(1, isAssamese ? assameseRa : ra).push_back(virama);
    text.append(isAssamese ? withRa(cluster->text, ra, assameseRa) : cluster->text).append(yas);
    if (sign->sign) text.push_back(sign->sign);
    return at + (sign->behind != 0);
}

} // namespace corekit::detail
