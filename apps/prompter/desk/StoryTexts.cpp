#include "desk/StoryTexts.h"

#include <cmath>
#include <cstdio>

namespace prompter {

std::u16string StoryText(const Script& script, int index, StoryColumn column, ReadingTimes& times,
                         const ReadRate& rate)
{
    if (index < 0 || index >= script.Count()) return {};
    const Story& story = script.At(index);
    char text[32] = "";
    switch (column) {
    case numberColumn:
        std::snprintf(text, sizeof text, story.isSkipped ? "(%d)" : "%d", index + 1);
        break;
    case titleColumn: {
        const std::u16string title = story.Title();
        return title.empty() ? u"(empty)" : title;
    }
    case timeColumn: {
        const auto seconds = static_cast<int>(std::lround(times.SecondsFor(story, rate)));
        std::snprintf(text, sizeof text, "%d:%02d", seconds / 60, seconds % 60);
        break;
    }
    }
    return {text, text + std::char_traits<char>::length(text)};
}

} // namespace prompter
