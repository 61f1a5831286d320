#include "desk/EditedStory.h"

#include "corekit/unicode/storage/StoredText.h"

#include <algorithm>
#include <unordered_map>

namespace prompter {
namespace {

constexpr LANGID seenFromLetters = 0;

template <class Visit>
void ForEachLine(std::u16string_view text, Visit visit)
{
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        visit(std::u16string(text.substr(at, end - at)), end < text.size());
        at = end + 1;
    }
}

// Lines that are stored as one of those before are taken as that one was read.
std::u16string PlainLinesOf(std::u16string_view stored, std::u16string_view before)
{
    std::unordered_map<std::u16string, std::u16string> read; // by what is stored of each
    ForEachLine(before, [&](const std::u16string& line, bool) {
        read.try_emplace(std::u16string(ViewOf(StoredOf(line))), line);
    });
    std::u16string result;
    ForEachLine(stored, [&](const std::u16string& line, bool hasMore) {
        const auto known = read.find(line);
        result += known != read.end() ? known->second : PlainOf(line);
        if (hasMore) result += u'\n';
    });
    return result;
}

} // namespace

std::u16string_view ViewOf(const StringW& text)
{
    return {static_cast<const WCHAR*>(text), static_cast<std::size_t>(text.GetLength())};
}

StringW StoredOf(std::u16string_view plain)
{
    return ToStoredText(plain.data(), static_cast<int>(plain.size()));
}

std::u16string PlainOf(std::u16string_view stored)
{
    return std::u16string(
        ViewOf(ToPlainText(stored.data(), static_cast<int>(stored.size()), seenFromLetters)));
}

void EditedStory::Begin(const Story& story, const StringW& stored)
{
    m_key = story.key;
    m_stored.Set(ViewOf(stored));
    m_plain.Set(story.text);
}

std::optional<EditedStory::Edit> EditedStory::Take(std::size_t from, std::size_t removed, std::size_t added,
                                                   std::u16string_view stored, std::u16string_view plain)
{
    const bool isParallel = m_stored.Count() == m_plain.Count();
    const std::size_t first = isParallel ? m_stored.LineAt(from) : 0;
    const std::size_t behind = isParallel ? m_stored.LineAt(from + removed) + 1 : m_stored.Count();
    const std::size_t at = m_stored.Start(first), end = m_stored.Start(behind) - removed + added;
    const std::u16string_view now = stored.substr(at, end - at);
    Edit edit;
    edit.change.line = first;
    edit.change.count = isParallel ? behind - first : m_plain.Count();
    edit.change.at = m_plain.Start(first);
    edit.change.removed = m_plain.Start(first + edit.change.count) - edit.change.at;
    const std::u16string_view before = plain.substr(edit.change.at, edit.change.removed);
    edit.lines = PlainLinesOf(now, before);
    edit.change.added = edit.lines.size();
    const bool isChange = edit.lines != before;
    m_stored.Replace(first, behind - first, now);
    m_plain.Replace(first, edit.change.count, edit.lines);
    return isChange ? std::optional(std::move(edit)) : std::nullopt;
}

} // namespace prompter
