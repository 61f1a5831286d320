// Devanagari clusters of which a part has a glyph code of its own are kept as the glyph codes of their whole
// syllable, as the shaping takes a letter or a sign only with its neighbours.
#include "corekit/foundation/StringW.h"
#include "corekit/unicode/shaping/DevanagariConsonants.h"
#include "corekit/unicode/shaping/DevanagariShaping.h"
#include "corekit/unicode/storage/DevanagariPieces.h"
#include "corekit/unicode/storage/PieceList.h"
#include "corekit/unicode/storage/Rules.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace corekit::detail {
namespace {

constexpr char16_t virama = 0x094D, nukta = 0x093C, joiner = 0x200D;
constexpr char16_t stem = 0xE0C9, viramaGlyph = 0xE0C2, ttaGlyph = 0xE05D, ttaTail = 0xE0F5, paGlyph = 0xE07B;
constexpr std::u16string_view reph = u"\u0930\u094D";

bool isLetter(char16_t c) { return (c >= 0x0915 && c <= 0x0939) || (c >= 0x0958 && c <= 0x095F); }
bool isMark(char16_t c) { return c == 0x0901 || c == 0x0902; }
bool isFrontSign(char16_t glyph) { return glyph >= 0xE0CA && glyph <= 0xE0CD; }

std::u16string codesOf(const GlyphList& glyphs)
{
    std::u16string codes;
    for (int i = 0; i < glyphs.Count(); ++i) codes.push_back(glyphs[i]);
    return codes;
}

char16_t tailOf(char16_t letter)
{
    for (const DevanagariTail& tail : devanagariTails)
        if (tail.letter == letter) return tail.glyph;
    return 0;
}

// A form of the shaping as an end: a stem counts as its tail.
std::optional<Piece> endOf(std::u16string text, const GlyphList& glyphs, char16_t tail)
{
    Piece piece{std::move(text), codesOf(glyphs), tail};
    if (tail == 0 && piece.codes.ends_with(stem)) {
        piece.codes.pop_back();
        piece.tail = stem;
    }
    const bool isWhole = piece.codes.find(stem) == piece.codes.npos && piece.tail != 0;
    return isWhole ? std::optional(piece) : std::nullopt;
}

struct Pieces {
    PieceList halves, ends;

