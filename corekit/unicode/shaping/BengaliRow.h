// How the tables of the Bengali step are written.
#pragma once

#include <string_view>

namespace corekit::detail {

// Where the text goes on with `codes`, write `glyphs` and go on by `advance`, which may leave some of the
// codes to the next step. Of the rows that match, the longest counts. Numbers are hexadecimal, with a space
// between them.
struct BengaliRow {
    std::string_view codes;
    int advance;
    std::string_view glyphs;
};

} // namespace corekit::detail
