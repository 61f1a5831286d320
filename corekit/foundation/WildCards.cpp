#include "corekit/foundation/WildCards.h"

#include "corekit/platform/Runtime.h"
#include "corekit/platform/TextScan.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using View = std::u16string_view;

constexpr int none = -1;
constexpr std::size_t unitsToLookAt = std::size_t{1} << 26;
constexpr int questionMarksInPart = 64;

// A copy of a text, on the stack while it is short.
class Copy {
public:
    explicit Copy(std::size_t room) : m_heap(room > std::size(m_stack) ? new WCHAR[room] : nullptr) {}

    WCHAR* Data() { return m_heap ? m_heap.get() : m_stack; }
    void Append(WCHAR c) { Data()[m_length++] = c; }
    void Append(View part)
    {
        std::copy(part.begin(), part.end(), Data() + m_length);
        m_length += part.size();
    }
    View Text() { return {Data(), m_length}; }

private:
    WCHAR m_stack[256];
    std::unique_ptr<WCHAR[]> m_heap;
    std::size_t m_length = 0;
};

// Punctuation, symbols, white space and controls.
bool isSeparator(WCHAR c)
{
    const int type = CUnicodeCharTypes::GetGeneralType(c);
    return (type >= 4 && type <= 7) || type >= 15;
}

int position(std::size_t found) { return found == View::npos ? none : static_cast<int>(found); }

int findPart(View text, View part) { return part.empty() ? none : position(crt16::find(text, part)); }

int findWord(View text, View word, bool freeBefore, bool freeBehind)
{
    if (text.empty()) return none;
    for (std::size_t from = 0; from <= text.size(); ++from) {
        from = crt16::find(text, word, from);
        if (from == View::npos) return none;
        const std::size_t end = from + word.size();
        const bool begins = freeBefore || from == 0 || isSeparator(text[from - 1]);
        if (begins && (end == text.size() || freeBehind || isSeparator(text[end]))) return position(from);
    }
    return none;
}

// A word whose free sides are written as stars.
int findStarredWord(View text, View word)
{
    if (word.empty()) return none;
    const bool freeBefore = word.front() == u'*';
    if (freeBefore) word.remove_prefix(1);
    const bool freeBehind = !word.empty() && word.back() == u'*';
    if (freeBehind) word.remove_suffix(1);
    return findWord(text, word, freeBefore, freeBehind);
}

// One part of a pattern that holds question marks. Each takes itself out of the pattern and one unit out of
// the text, and the rest is searched for; the units that are out are kept as a list, and the text is put
// together only to be searched.
class QuestionSearch {
public:
    using Finder = int (*)(View text, View part);

    // `left`: the units that may still be looked at.
    QuestionSearch(View text, View part, Finder find, std::size_t& left)
        : m_text(text), m_part(part), m_find(find), m_joined(text.size()), m_left(left)
    {
    }

    int Run()
    {
        if (std::count(m_part.begin(), m_part.end(), u'?') > questionMarksInPart) return none;
        return Search();
    }

private:
    int Search()
    {
        const std::size_t mark = m_part.find(u'?');
        if (m_part.empty()) return none;
        if (mark == View::npos) return m_find(Joined(), m_part);

        const std::u16string part = m_part; // with its mark, for the way back
        const std::size_t length = m_text.size() - m_out.size();
        m_part.erase(mark, 1);
        int result = SearchWithout(mark, length);
        if (result < 0 && length > part.size()) {
            m_left -= std::min(m_left, length);
            Places place(*this);
            place.Next();
            for (std::size_t k = 1; k + mark + 2 < length && result < 0 && m_left > 0; ++k, place.Next())
                if (isSeparator(m_text[place.Original()])) result = SearchWithout(mark + k + 1, length);
        }
        m_part = part;
        return result;
    }

    // Searches with the unit at this index of what is left of the text taken out.
    int SearchWithout(std::size_t index, std::size_t length)
    {
        if (index >= length) return Search();
        std::size_t original = index;
        auto at = m_out.begin();
        for (; at != m_out.end() && *at <= original; ++at) ++original;
        const auto slot = at - m_out.begin();
        m_out.insert(at, original);
        const int result = Search();
        m_out.erase(m_out.begin() + slot);
        return result;
    }

    View Joined()
    {
        std::size_t from = 0, length = 0;
        for (std::size_t i = 0; i <= m_out.size(); ++i) {
            const std::size_t to = i < m_out.size() ? m_out[i] : m_text.size();
            std::copy(m_text.begin() + static_cast<std::ptrdiff_t>(from),
                      m_text.begin() + static_cast<std::ptrdiff_t>(to), m_joined.Data() + length);
            length += to - from;
            from = to + 1;
        }
        m_left -= std::min(m_left, length + 1);
        return m_left > 0 ? View(m_joined.Data(), length) : View();
    }

    // Walks the units that are not out.
    class Places {
    public:
        explicit Places(const QuestionSearch& search) : m_search(search) { SkipTakenOut(); }
        std::size_t Original() const { return m_original; }
        void Next()
        {
            ++m_original;
            SkipTakenOut();
        }

    private:
        void SkipTakenOut()
        {
            for (; m_index < m_search.m_out.size() && m_search.m_out[m_index] <= m_original; ++m_index)
                if (m_search.m_out[m_index] == m_original) ++m_original;
        }
        const QuestionSearch& m_search;
        std::size_t m_original = 0, m_index = 0;
    };

    View m_text;
    std::u16string m_part;
    Finder m_find;
    std::vector<std::size_t> m_out; // indices into m_text, ascending
    Copy m_joined;
    std::size_t& m_left;
};

