// Characters that are each other's mirror image (Bidi_Mirroring_Glyph of the Unicode Character Database),
// those that scripts and their punctuation use.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

struct MirroredPair {
    WCHAR left, right;
};

// clang-format off
inline constexpr MirroredPair mirroredPairs[] = {
    {u'(', u')'},       {u'<', u'>'},       {u'[', u']'},       {u'{', u'}'},
    {0x00AB, 0x00BB}, // angle quotes, double and single
    {0x2039, 0x203A},
    {0x2045, 0x2046}, {0x207D, 0x207E}, {0x208D, 0x208E}, // brackets with a quill, raised, lowered
    {0x2208, 0x220B}, {0x2264, 0x2265}, {0x2266, 0x2267}, {0x226A, 0x226B}, // relations
    {0x2282, 0x2283}, {0x2286, 0x2287},
    {0x2308, 0x2309}, {0x230A, 0x230B}, {0x2329, 0x232A}, // ceiling, floor, angle
    {0x3008, 0x3009}, {0x300A, 0x300B}, {0x300C, 0x300D}, {0x300E, 0x300F},
    {0x3010, 0x3011}, {0x3014, 0x3015}, {0x3016, 0x3017}, {0x3018, 0x3019}, {0x301A, 0x301B},
};
// clang-format on

} // namespace corekit::detail
