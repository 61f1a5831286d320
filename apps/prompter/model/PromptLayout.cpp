#include "model/PromptLayout.h"

#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/storage/StoredText.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

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

std::u16string Stored(std::u16string_view plain)
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

// The place in the new text of what stood there in the old one.
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

// Anchors in a text of which `before`, from `at` on, has become `now`.
void MoveAnchors(std::span<Anchor> held, std::uint64_t story, std::size_t at, std::u16string_view before,
                 std::u16string_view now)
{
    for (Anchor& anchor : held) {
        if (anchor.story != story || anchor.offset <= at) continue;
        if (anchor.offset >= at + before.size())
            anchor.offset = anchor.offset - before.size() + now.size();
        else
            anchor.offset = at + Moved(anchor.offset - at, before, now);
    }
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

void PromptLayout::LayOutParagraph(std::u16string_view text, std::size_t start, std::size_t end,
                                   TextRuler& ruler, Lines& lines) const
{
    const bool rightToLeft = GetBaseLevel(text.data() + start, static_cast<int>(end - start)) == 1;
    PromptLine line{start, 0, 0, rightToLeft};
    int blanks = 0; // width of those behind the line so far
    for (std::size_t at = start; at < end;) {
        std::size_t wordEnd = at;
        while (wordEnd < end && !IsBlank(text[wordEnd])) ++wordEnd;
        const int width = wordEnd > at ? ruler.Width(text.substr(at, wordEnd - at)) : 0;
        if (line.length > 0 && line.width + blanks + width > m_width) {
            lines.push_back(line);
            line = {at, 0, 0, rightToLeft};
            blanks = 0;
        }
        if (line.length == 0 && width > m_width && wordEnd - at > 1) {
            const std::size_t part = Fitting(text.substr(at, wordEnd - at), m_width, ruler);
            if (part < wordEnd - at) {
                lines.push_back({at, part, ruler.Width(text.substr(at, part)), rightToLeft});
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
    lines.push_back(line);
}

void PromptLayout::LayOut(LaidStory& laid, TextRuler& ruler) const
{
    laid.lines.clear();
    LayOutParagraphs(laid.stored, 0, laid.stored.size(), ruler, laid.lines);
    laid.lines.push_back({laid.stored.size(), 0, 0, false}); // the gap to the next story
}

void PromptLayout::LayOutParagraphs(std::u16string_view text, std::size_t start, std::size_t end,
                                    TextRuler& ruler, Lines& lines) const
{
    for (std::size_t at = start; at < end;) {
        const std::size_t paragraphEnd = std::min(text.find(u'\n', at), end);
        LayOutParagraph(text, at, paragraphEnd, ruler, lines);
        at = paragraphEnd + 1;
    }
}

// Lines before and behind those that changed stay as they are.
void PromptLayout::LayOutChange(LaidStory& laid, const Story& story, TextRuler& ruler,
                                std::span<Anchor> held) const
{
    const LineChange& change = story.change;
    const std::size_t head = laid.paragraphs.Start(change.line),
                      tail = laid.paragraphs.Start(change.line + change.count);
    const std::u16string now = Stored(std::u16string_view(story.text).substr(change.at, change.added)),
                         before = laid.stored.substr(head, tail - head);
    laid.stored.replace(head, before.size(), now);
    laid.paragraphs.Replace(change.line, change.count, now);
    MoveAnchors(held, story.key, head, before, now);
    Lines made;
    LayOutParagraphs(laid.stored, head, head + now.size(), ruler, made);
    const auto first = std::ranges::lower_bound(laid.lines, head, {}, &PromptLine::start),
               behind = std::ranges::lower_bound(laid.lines, tail, {}, &PromptLine::start);
    for (auto line = behind; line != laid.lines.end(); ++line)
        line->start = line->start - before.size() + now.size();
    PutInPlace(laid.lines, static_cast<std::size_t>(first - laid.lines.begin()),
               static_cast<std::size_t>(behind - first), made);
}

void PromptLayout::LayOutText(LaidStory& laid, const Story& story, TextRuler& ruler,
                              std::span<Anchor> held) const
{
    const std::u16string before = std::exchange(laid.stored, Stored(story.text));
    laid.paragraphs.Set(laid.stored);
    MoveAnchors(held, story.key, 0, before, laid.stored);
    LayOut(laid, ruler);
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
        if (!isNew && laid.version != story.version && laid.version == story.formerVersion)
            LayOutChange(laid, story, ruler, held);
        else if (isNew || laid.version != story.version)
            LayOutText(laid, story, ruler, held);
        if (!isNew && m_isStale) LayOut(laid, ruler);
        laid.version = story.version;
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
