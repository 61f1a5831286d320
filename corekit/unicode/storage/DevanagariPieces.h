// Devanagari conjuncts and half forms that have glyph codes of their own, which the shaping does not write:
// the fonts are made from these rows, and stored text has the codes in place of the letters.
#pragma once

#include "corekit/platform/Types.h"

#include <string_view>

namespace corekit::detail {

// What stands before another letter. Its text ends in a virama.
struct DevanagariHalf {
    std::u16string_view text;
    WCHAR code;
};

// What ends a cluster, in one piece. The tail completes the headline of letters without a stem, behind their
// marks; 0 where marks stand at the end of the letter, over its stem.
struct DevanagariWhole {
    std::u16string_view text;
    WCHAR code, tail;
};

// clang-format off
inline constexpr DevanagariHalf devanagariHalves[] = {
    {u"\u0916\u094D", 0xE001}, // kha
    {u"\u0917\u094D", 0xE002}, // ga
    {u"\u0918\u094D", 0xE003}, // gha
    {u"\u091A\u094D", 0xE004}, // ca
    {u"\u091C\u094D", 0xE005}, // ja
    {u"\u091D\u094D", 0xE006}, // jha
    {u"\u091E\u094D", 0xE007}, // nya
    {u"\u092C\u094D", 0xE008}, // ba
    {u"\u092D\u094D", 0xE00E}, // bha
    {u"\u092E\u094D", 0xE00F}, // ma
    {u"\u0928\u094D", 0xE010}, // na
    {u"\u0932\u094D", 0xE011}, // la
    {u"\u0935\u094D", 0xE012}, // va
    {u"\u0936\u094D", 0xE013}, // sha
    {u"\u0937\u094D", 0xE014}, // ssa
    {u"\u0938\u094D", 0xE015}, // sa
    {u"\u0939\u094D", 0xE016}, // ha
    {u"\u0933\u094D", 0xE017}, // lla
    {u"\u0931\u094D", 0xE018}, // rra
    {u"\u0915\u094D\u0937\u094D", 0xE019}, // ka-ssa
    {u"\u0924\u094D\u0924\u094D", 0xE01A}, // ta-ta
    {u"\u0924\u094D\u0930\u094D", 0xE01B}, // ta-ra
};

inline constexpr DevanagariWhole devanagariWholes[] = {
    {u"\u0919\u094D\u0917", 0xE01C, 0xE0F3}, // nga-ga
    {u"\u0919\u094D\u092E", 0xE01D, 0xE0F3}, // nga-ma
    {u"\u091A\u094D\u091A", 0xE01E, 0}, // ca-ca
    {u"\u091A\u094D\u091B", 0xE01F, 0xE0F3}, // ca-cha
    {u"\u091B\u094D\u092F", 0xE021, 0}, // cha-ya
    {u"\u091C\u094D\u091C", 0xE022, 0}, // ja-ja
    {u"\u091E\u094D\u091C", 0xE023, 0}, // nya-ja
    {u"\u091F\u094D\u091F", 0xE026, 0xE0F5}, // tta-tta
    {u"\u091F\u094D\u0920", 0xE027, 0xE0F3}, // tta-ttha
    {u"\u091F\u094D\u092F", 0xE028, 0}, // tta-ya
    {u"\u0920\u094D\u0920", 0xE029, 0xE0F6}, // ttha-ttha
    {u"\u0920\u094D\u092F", 0xE02C, 0}, // ttha-ya
    {u"\u0921\u094D\u0921", 0xE02D, 0xE0F7}, // dda-dda
    {u"\u0921\u094D\u0922", 0xE02E, 0xE0F7}, // dda-ddha
    {u"\u0921\u094D\u092F", 0xE02F, 0}, // dda-ya
    {u"\u0922\u094D\u092F", 0xE03B, 0}, // ddha-ya
    {u"\u0924\u094D\u0924", 0xE03F, 0}, // ta-ta
    {u"\u0924\u094D\u0925", 0xE041, 0}, // ta-tha
    {u"\u0926\u094D\u0917", 0xE048, 0xE0F9}, // da-ga
    {u"\u0926\u094D\u0918", 0xE05E, 0xE0F9}, // da-gha
    {u"\u0926\u094D\u0926", 0xE05F, 0xE0F9}, // da-da
    {u"\u0926\u094D\u0927", 0xE061, 0xE0F9}, // da-dha
    {u"\u0926\u094D\u0927\u094D\u092F", 0xE064, 0}, // da-dha-ya
    {u"\u0926\u094D\u092C", 0xE065, 0xE0F9}, // da-ba
    {u"\u0926\u094D\u092D", 0xE06B, 0xE0F9}, // da-bha
    {u"\u0926\u094D\u092E", 0xE06F, 0}, // da-ma
    {u"\u0926\u094D\u092F", 0xE070, 0}, // da-ya
    {u"\u0926\u094D\u0935", 0xE071, 0xE0F9}, // da-va
    {u"\u0928\u094D\u0921", 0xE072, 0xE0F7}, // na-dda
    {u"\u0928\u094D\u0921\u094D\u0930", 0xE073, 0xE0F7}, // na-dda-ra
    {u"\u0928\u094D\u0925", 0xE074, 0}, // na-tha
    {u"\u0928\u094D\u0927", 0xE075, 0}, // na-dha
    {u"\u0928\u094D\u0928", 0xE07A, 0}, // na-na
    {u"\u092A\u094D\u0928", 0xE080, 0}, // pa-na
    {u"\u092C\u094D\u0927", 0xE081, 0}, // ba-dha
    {u"\u092E\u094D\u092A", 0xE082, 0}, // ma-pa
    {u"\u092E\u094D\u092A\u094D\u0930", 0xE083, 0}, // ma-pa-ra
    {u"\u092E\u094D\u092B", 0xE084, 0xE0F2}, // ma-pha
    {u"\u092E\u094D\u092D", 0xE085, 0}, // ma-bha
    {u"\u0932\u094D\u0921", 0xE086, 0xE0F7}, // la-dda
    {u"\u0935\u094D\u092F", 0xE087, 0}, // va-ya
    {u"\u0936\u094D\u091A", 0xE088, 0}, // sha-ca
    {u"\u0936\u094D\u0928", 0xE089, 0}, // sha-na
    {u"\u0936\u094D\u0932", 0xE08A, 0}, // sha-la
    {u"\u0936\u094D\u0935", 0xE08B, 0}, // sha-va
    {u"\u0937\u094D\u091F", 0xE08C, 0}, // ssa-tta
    {u"\u0937\u094D\u091F\u094D\u0930", 0xE08D, 0}, // ssa-tta-ra
    {u"\u0937\u094D\u0920", 0xE08E, 0xE0F7}, // ssa-ttha
    {u"\u0938\u094D\u0925", 0xE08F, 0}, // sa-tha
    {u"\u0938\u094D\u092A", 0xE090, 0}, // sa-pa
    {u"\u0938\u094D\u092A\u094D\u0930", 0xE091, 0}, // sa-pa-ra
    {u"\u0938\u094D\u092B", 0xE092, 0xE0F2}, // sa-pha
    {u"\u0939\u094D\u0923", 0xE093, 0xE0F9}, // ha-nna
    {u"\u0939\u094D\u0928", 0xE094, 0xE0F9}, // ha-na
    {u"\u0939\u094D\u092E", 0xE095, 0}, // ha-ma
    {u"\u0939\u094D\u092F", 0xE096, 0}, // ha-ya
    {u"\u0939\u094D\u0932", 0xE097, 0xE0F9}, // ha-la
    {u"\u0939\u094D\u0935", 0xE098, 0xE0F9}, // ha-va
    {u"\u0915\u094D\u0936", 0xE099, 0}, // ka-sha
    {u"\u0932\u094D\u0930", 0xE09A, 0}, // la-ra
    {u"\u0937\u094D\u0930", 0xE09B, 0}, // ssa-ra
    // Signs that ha takes into its shape.
    {u"\u0939\u0941", 0xE09C, 0xE0FE},
    {u"\u0939\u0942", 0xE09D, 0xE0FE},
    {u"\u0939\u0943", 0xE09E, 0xE0FE},
};
// clang-format on

} // namespace corekit::detail
