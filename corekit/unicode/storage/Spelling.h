// Spellings that stand for each other whatever surrounds them.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>

namespace corekit::detail {

struct Spelling {
    std::u16string_view plain, stored;
};

// The first row whose side given by `side` begins the text; null for none.
inline const Spelling* findSpelling(std::span<const Spelling> table, std::u16string_view Spelling::*side,
                                    std::u16string_view text)
{
    const auto row =
        std::ranges::find_if(table, [&](const Spelling& s) { return text.starts_with(s.*side); });
    return row == table.end() ? nullptr : &*row;
}

} // namespace corekit::detail
