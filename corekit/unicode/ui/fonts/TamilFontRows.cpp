// The glyph codes U+E200 to U+E2FF: almost all are a letter with its sign.
#include "corekit/unicode/ui/fonts/GlyphFontRows.h"

namespace corekit::detail {

namespace {

// clang-format off
constexpr GlyphFontRow rows[] = {
    whole(0xE230, u"\u0BD7"),                   // au length mark
    whole(0xE231, u"\u0BE7"),                   // one
    whole(0xE232, u"\u0BE8"),                   // two
    whole(0xE233, u"\u0BE9"),                   // three
    whole(0xE234, u"\u0BEA"),                   // four
    whole(0xE235, u"\u0BEB"),                   // five
    whole(0xE236, u"\u0BEC"),                   // six
    whole(0xE237, u"\u0BED"),                   // seven
    whole(0xE238, u"\u0BEE"),                   // eight
    whole(0xE239, u"\u0BEF"),                   // nine
    whole(0xE241, u"\u0B95\u0BBF"),             // ka sign i
    whole(0xE242, u"\u0B99\u0BBF"),             // nga sign i
    whole(0xE243, u"\u0B9A\u0BBF"),             // ca sign i
    whole(0xE244, u"\u0B9E\u0BBF"),             // nya sign i
    whole(0xE245, u"\u0BA3\u0BBF"),             // nna sign i
    whole(0xE246, u"\u0BA4\u0BBF"),             // ta sign i
    whole(0xE247, u"\u0BA8\u0BBF"),             // na sign i
    whole(0xE248, u"\u0BAA\u0BBF"),             // pa sign i
    whole(0xE249, u"\u0BAE\u0BBF"),             // ma sign i
    whole(0xE24A, u"\u0BAF\u0BBF"),             // ya sign i
    whole(0xE24B, u"\u0BB0\u0BBF"),             // ra sign i
    whole(0xE24C, u"\u0BB2\u0BBF"),             // la sign i
    whole(0xE24D, u"\u0BB5\u0BBF"),             // va sign i
    whole(0xE24E, u"\u0BB4\u0BBF"),             // llla sign i
    whole(0xE24F, u"\u0BB3\u0BBF"),             // lla sign i
    whole(0xE250, u"\u0BB1\u0BBF"),             // rra sign i
    whole(0xE251, u"\u0BA9\u0BBF"),             // nnna sign i
    whole(0xE252, u"\u0BB8\u0BBF"),             // sa sign i
    whole(0xE253, u"\u0BB7\u0BBF"),             // ssa sign i
    whole(0xE254, u"\u0B9C\u0BBF"),             // ja sign i
    whole(0xE255, u"\u0BB9\u0BBF"),             // ha sign i
    whole(0xE256, u"\u0B95\u0BCD\u0BB7\u0BBF"), // ka virama ssa sign i
    whole(0xE257, u"\u0B95\u0BC0"),             // ka sign ii
    whole(0xE258, u"\u0B99\u0BC0"),             // nga sign ii
    whole(0xE259, u"\u0B9A\u0BC0"),             // ca sign ii
    whole(0xE25A, u"\u0B9E\u0BC0"),             // nya sign ii
    whole(0xE261, u"\u0BA3\u0BC0"),             // nna sign ii
    whole(0xE262, u"\u0BA4\u0BC0"),             // ta sign ii
    whole(0xE263, u"\u0BA8\u0BC0"),             // na sign ii
    whole(0xE264, u"\u0BAA\u0BC0"),             // pa sign ii
    whole(0xE265, u"\u0BAE\u0BC0"),             // ma sign ii
    whole(0xE266, u"\u0BAF\u0BC0"),             // ya sign ii
    whole(0xE267, u"\u0BB0\u0BC0"),             // ra sign ii
    whole(0xE268, u"\u0BB2\u0BC0"),             // la sign ii
    whole(0xE269, u"\u0BB5\u0BC0"),             // va sign ii
    whole(0xE26A, u"\u0BB4\u0BC0"),             // llla sign ii
    whole(0xE26B, u"\u0BB3\u0BC0"),             // lla sign ii
    whole(0xE26C, u"\u0BB1\u0BC0"),             // rra sign ii
    whole(0xE26D, u"\u0BA9\u0BC0"),             // nnna sign ii
    whole(0xE26E, u"\u0BB8\u0BC0"),             // sa sign ii
    whole(0xE26F, u"\u0BB7\u0BC0"),             // ssa sign ii
    whole(0xE270, u"\u0B9C\u0BC0"),             // ja sign ii
    whole(0xE271, u"\u0BB9\u0BC0"),             // ha sign ii
    whole(0xE272, u"\u0B95\u0BCD\u0BB7\u0BC0"), // ka virama ssa sign ii
    whole(0xE274, u"\u0BAE\u0B82"),             // ma anusvara
    whole(0xE275, u"\u0BB5\u0B82"),             // va anusvara
    whole(0xE276, u"\u0BB8\u0BCD"),             // sa virama
    whole(0xE277, u"\u0BB7\u0BCD"),             // ssa virama
    whole(0xE278, u"\u0B9C\u0BCD"),             // ja virama
    whole(0xE279, u"\u0BB9\u0BCD"),             // ha virama
    whole(0xE27A, u"\u0B95\u0BCD\u0BB7\u0BCD"), // ka virama ssa virama
    whole(0xE27C, u"\u0964"),                   // danda
    whole(0xE27D, u"\u0965"),                   // double danda
    whole(0xE282, u"\u0B95\u0BCD"),             // ka virama
    whole(0xE283, u"\u0B99\u0BCD"),             // nga virama
    whole(0xE284, u"\u0B9A\u0BCD"),             // ca virama
    whole(0xE285, u"\u0B9E\u0BCD"),             // nya virama
    whole(0xE286, u"\u0B9F\u0BCD"),             // tta virama
    whole(0xE287, u"\u0BA3\u0BCD"),             // nna virama
    whole(0xE288, u"\u0BA4\u0BCD"),             // ta virama
    whole(0xE289, u"\u0BA8\u0BCD"),             // na virama
    whole(0xE28A, u"\u0BAA\u0BCD"),             // pa virama
    whole(0xE28B, u"\u0BAE\u0BCD"),             // ma virama
    whole(0xE28C, u"\u0BAF\u0BCD"),             // ya virama
    whole(0xE296, u"\u0BA8\u0B82"),             // na anusvara
    whole(0xE297, u"\u0BB7\u0B82"),             // ssa anusvara
    whole(0xE298, u"\u0BB0\u0BCD"),             // ra virama
    whole(0xE299, u"\u0BB2\u0BCD"),             // la virama
    whole(0xE29A, u"\u0BB5\u0BCD"),             // va virama
    whole(0xE29B, u"\u0BB4\u0BCD"),             // llla virama
    whole(0xE29C, u"\u0BB3\u0BCD"),             // lla virama
    whole(0xE29F, u"\u0BB1\u0BCD"),             // rra virama
    whole(0xE2A1, u"\u0BA9\u0BCD"),             // nnna virama
    after(0xE2A2, u"\u0B95", u"\u0B95\u0BCD"),  // virama
    after(0xE2A3, u"\u0B95", u"\u0B95\u0BBE"),  // sign aa
    after(0xE2A4, u"\u0B95", u"\u0B95\u0BBF"),  // sign i
    after(0xE2A6, u"\u0B95", u"\u0B95\u0BC0"),  // sign ii
    after(0xE2A7, u"\u0B9C", u"\u0B9C\u0BC1"),  // sign u
    after(0xE2A8, u"\u0B9C", u"\u0B9C\u0BC2"),  // sign uu
    before(0xE2AA, u"\u0B95", u"\u0B95\u0BC6"), // sign e
    before(0xE2AB, u"\u0B95", u"\u0B95\u0BC7"), // sign ee
    before(0xE2AC, u"\u0B95", u"\u0B95\u0BC8"), // sign ai
    whole(0xE2AE, u"\u0B9F\u0BBF"),             // tta sign i
    whole(0xE2AF, u"\u0B9F\u0BC0"),             // tta sign ii
    whole(0xE2B0, u"\u0B95\u0BC1"),             // ka sign u
    whole(0xE2B1, u"\u0B99\u0BC1"),             // nga sign u
    whole(0xE2B2, u"\u0B9A\u0BC1"),             // ca sign u
    whole(0xE2B3, u"\u0B9E\u0BC1"),             // nya sign u
    whole(0xE2B4, u"\u0B9F\u0BC1"),             // tta sign u
    whole(0xE2B5, u"\u0BA3\u0BC1"),             // nna sign u
    whole(0xE2B6, u"\u0BA4\u0BC1"),             // ta sign u
    whole(0xE2B8, u"\u0BA8\u0BC1"),             // na sign u
    whole(0xE2B9, u"\u0BAA\u0BC1"),             // pa sign u
    whole(0xE2BA, u"\u0BAE\u0BC1"),             // ma sign u
    whole(0xE2BB, u"\u0BAF\u0BC1"),             // ya sign u
    whole(0xE2BC, u"\u0BB0\u0BC1"),             // ra sign u
    whole(0xE2BD, u"\u0BB2\u0BC1"),             // la sign u
    whole(0xE2BE, u"\u0BB5\u0BC1"),             // va sign u
    whole(0xE2BF, u"\u0BB4\u0BC1"),             // llla sign u
    whole(0xE2C0, u"\u0BB3\u0BC1"),             // lla sign u
    whole(0xE2C1, u"\u0BB1\u0BC1"),             // rra sign u
    whole(0xE2C2, u"\u0BA9\u0BC1"),             // nnna sign u
    whole(0xE2C3, u"\u0B95\u0BC2"),             // ka sign uu
    whole(0xE2C4, u"\u0B99\u0BC2"),             // nga sign uu
    whole(0xE2C5, u"\u0B9A\u0BC2"),             // ca sign uu
    whole(0xE2C6, u"\u0B9E\u0BC2"),             // nya sign uu
    whole(0xE2C7, u"\u0B9F\u0BC2"),             // tta sign uu
    whole(0xE2C8, u"\u0BA3\u0BC2"),             // nna sign uu
    whole(0xE2C9, u"\u0BA4\u0BC2"),             // ta sign uu
    whole(0xE2CB, u"\u0BA8\u0BC2"),             // na sign uu
    whole(0xE2CC, u"\u0BAA\u0BC2"),             // pa sign uu
    whole(0xE2CD, u"\u0BAE\u0BC2"),             // ma sign uu
    whole(0xE2CE, u"\u0BAF\u0BC2"),             // ya sign uu
    whole(0xE2CF, u"\u0BB0\u0BC2"),             // ra sign uu
    whole(0xE2D0, u"\u0BAF\u0B82"),             // ya anusvara
    whole(0xE2D6, u"\u0BB2\u0BC2"),             // la sign uu
    whole(0xE2D7, u"\u0BB5\u0BC2"),             // va sign uu
    whole(0xE2D8, u"\u0BB4\u0BC2"),             // llla sign uu
    whole(0xE2D9, u"\u0BB3\u0BC2"),             // lla sign uu
    whole(0xE2DA, u"\u0BB1\u0BC2"),             // rra sign uu
    whole(0xE2DB, u"\u0BA9\u0BC2"),             // nnna sign uu
    whole(0xE2DC, u"\u0B85"),                   // a
    whole(0xE2DD, u"\u0B86"),                   // aa
    whole(0xE2DE, u"\u0B87"),                   // i
    whole(0xE2DF, u"\u0B88"),                   // ii
    whole(0xE2E0, u"\u0B89"),                   // u
    whole(0xE2E1, u"\u0B8A"),                   // uu
    whole(0xE2E2, u"\u0B8E"),                   // e
    whole(0xE2E3, u"\u0B8F"),                   // ee
    whole(0xE2E4, u"\u0B90"),                   // ai
    whole(0xE2E5, u"\u0B92"),                   // o
    whole(0xE2E6, u"\u0B93"),                   // oo
    whole(0xE2E7, u"\u0B83"),                   // visarga
    whole(0xE2E8, u"\u0B95"),                   // ka
    whole(0xE2E9, u"\u0B99"),                   // nga
    whole(0xE2EA, u"\u0B9A"),                   // ca
    whole(0xE2EB, u"\u0B9E"),                   // nya
    whole(0xE2EC, u"\u0B9F"),                   // tta
    whole(0xE2ED, u"\u0BA3"),                   // nna
    whole(0xE2EE, u"\u0BA4"),                   // ta
    whole(0xE2EF, u"\u0BA8"),                   // na
    whole(0xE2F0, u"\u0BAA"),                   // pa
    whole(0xE2F1, u"\u0BAE"),                   // ma
    whole(0xE2F2, u"\u0BAF"),                   // ya
    whole(0xE2F3, u"\u0BB0"),                   // ra
    whole(0xE2F4, u"\u0BB2"),                   // la
    whole(0xE2F5, u"\u0BB5"),                   // va
    whole(0xE2F6, u"\u0BB4"),                   // llla
    whole(0xE2F7, u"\u0BB3"),                   // lla
    whole(0xE2F8, u"\u0BB1"),                   // rra
    whole(0xE2F9, u"\u0BA9"),                   // nnna
    whole(0xE2FA, u"\u0BB8"),                   // sa
    whole(0xE2FB, u"\u0BB7"),                   // ssa
    whole(0xE2FC, u"\u0B9C"),                   // ja
    whole(0xE2FD, u"\u0BB9"),                   // ha
    whole(0xE2FE, u"\u0B95\u0BCD\u0BB7"),       // ka virama ssa
    whole(0xE2FF, u"\u0BB8\u0BCD\u0BB0\u0BC0"), // sa virama ra sign ii
};
// clang-format on

} // namespace

std::span<const GlyphFontRow> tamilFontRows() { return rows; }

} // namespace corekit::detail
