#include "model/ReadingTimes.h"

namespace prompter {
namespace {

constexpr std::size_t mostKnown = 10000; // stories that have gone are among them

} // namespace

double ReadingTimes::SecondsFor(const Story& story, const ReadRate& rate)
{
    if (m_known.size() > mostKnown) m_known.clear();
    const auto [at, isNew] = m_known.try_emplace(story.key);
    Known& known = at->second;
    if (isNew || known.version != story.version || known.charactersPerLine != rate.charactersPerLine)
        known = {story.version, rate.charactersPerLine, rate.LinesFor(story.text)};
    return static_cast<double>(known.lines) * rate.SecondsPerLine();
}

void ReadingTimes::StoryChanged(const Story& story, std::u16string_view gone, const ReadRate& rate)
{
    const auto found = m_known.find(story.key);
    if (found == m_known.end() || found->second.version != story.formerVersion ||
        found->second.charactersPerLine != rate.charactersPerLine)
        return;
    const LineChange& change = story.change;
    found->second.lines +=
        rate.LinesFor(std::u16string_view(story.text).substr(change.at, change.added)) - rate.LinesFor(gone);
    found->second.version = story.version;
}

} // namespace prompter
