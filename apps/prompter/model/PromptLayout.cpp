#include "model/PromptLayout.h"

#include "model/SameLines.h"

#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/storage/StoredText.h"

#include <algorithm>
#include <unordered_set>

namespace prompter {
namespace {

constexpr char16_t bengaliBlank = 0x09FF;

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == bengaliBlank; }

// Whether a line may not begin here: within a surrogate pair, before a mark.
bool BelongsToLast(char16_t c)
{
    const bool isArabicMark = (c >= 0x064B && c <= 0x065F) || c == 0x0670;
    const bool isHebrewPoint = c >= 0x0591 && c <= 0x05C7 && c != 0x05BE;
    const bool isIndicSign =
        (c >= 0x093C && c <= 0x094D) || (c >= 0x09BC && c <= 0x09D7) || (c >= 0x0BBE && c <= 0x0BD7);
    return (c & 0xFC00) == 0xDC00 || (c >= 0x0300 && c <= 0x036F) || isArabicMark || isHebrewPoint ||
           isIndicSign;
}

std::u16string Stored(const std::u16string& plain)
{
    const StoredText stored = ToStoredText(plain.data(), static_cast<int>(plain.size()));
    return {static_cast<const WCHAR*>(stored), static_cast<std::size_t>(stored.GetLength())};
}

// As much of a word as fits, but at least one character.
std::size_t Fitting(std::u16string_view word, int width, TextRuler& ruler)
{
    std::size_t fits = 1, tooMany = word.size() + 1;
    while (tooMany - fits > 1) {
        const std::size_t middle = (fits + tooMany) / 2;
        (ruler.Width(word.substr(0, middle)) <= width ? fits : tooMany) = middle;
    }
    while (fits > 1 && fits < word.size() && BelongsToLast(word[fits])) --fits;
    if (fits == 1)
        while (fits < word.size() && BelongsToLast(word[fits])) ++fits;
    return fits;
}

// What of an old text an anchor stood on, in the new one.
std::size_t Moved(std::size_t offset, std::u16string_view before, std::u16string_view after)
{
    const std::size_t most = std::min(before.size(), after.size());
    std::size_t prefix = 0, suffix = 0;
    while (prefix < most && before[prefix] == after[prefix]) ++prefix;
    while (suffix < most - prefix && before[before.size() - 1 - suffix] == after[after.size() - 1 - suffix])
        ++suffix;
    if (offset <= prefix) return offset;
    return offset >= before.size() - suffix ? offset + after.size() - before.size() : prefix;
}

} // namespace

void PromptLayout::SetForm(int width, int lineHeight)
{
    width = std::max(width, 1);
    m_isStale |= width != m_width;
    m_width = width;
    m_lineHeight = std::max(lineHeight, 1);
    m_isStale = true; // the face may have changed with it
}

void PromptLayout::LayOutParagraph(LaidStory& story, std::size_t start, std::size_t end,
                                   TextRuler& ruler) const
{
    const std::u16string_view text = story.stored;
    const bool rightToLeft = GetBaseLevel(text.data() + start, static_cast<int>(end - start)) == 1;
    PromptLine line{start, 0, 0, rightToLeft};
    int blanks = 0; // width of those behind the line so far
    for (std::size_t at = start; at < end;) {
        std::size_t wordEnd = at;
        while (wordEnd < end && !IsBlank(text[wordEnd])) ++wordEnd;
        const int width = wordEnd > at ? ruler.Width(text.substr(at, wordEnd - at)) : 0;
        if (line.length > 0 && line.width + blanks + width > m_width) {
            story.lines.push_back(line);
            line = {at, 0, 0, rightToLeft};
            blanks = 0;
        }
        if (line.length == 0 && width > m_width && wordEnd - at > 1) {
            const std::size_t part = Fitting(text.substr(at, wordEnd - at), m_width, ruler);
            if (part < wordEnd - at) {
                story.lines.push_back({at, part, ruler.Width(text.substr(at, part)), rightToLeft});
                at += part;
                line = {at, 0, 0, rightToLeft};
                continue;
            }
        }
        if (wordEnd > at) {
            line.width += blanks + width;
            line.length = wordEnd - line.start;
            blanks = 0;
        }
        at = wordEnd;
        while (at < end && IsBlank(text[at])) ++at;
        if (at > wordEnd) blanks += ruler.Width(text.substr(wordEnd, at - wordEnd));
    }
    story.lines.push_back(line);
}

void PromptLayout::LayOut(LaidStory& story, TextRuler& ruler) const
{
    story.lines.clear();
    LayOutParagraphs(story, 0, story.stored.size(), ruler);
    story.lines.push_back({story.stored.size(), 0, 0, false}); // the gap to the next story
}

void PromptLayout::LayOutParagraphs(LaidStory& story, std::size_t start, std::size_t end,
                                    TextRuler& ruler) const
{
    for (std::size_t at = start; at < end;) {
        const std::size_t paragraphEnd = std::min(story.stored.find(u'\n', at), end);
        LayOutParagraph(story, at, paragraphEnd, ruler);
        at = paragraphEnd + 1;
    }
}