int findWithQuestion(View text, View part, std::size_t& left)
{
    if (part.find(u'?') == View::npos) return findPart(text, part);
    return QuestionSearch(text, part, findPart, left).Run();
}

// `starBefore` and `starBehind` add the stars that free a side.
int findWholeWord(View text, View word, bool starBefore, bool starBehind, std::size_t& left)
{
    if (word.find(u'?') == View::npos && !word.empty()) return findWord(text, word, starBefore, starBehind);
    Copy starred(word.size() + 2);
    if (starBefore) starred.Append(u'*');
    starred.Append(word);
    if (starBehind) starred.Append(u'*');
    return starred.Text().find(u'?') == View::npos
               ? findStarredWord(text, starred.Text())
               : QuestionSearch(text, starred.Text(), findStarredWord, left).Run();
}

// Finds a pattern part by part. `wholeWords` tells how a part between stars is searched for.
int matchByParts(View text, View pattern, bool wholeWords)
{
    std::size_t left = unitsToLookAt;
    int first = none;
    for (bool isFirst = true;; isFirst = false) {
        const auto result = [&](int found) { return found < 0 || isFirst ? found : first; };
        std::size_t star = pattern.find(u'*');
        if (star == View::npos)
            return result(wholeWords ? findWholeWord(text, pattern, false, false, left)
                                     : findWithQuestion(text, pattern, left));
        int found;
        if (star > 0) {
            found = findWholeWord(text, pattern.substr(0, star), false, true, left);
        } else {
            pattern.remove_prefix(std::min(pattern.find_first_not_of(u'*'), pattern.size()));
            if (pattern.empty()) return result(1);
            star = pattern.find(u'*');
            const View part = pattern.substr(0, star);
            found = wholeWords ? findWholeWord(text, part, true, star != View::npos, left)
                               : findWithQuestion(text, part, left);
            if (star == View::npos) return result(found);
        }
        if (found < 0) return none;
        if (isFirst) first = found;
        text.remove_prefix(std::min(star + static_cast<std::size_t>(found), text.size()));
        pattern.remove_prefix(star);
    }
}

// A pattern of up to 16 units that begins with a star and has no question mark: most are so.
class ShortPattern {
public:
    explicit ShortPattern(const WCHAR* pattern) : m_pattern(pattern)
    {
        if (*pattern == u'*') Scan();
    }

    bool IsOne() const { return m_stars != 0; }

    // Finds the parts one behind the other.
    int FindIn(View text) const
    {
        int first = 1; // what stars alone give
        bool isFirst = true;
        unsigned units = ~m_stars & m_inside;
        for (std::size_t from = 0; units != 0; isFirst = false) {
            const auto begin = static_cast<std::size_t>(std::countr_zero(units));
            const auto size = static_cast<std::size_t>(std::countr_one(units >> begin));
            from = corekit::detail::findInUnits(text, {m_pattern + begin, size}, from);
            if (from == View::npos) return none;
            if (isFirst) first = static_cast<int>(from);
            from += size;
            units &= ~0u << (begin + size);
        }
        return first;
    }

private:
    COREKIT_READS_WHOLE_BLOCKS void Scan()
    {
        using namespace corekit::detail;
        if (!isInOnePage(m_pattern, 2 * sizeof(Units))) return;
        const Units low = anyBlock(m_pattern), high = anyBlock(m_pattern + unitsAtOnce);
        const auto where = [&](WCHAR unit) {
            return markBits(equalUnits(low, spreadUnit(unit)), equalUnits(high, spreadUnit(unit)));
        };
        const unsigned end = where(0);
        if (end == 0) return;
        m_inside = (end & -end) - 1;
        if (((where(u'?') | where(u'"')) & m_inside) == 0) m_stars = where(u'*') & m_inside;
    }

    const WCHAR* m_pattern;
    unsigned m_inside = 0; // a bit for each unit
    unsigned m_stars = 0;  // none if the pattern is another one
};

void appendUpper(Copy& copy, View text)
{
    for (const WCHAR c : text) copy.Append(CUnicodeCharTypes::MakeUpper(c));
}

int matchText(View text, View pattern, bool caseSensitive, bool wholeWords)
{
    const bool quoted = pattern.find(u'"') != View::npos;
    if (caseSensitive && !quoted) return matchByParts(text, pattern, wholeWords);

    Copy plain(pattern.size()), upperPattern(pattern.size()), upperText(caseSensitive ? 0 : text.size());
    for (const WCHAR c : pattern)
        if (c != u'"') plain.Append(c);
    if (caseSensitive) return matchByParts(text, plain.Text(), wholeWords);
    appendUpper(upperPattern, plain.Text());
    appendUpper(upperText, text);
    return matchByParts(upperText.Text(), upperPattern.Text(), wholeWords);
}

} // namespace

int MatchWildCardString(const WCHAR* text, const WCHAR* pattern, int caseSensitive)
{
    if (const ShortPattern parts(pattern); caseSensitive != 0 && parts.IsOne())
        return parts.FindIn({text, crt16::wcslen(text)});
    return matchText({text, crt16::wcslen(text)}, {pattern, crt16::wcslen(pattern)}, caseSensitive != 0,
                     false);
}

int MatchNonWildCardString(const WCHAR* text, const WCHAR* pattern, int caseSensitive)
{
    return matchText({text, crt16::wcslen(text)}, {pattern, crt16::wcslen(pattern)}, caseSensitive != 0,
                     true);
}

int IsWildCardString(const WCHAR* text) { return crt16::wcspbrk(text, u"*?") != nullptr; }
