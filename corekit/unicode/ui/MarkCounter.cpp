#include "corekit/unicode/ui/MarkCounter.h"

#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <array>

namespace corekit::detail {

namespace {

struct Block {
    WCHAR first, last;
};
// Marks younger than the tables, and controls.
constexpr std::array<Block, 10> otherMarks = {{{0x0487, 0x0489},
                                               {0x1160, 0x11FF},
                                               {0x180B, 0x180F},
                                               {0x1AB0, 0x1AFF},
                                               {0x1DC0, 0x1DFF},
                                               {0x200B, 0x200F},
                                               {0x202A, 0x202E},
                                               {0x2060, 0x206F},
                                               {0x2DE0, 0x2DFF},
                                               {0xA66F, 0xA67D}}};

} // namespace

bool MarkCounter::IsMark(WCHAR c)
{
    constexpr WCHAR first = 0x0300;
    if (c < first) return false;
    const auto isOf = [c](const Block& block) { return c >= block.first && c <= block.last; };
    return CUnicodeCharTypes::GetGeneralType(c) == general::Mn ||
           std::any_of(otherMarks.begin(), otherMarks.end(), isOf);
}

} // namespace corekit::detail