// Lines before and behind those that differ stay as they are.
void PromptLayout::LayOutChange(LaidStory& story, const std::u16string& plain, TextRuler& ruler) const
{
    const std::u16string_view before = story.plain;
    const SameLines same = FindSameLines(before, plain);
    const std::size_t head = LineStart(story.stored, CountLineEnds(before.substr(0, same.head)));
    const std::size_t tail =
        same.tail == 0 ? story.stored.size()
                       : LineStart(story.stored, CountLineEnds(before.substr(0, before.size() - same.tail)));
    const std::u16string changed = Stored(plain.substr(same.head, plain.size() - same.head - same.tail));
    const auto first = std::ranges::lower_bound(story.lines, head, {}, &PromptLine::start);
    const auto behind = std::ranges::lower_bound(story.lines, tail, {}, &PromptLine::start);
    std::vector<PromptLine> kept(behind, story.lines.end());
    for (PromptLine& line : kept) line.start = line.start - tail + head + changed.size();
    story.lines.erase(first, story.lines.end());
    story.stored.replace(head, tail - head, changed);
    story.plain = plain;
    LayOutParagraphs(story, head, head + changed.size(), ruler);
    story.lines.insert(story.lines.end(), kept.begin(), kept.end());
}

std::vector<std::size_t> PromptLayout::PlaceIndexes(std::span<const Anchor> anchors) const
{
    std::vector<std::size_t> indexes;
    for (const Anchor& anchor : anchors)
        indexes.push_back(static_cast<std::size_t>(std::ranges::find(m_places, anchor.story, &Place::key) -
                                                   m_places.begin()));
    return indexes;
}

void PromptLayout::Update(const Script& script, TextRuler& ruler, std::span<Anchor> held)
{
    const std::vector<std::size_t> indexes = PlaceIndexes(held);
    m_places.clear();
    m_lineCount = 0;
    std::unordered_set<std::uint64_t> present;
    for (int i = 0; i < script.Count(); ++i) {
        const Story& story = script.At(i);
        present.insert(story.key);
        const auto [at, isNew] = m_stories.try_emplace(story.key);
        LaidStory& laid = at->second;
        if (isNew) {
            laid.plain = story.text;
            laid.stored = Stored(story.text);
            LayOut(laid, ruler);
        } else if (laid.plain != story.text) {
            const std::u16string before = laid.stored;
            LayOutChange(laid, story.text, ruler);
            for (Anchor& anchor : held)
                if (anchor.story == story.key) anchor.offset = Moved(anchor.offset, before, laid.stored);
        }
        if (!isNew && m_isStale) LayOut(laid, ruler);
        if (story.isSkipped) continue;
        m_places.push_back({story.key, &laid, m_lineCount});
        m_lineCount += laid.lines.size();
    }
    m_isStale = false;
    std::erase_if(m_stories, [&](const auto& entry) { return !present.contains(entry.first); });
    for (std::size_t i = 0; i < held.size(); ++i)
        if (!PlaceOf(held[i].story))
            held[i] = m_places.empty()
                          ? Anchor{}
                          : Anchor{m_places[std::min(indexes[i], m_places.size() - 1)].key, 0, 0};
}

const PromptLayout::Place* PromptLayout::PlaceOf(std::uint64_t key) const
{
    const auto found = std::ranges::find(m_places, key, &Place::key);
    return found == m_places.end() ? nullptr : &*found;
}

const PromptLayout::Place* PromptLayout::PlaceAt(std::size_t line) const
{
    const auto behind = std::ranges::upper_bound(m_places, line, {}, &Place::firstLine);
    return behind == m_places.begin() ? nullptr : &*std::prev(behind);
}

std::size_t PromptLayout::LineAt(double y) const
{
    if (m_lineCount == 0 || y <= 0) return 0;
    return std::min(static_cast<std::size_t>(y / m_lineHeight), m_lineCount - 1);
}

Anchor PromptLayout::AnchorAt(double y) const
{
    const std::size_t line = LineAt(y);
    const Place* const place = PlaceAt(line);
    if (!place) return {};
    return {place->key, place->story->lines[line - place->firstLine].start,
            y - static_cast<double>(line) * m_lineHeight};
}

double PromptLayout::YOf(const Anchor& anchor) const
{
    const Place* const place = PlaceOf(anchor.story);
    if (!place) return 0;
    const auto& lines = place->story->lines;
    const auto behind = std::ranges::upper_bound(lines, anchor.offset, {}, &PromptLine::start);
    const std::size_t index =
        behind == lines.begin() ? 0 : static_cast<std::size_t>(behind - lines.begin()) - 1;
    return static_cast<double>(place->firstLine + index) * m_lineHeight + anchor.below;
}

double PromptLayout::YOfStory(std::uint64_t key) const
{
    const Place* const place = PlaceOf(key);
    return place ? static_cast<double>(place->firstLine) * m_lineHeight : 0;
}

std::uint64_t PromptLayout::StoryAt(double y) const
{
    const Place* const place = PlaceAt(LineAt(y));
    return place ? place->key : 0;
}

void PromptLayout::VisitLines(double top, double bottom, const Visit& visit) const
{
    for (std::size_t line = LineAt(top); line < m_lineCount; ++line) {
        const double y = static_cast<double>(line) * m_lineHeight;
        if (y >= bottom) return;
        const Place* const place = PlaceAt(line);
        const PromptLine& laid = place->story->lines[line - place->firstLine];
        visit(std::u16string_view(place->story->stored).substr(laid.start, laid.length), laid, y);
    }
}

} // namespace prompter