    Pieces()
    {
        for (const DevanagariConsonant& c : devanagariConsonants)
            if (c.letter != devanagariRa && c.letter < 0x0958) AddForms(c);
        for (const auto& [text, code] : {std::pair{u"\u0915\u094D\u0937", 0xE049},
                                         {u"\u0924\u094D\u0930", 0xE06A},
                                         {u"\u0936\u094D\u0930", 0xE0B8},
                                         {u"\u091C\u094D\u091E", 0xE059}})
            ends.Add({text, std::u16string(1, static_cast<char16_t>(code)), stem});
        for (const DevanagariHalf& half : devanagariHalves)
            halves.Add({std::u16string(half.text), std::u16string(1, half.code), 0, true});
        for (const DevanagariWhole& whole : devanagariWholes)
            ends.Add({std::u16string(whole.text), std::u16string(1, whole.code), whole.tail, true});
    }

private:
    void AddForms(const DevanagariConsonant& c)
    {
        const char16_t tail = tailOf(c.letter);
        const std::u16string letter(1, c.letter), dotted = letter + nukta;
        AddEnd(endOf(letter, c.full, tail));
        AddEnd(endOf(dotted, c.fullNukta, tail));
        AddEnd(endOf(letter + virama + u'\u0930', c.rakar, tail));
        // Letters without a stem stand before others with a virama, and with the whole of their headline.
        AddHalf(letter, c.half, tail);
        AddHalf(dotted, c.halfNukta, tail);
    }
    void AddEnd(const std::optional<Piece>& piece)
    {
        if (piece) ends.Add(*piece);
    }
    void AddHalf(const std::u16string& letter, const GlyphList& glyphs, char16_t tail)
    {
        std::u16string codes = codesOf(glyphs);
        const bool hasVirama = codes.ends_with(viramaGlyph);
        if (codes.empty() || (codes.size() > 1 && !hasVirama)) return;
        if (hasVirama && tail != 0) codes.push_back(tail);
        halves.Add({letter + virama, codes, 0, hasVirama});
    }
};

// What may follow the end of a cluster, as the shaping writes it on a letter with a stem and on one with a
// tail.
struct Ending {
    std::u16string text; // sign and mark, or a virama
    bool hasReph = false;
    char16_t front = 0; // the sign that goes before the cluster
    std::u16string onStem, onTail;
};

std::u16string shaped(const std::u16string& text)
{
    StringW glyphs;
    int index = 0;
    ConvertDevanagariSyllable(glyphs, text.c_str(), index);
    return {static_cast<const WCHAR*>(glyphs), static_cast<std::size_t>(glyphs.GetLength())};
}

Ending makeEnding(const std::u16string& text, bool hasReph)
{
    const std::u16string before(hasReph ? reph : std::u16string_view());
    const std::u16string onPa = shaped(before + u'\u092A' + text), onTta = shaped(before + u'\u091F' + text);
    const std::size_t pa = onPa.find(paGlyph), tta = onTta.find(ttaGlyph);
    const char16_t front = pa > 0 ? onPa[0] : u'\0';
    return {text, hasReph, front, onPa.substr(pa + 2), onTta.substr(tta + 1)}; // without the stem of pa
}

std::vector<Ending> makeEndings()
{
    std::u16string signs(1, u'\0');
    for (char16_t sign = 0x093E; sign <= 0x094D; ++sign) signs.push_back(sign);
    std::vector<Ending> endings;
    for (const char16_t sign : signs)
        for (const char16_t mark : {u'\0', u'\u0901', u'\u0902'})
            for (const bool hasReph : {false, true}) {
                std::u16string text;
                if (sign) text.push_back(sign);
                if (mark) text.push_back(mark);
                if (sign != virama || mark == 0) endings.push_back(makeEnding(text, hasReph));
            }
    return endings;
}

const Pieces& allPieces()
{
    static const Pieces pieces;
    return pieces;
}
const std::vector<Ending>& allEndings()
{
    static const std::vector<Ending> endings = makeEndings();
    return endings;
}

// What an ending adds behind this piece.
std::u16string behind(const Piece& piece, const Ending& ending)
{
    if (piece.tail == 0) return ending.onStem;
    if (piece.tail == stem) return stem + ending.onStem;
    std::u16string glyphs = ending.onTail;
    std::ranges::replace(glyphs, ttaTail, piece.tail);
    return glyphs;
}

std::size_t clusterLength(std::u16string_view text)
{
    std::size_t at = 0;
    while (at < text.size() && isLetter(text[at])) {
        ++at;
        if (at < text.size() && text[at] == nukta) ++at;
        const bool hasJoiner = at + 1 < text.size() && text[at] == virama && text[at + 1] == joiner;
        const std::size_t next = at + (hasJoiner ? 2 : 1);
        if (next >= text.size() || text[at] != virama || !isLetter(text[next])) break;
        at = next;
    }
    return at;
}

struct Syllable {
    bool hasReph = false;
    std::u16string codes; // of all before the end
    const Piece* end = nullptr;
    const Ending* ending = nullptr;
    std::size_t length = 0; // of its text
    bool isOwn = false;     // the shaping alone would not write it like this
};

// The end of the cluster if the rest of it is one, with a sign that the letter takes into its shape.
const Piece* endAt(std::u16string_view text, std::size_t at, std::size_t clusterEnd)
{
    const PieceList& ends = allPieces().ends;
    const Piece* const withSign = ends.OfText(text.substr(at, clusterEnd + 1 - at));
    return withSign ? withSign : ends.OfText(text.substr(at, clusterEnd - at));
}

const Ending* endingOf(std::u16string_view text, bool hasReph)
{
    const auto isEnding = [&](const Ending& e) { return e.hasReph == hasReph && e.text == text; };
    const auto found = std::ranges::find_if(allEndings(), isEnding);
    return found == allEndings().end() ? nullptr : &*found;
}

bool readHalves(std::u16string_view text, std::size_t& at, std::size_t clusterEnd, Syllable& syllable)
{
    int letters = syllable.hasReph;
    while (!(syllable.end = endAt(text, at, clusterEnd))) {
        const bool isJoinedRa = text.substr(at).starts_with(u"\u0930\u094D\u200D"); // drawn as the other ra
        const Piece* const half =
            allPieces().halves.AtText(isJoinedRa ? std::u16string_view(u"\u0931\u094D") : text.substr(at));
        if (!half || at + half->text.size() >= clusterEnd) return false;
        at += half->text.size();
        syllable.codes += half->codes;
        syllable.isOwn |= half->isOwn;
        if (text[at] == joiner) {
            syllable.codes += text[at++];
            syllable.isOwn = true;
        }
        ++letters;
    }
    at += syllable.end->text.size();
    syllable.isOwn |= syllable.end->isOwn || letters >= 3; // more than the shaping keeps together
    return true;
}

std::optional<Syllable> readSyllable(std::u16string_view text)
{
    Syllable syllable;
    const std::size_t clusterEnd = clusterLength(text);
    syllable.hasReph = text.starts_with(reph) && clusterEnd > 2 && text[2] != joiner;
    std::size_t at = syllable.hasReph ? 2 : 0;
    if (clusterEnd == 0 || !readHalves(text, at, clusterEnd, syllable) || !syllable.isOwn)
        return std::nullopt;
    const std::size_t behindPiece = at;
    if (at == clusterEnd && at < text.size() && text[at] >= 0x093E && text[at] <= virama) ++at;
    if (at < text.size() && text[at - 1] != virama && isMark(text[at])) ++at;
    // A further mark would stand alone.
    if (at < text.size() &&
        (isMark(text[at]) || text[at] == nukta || (text[at] >= 0x093E && text[at] <= virama)))
        return std::nullopt;
    syllable.ending = endingOf(text.substr(behindPiece, at - behindPiece), syllable.hasReph);
    syllable.length = at;
    return syllable.ending ? std::optional(syllable) : std::nullopt;
}

// The half forms that the codes begin with, as text. An existing half is also the beginning of its letter,
// which a stem ends.
std::size_t restoreHalves(std::u16string_view codes, std::u16string& text)
{
    std::size_t at = 0;
    while (const Piece* const half = allPieces().halves.AtCodes(codes.substr(at))) {
        const std::size_t next = at + half->codes.size();
        if (next < codes.size() && codes[next] == stem) break;
        const bool hasJoiner = next < codes.size() && codes[next] == joiner;
        const bool isJoinedRa = hasJoiner && half->text == u"\u0931\u094D";
        text += isJoinedRa ? std::u16string(reph) : half->text;
        if (hasJoiner) text.push_back(joiner);
        at = next + hasJoiner;
    }
    return at;
}

const Ending* endingBehind(std::u16string_view codes, const Piece& end, char16_t front, std::size_t& length)
{
    const Ending* found = nullptr;
    length = 0;
    for (const Ending& ending : allEndings()) {
        if (ending.front != front) continue;
        const std::u16string glyphs = behind(end, ending);
        if ((found && glyphs.size() <= length) || !codes.starts_with(glyphs)) continue;
        found = &ending;
        length = glyphs.size();
    }
    return found;
}

} // namespace

