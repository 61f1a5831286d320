// What the list of stories says of each.
#pragma once

#include "model/ReadingTimes.h"

namespace prompter {

enum StoryColumn { numberColumn, titleColumn, timeColumn };

// A story's number from 1, its title ("(empty)" without one), or its reading time as m:ss.
std::u16string StoryText(const Script& script, int index, StoryColumn column, ReadingTimes& times,
                         const ReadRate& rate);

} // namespace prompter
