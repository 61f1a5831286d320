// What a text and a later state of it have in common, in whole lines: an edit changes few of them.
#pragma once

#include <cstddef>
#include <string_view>

namespace prompter {

struct SameLines {
    std::size_t head, tail; // units at the beginning and at the end; they do not overlap in either text
};

SameLines FindSameLines(std::u16string_view before, std::u16string_view after);

std::size_t CountLineEnds(std::u16string_view text);
// Where the line of that number begins, counted from 0; the end of the text if there is none.
std::size_t LineStart(std::u16string_view text, std::size_t line);

} // namespace prompter