std::size_t restoreDevanagari(std::u16string_view codes, std::u16string& text)
{
    const char16_t front = isFrontSign(codes[0]) ? codes[0] : u'\0';
    std::size_t at = front != 0;
    std::u16string halves;
    at += restoreHalves(codes.substr(at), halves);
    const Piece* const end = allPieces().ends.AtCodes(codes.substr(at));
    if (!end) return 0;
    at += end->codes.size();
    std::size_t length = 0;
    const Ending* const ending = endingBehind(codes.substr(at), *end, front, length);
    if (!ending) return 0;
    if (ending->hasReph) text += reph;
    text.append(halves).append(end->text).append(ending->text);
    return at + length;
}

std::size_t storeDevanagari(std::u16string_view text, std::u16string& stored)
{
    const bool isInCluster = !stored.empty() && stored.back() == virama;
    if (isInCluster || !isLetter(text[0]) || text.size() < 2 || text[1] < nukta || text[1] > virama) return 0;
    const std::optional<Syllable> syllable = readSyllable(text);
    if (!syllable) return 0;
    std::u16string codes;
    if (syllable->ending->front) codes.push_back(syllable->ending->front);
    codes.append(syllable->codes)
        .append(syllable->end->codes)
        .append(behind(*syllable->end, *syllable->ending));
    // Where two spellings are drawn alike, letters and signs stay as they are.
    std::u16string back;
    if (restoreDevanagari(codes, back) != codes.size() || back != text.substr(0, syllable->length)) return 0;
    stored += codes;
    return syllable->length;
}

} // namespace corekit::detail
