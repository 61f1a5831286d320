#include "model/Script.h"

#include "model/SameLines.h"

#include <algorithm>

namespace prompter {
namespace {

constexpr std::u16string_view usualDivider = u"---";
constexpr std::size_t longestTitle = 80;

std::u16string_view Trimmed(std::u16string_view line)
{
    constexpr std::u16string_view blank = u" \t\r\u00A0";
    const std::size_t first = line.find_first_not_of(blank);
    if (first == line.npos) return {};
    return line.substr(first, line.find_last_not_of(blank) - first + 1);
}

bool IsDivider(std::u16string_view line)
{
    const std::u16string_view text = Trimmed(line);
    return text == usualDivider || (!text.empty() && text.find_first_not_of(u'#') == text.npos);
}

} // namespace

std::u16string Story::Title() const
{
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        std::u16string_view line = Trimmed(std::u16string_view(text).substr(at, end - at));
        while (line.starts_with(u'#')) line.remove_prefix(1);
        line = Trimmed(line);
        if (line.size() > longestTitle) {
            line = line.substr(0, longestTitle);
            if ((line.back() & 0xFC00) == 0xD800) line.remove_suffix(1);
        }
        if (!line.empty()) return std::u16string(line);
        at = end + 1;
    }
    return {};
}

void Script::SetText(std::u16string_view text)
{
    m_stories.clear();
    Story story;
    story.key = ++m_lastKey;
    std::size_t start = 0; // of the story
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        const std::u16string_view line = text.substr(at, end - at);
        if (IsDivider(line)) {
            story.text = text.substr(start, at - start);
            m_stories.push_back(std::move(story));
            story = {};
            story.key = ++m_lastKey;
            story.divider = text.substr(at, std::min(end + 1, text.size()) - at);
            start = std::min(end + 1, text.size());
        }
        at = end + 1;
    }
    story.text = text.substr(start);
    m_stories.push_back(std::move(story));
    // A divider in the first line parts nothing: what stands before it is no story.
    m_beginsWithDivider = m_stories.size() > 1 && m_stories.front().text.empty();
    if (m_beginsWithDivider) m_stories.erase(m_stories.begin());
    ++m_version;
    MarkSaved();
}

std::u16string Script::Text() const
{
    std::u16string text;
    const auto endLine = [&text] {
        if (!text.empty() && text.back() != u'\n') text += u'\n';
    };
    for (const Story& story : m_stories) {
        if (m_beginsWithDivider || &story != &m_stories.front()) {
            endLine();
            text += story.divider.empty() ? usualDivider : std::u16string_view(story.divider);
            if (!story.text.empty()) endLine();
        }
        text += story.text;
    }
    return text;
}

int Script::IndexOf(std::uint64_t key) const
{
    const auto found = std::ranges::find(m_stories, key, &Story::key);
    return found == m_stories.end() ? -1 : static_cast<int>(found - m_stories.begin());
}

void Script::Change(Story& story, const LineChange& change, std::u16string_view lines)
{
    story.text.replace(change.at, change.removed, lines);
    story.change = change;
    story.formerVersion = story.version;
    story.version = ++m_version;
}

void Script::Assign(Story& story, std::u16string_view text)
{
    const std::u16string_view before = story.text;
    const SameLines same = FindSameLines(before, text);
    const std::size_t removed = before.size() - same.head - same.tail;
    const std::u16string_view gone = before.substr(same.head, removed);
    const std::size_t isLast = same.tail == 0 ? 1 : 0;
    const LineChange change{same.head, removed, text.size() - same.head - same.tail,
                            CountLineEnds(before.substr(0, same.head)), CountLineEnds(gone) + isLast};
    Change(story, change, text.substr(same.head, change.added));
}

void Script::SetStoryText(int index, std::u16string_view text)
{
    Story& story = m_stories[static_cast<std::size_t>(index)];
    if (story.text == text) return;
    Assign(story, text);
    story.isEdited = true;
}

void Script::ChangeLines(int index, const LineChange& change, std::u16string_view lines)
{
    Story& story = m_stories[static_cast<std::size_t>(index)];
    Change(story, change, lines);
    story.isEdited = true;
}

void Script::SetSkipped(int index, bool skipped)
{
    m_stories[static_cast<std::size_t>(index)].isSkipped = skipped;
}

void Script::Move(int from, int to)
{
    if (from == to) return;
    const auto begin = m_stories.begin();
    if (from < to)
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    else
        std::rotate(begin + to, begin + from, begin + from + 1);
    ++m_version;
}

int Script::Insert(int index, std::u16string_view text, std::string source)
{
    Story story;
    story.key = ++m_lastKey;
    story.text = text;
    story.source = std::move(source);
    index = std::clamp(index, 0, Count());
    m_stories.insert(m_stories.begin() + index, std::move(story));
    ++m_version;
    return index;
}

void Script::Remove(int index)
{
    if (Count() == 1)
        Assign(m_stories.front(), u"");
    else
        m_stories.erase(m_stories.begin() + index);
    ++m_version;
}

Script::News Script::TakeNews(const std::string& source, std::u16string_view text, std::uint64_t beingEdited)
{
    const auto isFromThere = [&](const Story& story) { return story.source == source; };
    // The last one is the newest: where two stand side by side it is the one that came from the folder.
    const auto newest = std::find_if(m_stories.rbegin(), m_stories.rend(), isFromThere);
    if (newest == m_stories.rend()) {
        Insert(Count(), text, source);
        return News::added;
    }
    if (newest->text == text) return News::unchanged;
    if (newest->isEdited || newest->key == beingEdited) {
        Insert(static_cast<int>(m_stories.rend() - newest), text, source);
        return News::beside;
    }
    Assign(*newest, text);
    return News::replaced;
}

void Script::KeepOnly(std::uint64_t key)
{
    const int index = IndexOf(key);
    if (index < 0 || At(index).source.empty()) return;
    const std::string source = At(index).source;
    const auto removed = std::erase_if(
        m_stories, [&](const Story& story) { return story.source == source && story.key != key; });
    if (removed > 0) ++m_version;
}

} // namespace prompter
