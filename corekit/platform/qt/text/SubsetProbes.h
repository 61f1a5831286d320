// What a face must have for a bit of its Unicode signature to be believed: the characters of the range that a
// text of it cannot do without. Faces claim ranges of which they hold a space or a byte order mark, and
// others forget ranges that they hold whole.
#pragma once

#include <span>
#include <string_view>

namespace corekit::detail {

struct SubsetProbe {
    int bit; // of the four words, from 0
    std::u16string_view characters;
};

// Ascending, each bit at most once. Of other ranges the face's own word counts.
std::span<const SubsetProbe> subsetProbes();

} // namespace corekit::detail
