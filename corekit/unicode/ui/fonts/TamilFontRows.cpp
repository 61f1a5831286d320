// The glyph codes U+E200 to U+E2FF: almost all are a letter with its sign.
#include "corekit/unicode/ui/fonts/GlyphFontRows.h"

namespace corekit::detail {

namespace {

// clang-format off
constexpr GlyphFontRow rows[] = {
    Whole(0xE230, u"\u0BD7"),                   // au length mark
    Whole(0xE231, u"\u0BE7"),                   // one
    Whole(0xE232, u"\u0BE8"),                   // two
    Whole(0xE233, u"\u0BE9"),                   // three
    Whole(0xE234, u"\u0BEA"),                   // four
    Whole(0xE235, u"\u0BEB"),                   // five
    Whole(0xE236, u"\u0BEC"),                   // six
    Whole(0xE237, u"\u0BED"),                   // seven
    Whole(0xE238, u"\u0BEE"),                   // eight
    Whole(0xE239, u"\u0BEF"),                   // nine
    Whole(0xE241, u"\u0B95\u0BBF"),             // ka sign i
    Whole(0xE242, u"\u0B99\u0BBF"),             // nga sign i
    Whole(0xE243, u"\u0B9A\u0BBF"),             // ca sign i
    Whole(0xE244, u"\u0B9E\u0BBF"),             // nya sign i
    Whole(0xE245, u"\u0BA3\u0BBF"),             // nna sign i
    Whole(0xE246, u"\u0BA4\u0BBF"),             // ta sign i
    Whole(0xE247, u"\u0BA8\u0BBF"),             // na sign i
    Whole(0xE248, u"\u0BAA\u0BBF"),             // pa sign i
    Whole(0xE249, u"\u0BAE\u0BBF"),             // ma sign i
    Whole(0xE24A, u"\u0BAF\u0BBF"),             // ya sign i
    Whole(0xE24B, u"\u0BB0\u0BBF"),             // ra sign i
    Whole(0xE24C, u"\u0BB2\u0BBF"),             // la sign i
    Whole(0xE24D, u"\u0BB5\u0BBF"),             // va sign i
    Whole(0xE24E, u"\u0BB4\u0BBF"),             // llla sign i
    Whole(0xE24F, u"\u0BB3\u0BBF"),             // lla sign i
    Whole(0xE250, u"\u0BB1\u0BBF"),             // rra sign i
    Whole(0xE251, u"\u0BA9\u0BBF"),             // nnna sign i
    Whole(0xE252, u"\u0BB8\u0BBF"),             // sa sign i
    Whole(0xE253, u"\u0BB7\u0BBF"),             // ssa sign i
    Whole(0xE254, u"\u0B9C\u0BBF"),             // ja sign i
    Whole(0xE255, u"\u0BB9\u0BBF"),             // ha sign i
    Whole(0xE256, u"\u0B95\u0BCD\u0BB7\u0BBF"), // ka virama ssa sign i
    Whole(0xE257, u"\u0B95\u0BC0"),             // ka sign ii
    Whole(0xE258, u"\u0B99\u0BC0"),             // nga sign ii
    Whole(0xE259, u"\u0B9A\u0BC0"),             // ca sign ii
    Whole(0xE25A, u"\u0B9E\u0BC0"),             // nya sign ii
    Whole(0xE261, u"\u0BA3\u0BC0"),             // nna sign ii
    Whole(0xE262, u"\u0BA4\u0BC0"),             // ta sign ii
    Whole(0xE263, u"\u0BA8\u0BC0"),             // na sign ii
    Whole(0xE264, u"\u0BAA\u0BC0"),             // pa sign ii
    Whole(0xE265, u"\u0BAE\u0BC0"),             // ma sign ii
    Whole(0xE266, u"\u0BAF\u0BC0"),             // ya sign ii
    Whole(0xE267, u"\u0BB0\u0BC0"),             // ra sign ii
    Whole(0xE268, u"\u0BB2\u0BC0"),             // la sign ii
    Whole(0xE269, u"\u0BB5\u0BC0"),             // va sign ii
    Whole(0xE26A, u"\u0BB4\u0BC0"),             // llla sign ii
    Whole(0xE26B, u"\u0BB3\u0BC0"),             // lla sign ii
    Whole(0xE26C, u"\u0BB1\u0BC0"),             // rra sign ii
    Whole(0xE26D, u"\u0BA9\u0BC0"),             // nnna sign ii
    Whole(0xE26E, u"\u0BB8\u0BC0"),             // sa sign ii
    Whole(0xE26F, u"\u0BB7\u0BC0"),             // ssa sign ii
    Whole(0xE270, u"\u0B9C\u0BC0"),             // ja sign ii
    Whole(0xE271, u"\u0BB9\u0BC0"),             // ha sign ii
    Whole(0xE272, u"\u0B95\u0BCD\u0BB7\u0BC0"), // ka virama ssa sign ii
    Whole(0xE274, u"\u0BAE\u0B82"),             // ma anusvara
    Whole(0xE275, u"\u0BB5\u0B82"),             // va anusvara
    Whole(0xE276, u"\u0BB8\u0BCD"),             // sa virama
    Whole(0xE277, u"\u0BB7\u0BCD"),             // ssa virama
    Whole(0xE278, u"\u0B9C\u0BCD"),             // ja virama
    Whole(0xE279, u"\u0BB9\u0BCD"),             // ha virama
    Whole(0xE27A, u"\u0B95\u0BCD\u0BB7\u0BCD"), // ka virama ssa virama
    Whole(0xE27C, u"\u0964"),                   // danda
    Whole(0xE27D, u"\u0965"),                   // double danda
    Whole(0xE282, u"\u0B95\u0BCD"),             // ka virama
    Whole(0xE283, u"\u0B99\u0BCD"),             // nga virama
    Whole(0xE284, u"\u0B9A\u0BCD"),             // ca virama
    Whole(0xE285, u"\u0B9E\u0BCD"),             // nya virama
    Whole(0xE286, u"\u0B9F\u0BCD"),             // tta virama
    Whole(0xE287, u"\u0BA3\u0BCD"),             // nna virama
    Whole(0xE288, u"\u0BA4\u0BCD"),             // ta virama
    Whole(0xE289, u"\u0BA8\u0BCD"),             // na virama
    Whole(0xE28A, u"\u0BAA\u0BCD"),             // pa virama
    Whole(0xE28B, u"\u0BAE\u0BCD"),             // ma virama
    Whole(0xE28C, u"\u0BAF\u0BCD"),             // ya virama
    Whole(0xE296, u"\u0BA8\u0B82"),             // na anusvara
    Whole(0xE297, u"\u0BB7\u0B82"),             // ssa anusvara
    Whole(0xE298, u"\u0BB0\u0BCD"),             // ra virama
    Whole(0xE299, u"\u0BB2\u0BCD"),             // la virama
    Whole(0xE29A, u"\u0BB5\u0BCD"),             // va virama
    Whole(0xE29B, u"\u0BB4\u0BCD"),             // llla virama
    Whole(0xE29C, u"\u0BB3\u0BCD"),             // lla virama
    Whole(0xE29F, u"\u0BB1\u0BCD"),             // rra virama
    Whole(0xE2A1, u"\u0BA9\u0BCD"),             // nnna virama
    After(0xE2A2, u"\u0B95", u"\u0B95\u0BCD"),  // virama
    After(0xE2A3, u"\u0B95", u"\u0B95\u0BBE"),  // sign aa
    After(0xE2A4, u"\u0B95", u"\u0B95\u0BBF"),  // sign i
    After(0xE2A6, u"\u0B95", u"\u0B95\u0BC0"),  // sign ii
    After(0xE2A7, u"\u0B9C", u"\u0B9C\u0BC1"),  // sign u
    After(0xE2A8, u"\u0B9C", u"\u0B9C\u0BC2"),  // sign uu
    Before(0xE2AA, u"\u0B95", u"\u0B95\u0BC6"), // sign e
    Before(0xE2AB, u"\u0B95", u"\u0B95\u0BC7"), // sign ee
    Before(0xE2AC, u"\u0B95", u"\u0B95\u0BC8"), // sign ai
    Whole(0xE2AE, u"\u0B9F\u0BBF"),             // tta sign i
    Whole(0xE2AF, u"\u0B9F\u0BC0"),             // tta sign ii
    Whole(0xE2B0, u"\u0B95\u0BC1"),             // ka sign u
    Whole(0xE2B1, u"\u0B99\u0BC1"),             // nga sign u
    Whole(0xE2B2, u"\u0B9A\u0BC1"),             // ca sign u
    Whole(0xE2B3, u"\u0B9E\u0BC1"),             // nya sign u
    Whole(0xE2B4, u"\u0B9F\u0BC1"),             // tta sign u
    Whole(0xE2B5, u"\u0BA3\u0BC1"),             // nna sign u
    Whole(0xE2B6, u"\u0BA4\u0BC1"),             // ta sign u
    Whole(0xE2B8, u"\u0BA8\u0BC1"),             // na sign u
    Whole(0xE2B9, u"\u0BAA\u0BC1"),             // pa sign u
    Whole(0xE2BA, u"\u0BAE\u0BC1"),             // ma sign u
    Whole(0xE2BB, u"\u0BAF\u0BC1"),             // ya sign u
    Whole(0xE2BC, u"\u0BB0\u0BC1"),             // ra sign u
    Whole(0xE2BD, u"\u0BB2\u0BC1"),             // la sign u
    Whole(0xE2BE, u"\u0BB5\u0BC1"),             // va sign u
    Whole(0xE2BF, u"\u0BB4\u0BC1"),             // llla sign u
    Whole(0xE2C0, u"\u0BB3\u0BC1"),             // lla sign u
    Whole(0xE2C1, u"\u0BB1\u0BC1"),             // rra sign u
    Whole(0xE2C2, u"\u0BA9\u0BC1"),             // nnna sign u
    Whole(0xE2C3, u"\u0B95\u0BC2"),             // ka sign uu
    Whole(0xE2C4, u"\u0B99\u0BC2"),             // nga sign uu
    Whole(0xE2C5, u"\u0B9A\u0BC2"),             // ca sign uu
    Whole(0xE2C6, u"\u0B9E\u0BC2"),             // nya sign uu
    Whole(0xE2C7, u"\u0B9F\u0BC2"),             // tta sign uu
    Whole(0xE2C8, u"\u0BA3\u0BC2"),             // nna sign uu
    Whole(0xE2C9, u"\u0BA4\u0BC2"),             // ta sign uu
    Whole(0xE2CB, u"\u0BA8\u0BC2"),             // na sign uu
    Whole(0xE2CC, u"\u0BAA\u0BC2"),             // pa sign uu
    Whole(0xE2CD, u"\u0BAE\u0BC2"),             // ma sign uu
    Whole(0xE2CE, u"\u0BAF\u0BC2"),             // ya sign uu
    Whole(0xE2CF, u"\u0BB0\u0BC2"),             // ra sign uu
    Whole(0xE2D0, u"\u0BAF\u0B82"),             // ya anusvara
    Whole(0xE2D6, u"\u0BB2\u0BC2"),             // la sign uu
    Whole(0xE2D7, u"\u0BB5\u0BC2"),             // va sign uu
    Whole(0xE2D8, u"\u0BB4\u0BC2"),             // llla sign uu
    Whole(0xE2D9, u"\u0BB3\u0BC2"),             // lla sign uu
    Whole(0xE2DA, u"\u0BB1\u0BC2"),             // rra sign uu
    Whole(0xE2DB, u"\u0BA9\u0BC2"),             // nnna sign uu
    Whole(0xE2DC, u"\u0B85"),                   // a
    Whole(0xE2DD, u"\u0B86"),                   // aa
    Whole(0xE2DE, u"\u0B87"),                   // i
    Whole(0xE2DF, u"\u0B88"),                   // ii
    Whole(0xE2E0, u"\u0B89"),                   // u
    Whole(0xE2E1, u"\u0B8A"),                   // uu
    Whole(0xE2E2, u"\u0B8E"),                   // e
    Whole(0xE2E3, u"\u0B8F"),                   // ee
    Whole(0xE2E4, u"\u0B90"),                   // ai
    Whole(0xE2E5, u"\u0B92"),                   // o
    Whole(0xE2E6, u"\u0B93"),                   // oo
    Whole(0xE2E7, u"\u0B83"),                   // visarga
    Whole(0xE2E8, u"\u0B95"),                   // ka
    Whole(0xE2E9, u"\u0B99"),                   // nga
    Whole(0xE2EA, u"\u0B9A"),                   // ca
    Whole(0xE2EB, u"\u0B9E"),                   // nya
    Whole(0xE2EC, u"\u0B9F"),                   // tta
    Whole(0xE2ED, u"\u0BA3"),                   // nna
    Whole(0xE2EE, u"\u0BA4"),                   // ta
    Whole(0xE2EF, u"\u0BA8"),                   // na
    Whole(0xE2F0, u"\u0BAA"),                   // pa
    Whole(0xE2F1, u"\u0BAE"),                   // ma
    Whole(0xE2F2, u"\u0BAF"),                   // ya
    Whole(0xE2F3, u"\u0BB0"),                   // ra
    Whole(0xE2F4, u"\u0BB2"),                   // la
    Whole(0xE2F5, u"\u0BB5"),                   // va
    Whole(0xE2F6, u"\u0BB4"),                   // llla
    Whole(0xE2F7, u"\u0BB3"),                   // lla
    Whole(0xE2F8, u"\u0BB1"),                   // rra
    Whole(0xE2F9, u"\u0BA9"),                   // nnna
    Whole(0xE2FA, u"\u0BB8"),                   // sa
    Whole(0xE2FB, u"\u0BB7"),                   // ssa
    Whole(0xE2FC, u"\u0B9C"),                   // ja
    Whole(0xE2FD, u"\u0BB9"),                   // ha
    Whole(0xE2FE, u"\u0B95\u0BCD\u0BB7"),       // ka virama ssa
    Whole(0xE2FF, u"\u0BB8\u0BCD\u0BB0\u0BC0"), // sa virama ra sign ii
};
// clang-format on

} // namespace

std::span<const GlyphFontRow> tamilFontRows() { return rows; }

} // namespace corekit::detail
