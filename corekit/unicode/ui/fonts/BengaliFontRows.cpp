// The glyph codes U+E100 to U+E1FF. The filler is blank: the letters have their whole width.
#include "corekit/unicode/shaping/BengaliConjuncts.h"
#include "corekit/unicode/ui/fonts/GlyphFontRows.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace corekit::detail {

namespace {

// clang-format off
constexpr GlyphFontRow rows[] = {
    Below(0xE101, u"\u0997", u"\u0997\u09CD\u09A8"),                                     // virama na, below
    After(0xE102, u"\u09B2", u"\u09B2\u09D7"),                    // au length mark
    Whole(0xE103, u"\u09A8\u09CD\u200D"),                         // na virama
    Beyond(0xE104, u"\u09B8\u09CD\u200D", u"\u09B8\u09CD\u09B0"), // ra below half sa
    Before(0xE105, u"\u09B2", u"\u09B2\u09C8"),                   // sign ai
    Whole(0xE106, u"\u0999\u09CD\u0995"),                         // nga virama ka
    Whole(0xE107, u"\u0999\u09CD\u0996"),                         // nga virama kha
    Whole(0xE108, u"\u0999\u09CD\u0997"),                         // nga virama ga
    Before(0xE109, u"\u09B2", u"\u09B2\u09C7"),                   // sign e
    Whole(0xE10B, u"\u0999\u09CD\u0998"),                         // nga virama gha
    Whole(0xE10E, u"\u099A\u09CD\u099A"),                         // ca virama ca
    Whole(0xE10F, u"\u099A\u09CD\u099B"),                         // ca virama cha
    Before(0xE110, u"\u09B2\u09B2", u"\u09B2\u09B2\u09C7"),       // sign e, within a word
    After(0xE112, u"\u09B2", u"\u09B2\u09C3"),                    // sign vocalic r
    Before(0xE113, u"\u09B2\u09B2", u"\u09B2\u09B2\u09C8"),       // sign ai, within a word
    Whole(0xE114, u"\u099C\u09CD\u099C"),                         // ja virama ja
    Whole(0xE115, u"\u09A8\u09CD\u200D"),                         // na virama
    Beyond(0xE117, u"\u09B0", u"\u09B0\u09C2"),                   // sign uu, behind ra
    Whole(0xE118, u"\u099E\u09CD\u099A"),                         // nya virama ca
    Whole(0xE119, u"\u0995\u09CD\u09B0"),                         // ka virama ra
    Whole(0xE11A, u"\u099E\u09CD\u099B"),                         // nya virama cha
    Whole(0xE11B, u"\u099E\u09CD\u099C"),                         // nya virama ja
    Whole(0xE11D, u"\u09A1\u09CD\u09A1"),                         // dda virama dda
    Whole(0xE11E, u"\u09A3\u09CD\u099F"),                         // nna virama tta
    Whole(0xE11F, u"\u09A3\u09CD\u09A0"),                         // nna virama ttha
    Whole(0xE121, u"\u09A3\u09CD\u09A1"),                         // nna virama dda
    Whole(0xE123, u"\u09A3\u09CD\u09A3"),                         // nna virama nna
    Whole(0xE124, u"\u09F3"),                                     // sign of the taka
    Whole(0xE125, u"\u09A3\u09CD\u09AE"),                         // nna virama ma
    After(0xE126, u"\u09B2", u"\u09B2\u09CD"),                    // virama
    Whole(0xE127, u"\u09A4\u09CD\u09A4"),                         // ta virama ta
    Whole(0xE128, u"\u09A4\u09CD\u09A5"),                         // ta virama tha
    Whole(0xE129, u"\u09A4\u09CD\u09AE"),                         // ta virama ma
    Whole(0xE12A, u"\u09A6\u09CD\u0997"),                         // da virama ga
    Whole(0xE12B, u"\u09A6\u09CD\u0998"),                         // da virama gha
    Whole(0xE12C, u"\u09A6\u09CD\u09A6"),                         // da virama da
    Whole(0xE12D, u"\u09A6\u09CD\u09A7"),                         // da virama dha
    Whole(0xE12E, u"\u09A6\u09CD\u09AD"),                         // da virama bha
    Whole(0xE12F, u"\u09A6\u09CD\u09AE"),                         // da virama ma
    Whole(0xE130, u"\u09E6"),                                     // zero
    Whole(0xE131, u"\u09E7"),                                     // one
    Whole(0xE132, u"\u09E8"),                                     // two
    Whole(0xE133, u"\u09E9"),                                     // three
    Whole(0xE134, u"\u09EA"),                                     // four
    Whole(0xE135, u"\u09EB"),                                     // five
    Whole(0xE136, u"\u09EC"),                                     // six
    Whole(0xE137, u"\u09ED"),                                     // seven
    Whole(0xE138, u"\u09EE"),                                     // eight
    Whole(0xE139, u"\u09EF"),                                     // nine
    Whole(0xE13A, u"\u09A7\u09CD\u09AE"),                         // dha virama ma
    Whole(0xE13B, u"\u09AA\u09CD\u099F"),                         // pa virama tta
    Whole(0xE13C, u"\u09AA\u09CD\u09A4"),                         // pa virama ta
    Whole(0xE13D, u"\u09AA\u09CD\u09AA"),                         // pa virama pa
    Whole(0xE13E, u"\u09AA\u09CD\u09B8"),                         // pa virama sa
    Whole(0xE13F, u"\u09AB\u09CD\u099F"),                         // pha virama tta
    Whole(0xE141, u"\u0985"),                                     // a
    Whole(0xE142, u"\u0987"),                                     // i
    Whole(0xE143, u"\u0988"),                                     // ii
    Whole(0xE144, u"\u0989"),                                     // u
    Whole(0xE145, u"\u098A"),                                     // uu
    Whole(0xE146, u"\u098B"),                                     // vocalic r
    Whole(0xE147, u"\u098F"),                                     // e
    Whole(0xE148, u"\u0990"),                                     // ai
    Whole(0xE149, u"\u0993"),                                     // o
    Whole(0xE14A, u"\u0994"),                                     // au
    Whole(0xE14B, u"\u0995"),                                     // ka
    Whole(0xE14C, u"\u0996"),                                     // kha
    Whole(0xE14D, u"\u0997"),                                     // ga
    Whole(0xE14E, u"\u0998"),                                     // gha
    Whole(0xE14F, u"\u0999"),                                     // nga
    Whole(0xE150, u"\u099A"),                                     // ca
    Whole(0xE151, u"\u099B"),                                     // cha
    Whole(0xE152, u"\u099C"),                                     // ja
    Whole(0xE153, u"\u099D"),                                     // jha
    Whole(0xE154, u"\u099E"),                                     // nya
    Whole(0xE155, u"\u099F"),                                     // tta
    Whole(0xE156, u"\u09A0"),                                     // ttha
    Whole(0xE157, u"\u09A1"),                                     // dda
    Whole(0xE158, u"\u09A2"),                                     // ddha
    Whole(0xE159, u"\u09A3"),                                     // nna
    Whole(0xE15A, u"\u09A4"),                                     // ta
    Whole(0xE15B, u"\u09AC\u09CD\u099C"),                         // ba virama ja
    Whole(0xE15C, u"\u09F1"),                                     // ra with lower diagonal
    Whole(0xE15D, u"\u09AC\u09CD\u09A6"),                         // ba virama da
    Beyond(0xE15E, u"\u09A8\u09CD\u200D", u"\u09A8\u09CD\u09AC"), // ba below half na
    Whole(0xE15F, u"\u09A5"),                                     // tha
    Whole(0xE160, u"\u09A6"),                                     // da
    Whole(0xE161, u"\u09A7"),                                     // dha
    Whole(0xE162, u"\u09A8"),                                     // na
    Whole(0xE163, u"\u09AA"),                                     // pa
    Whole(0xE164, u"\u09AB"),                                     // pha
    Whole(0xE165, u"\u09AC"),                                     // ba
    Whole(0xE166, u"\u09AD"),                                     // bha
    Whole(0xE167, u"\u09AE"),                                     // ma
    Whole(0xE168, u"\u09AF"),                                     // ya
    Whole(0xE169, u"\u09B0"),                                     // ra
    Whole(0xE16A, u"\u09B2"),                                     // la
    Whole(0xE16B, u"\u09B6"),                                     // sha
    Whole(0xE16C, u"\u09B7"),                                     // ssa
    Whole(0xE16D, u"\u09B8"),                                     // sa
    Whole(0xE16E, u"\u09B9"),                                     // ha
    Whole(0xE16F, u"\u09DC"),                                     // rra
    Whole(0xE170, u"\u09DD"),                                     // rha
    Whole(0xE171, u"\u09DF"),                                     // yya
    Whole(0xE172, u"\u09CE"),                                     // khanda ta
    Whole(0xE173, u"\u0982"),                                     // anusvara
    Whole(0xE174, u"\u0983"),                                     // visarga
    After(0xE175, u"\u09B2", u"\u09B2\u0981"),                    // candrabindu
    After(0xE176, u"\u09B2", u"\u09B2\u09BE"),                    // sign aa
    Before(0xE177, u"\u09B2", u"\u09B2\u09BF"),                   // sign i
    After(0xE178, u"\u09B2", u"\u09B2\u09C0"),                    // sign ii
    After(0xE179, u"\u09B2", u"\u09B2\u09C1"),                    // sign u
    Whole(0xE17A, u"\u09AC\u09CD\u09A7"),                         // ba virama dha
    Whole(0xE17C, u"\u0964"),                                     // danda
    Whole(0xE17D, u"\u09B2\u09CD\u0995"),                         // la virama ka
    Whole(0xE17E, u"\u09B2\u09CD\u0997"),                         // la virama ga
    Whole(0xE17F, u"\u09B2\u09CD\u099F"),                         // la virama tta
    Beyond(0xE180, u"\u09B0", u"\u09B0\u09C1"),                   // sign u, behind ra
    After(0xE181, u"\u09B2", u"\u09B2\u09C2"),                    // sign uu
    Whole(0xE182, u"\u09B2\u09CD\u09A1"),                         // la virama dda
    Whole(0xE183, u"\u09B2\u09CD\u09A4"),                         // la virama ta
    Whole(0xE184, u"\u0995\u09CD\u09B2"),                         // ka virama la
    Blank(0xE185),                                                // filler
    Whole(0xE186, u"\u09B2\u09CD\u09A6"),                         // la virama da
    Whole(0xE187, u"\u09B2\u09CD\u09AA"),                         // la virama pa
    Whole(0xE188, u"\u09B2\u09CD\u09AB"),                         // la virama pha
    Half(0xE189, u"\u09B2\u09CD", u"\u09B9"),                   // la virama, half
    Whole(0xE18A, u"\u09B2\u09CD\u09AE"),                         // la virama ma
    Whole(0xE18C, u"\u0997\u09CD\u200D"),                         // ga virama
    Whole(0xE18D, u"\u0995\u09CD\u200D"),                         // ka virama
    Whole(0xE18F, u"\u09B6\u09CD\u099A"),                         // sha virama ca
    Whole(0xE190, u"\u09A4\u09CD\u09B0"),                         // ta virama ra below half sa
    Whole(0xE191, u"\u09B6\u09CD\u099B"),                         // sha virama cha
    Whole(0xE192, u"\u09B6\u09CD\u09AE"),                         // sha virama ma
    After(0xE193, u"\u09B2", u"\u09B2\u09CD\u09AF"),              // virama ya
    Whole(0xE194, u"\u09B9\u09CD\u09A3"),                         // ha virama nna
    Whole(0xE196, u"\u09A8\u09CD\u09A8"),                         // na virama na
    Blank(0xE19A),                                                // filler
    Below(0xE19D, u"\u0997", u"\u0997\u09CD\u09A8"),                                     // virama na, below
    After(0xE19F, u"\u09A1", u"\u09A1\u09BC"),                   // nukta
    Whole(0xE1A0, u"\u09F0"),                                     // ra with middle diagonal
    After(0xE1A1, u"\u0996", u"\u0996\u09CD\u09AC"),              // virama ba
    Whole(0xE1A4, u"\u09AE\u09CD\u200D"),                         // ma virama
    After(0xE1A6, u"\u0996", u"\u0996\u09CD\u09AC"),              // virama ba
    After(0xE1A8, u"\u09B2", u"\u09B2\u09CD\u09AF"),              // virama ya
    After(0xE1A9, u"\u09B2", u"\u09B0\u09CD\u09B2"),              // ra virama
    Hung(0xE1AA, u"\u099E", u"\u099E\u09CD\u09B0"),              // virama ra
    Hung(0xE1AB, u"\u099E", u"\u099E\u09CD\u09B0"),              // virama ra
    Below(0xE1AD, u"\u0997", u"\u0997\u09CD\u09B2"),                                     // virama la, below
    Whole(0xE1AE, u"\u09B7\u09CD\u200D"),                         // ssa virama
    Whole(0xE1AF, u"\u09B8\u09CD\u200D"),                         // sa virama
    Whole(0xE1B0, u"\u0995\u09CD\u0995"),                         // ka virama ka
    Whole(0xE1B2, u"\u0995\u09CD\u09B7\u09CD\u09AE"),             // ka virama ssa virama ma
    Whole(0xE1B3, u"\u0995\u09CD\u09A4"),                         // ka virama ta
    Whole(0xE1B5, u"\u0995\u09CD\u09B0"),                         // ka virama ra
    Whole(0xE1B6, u"\u0995\u09CD\u09B7"),                         // ka virama ssa
    Whole(0xE1B8, u"\u0997\u09C1"),                               // ga sign u
    Whole(0xE1C1, u"\u099C\u09CD\u099E"),                         // ja virama nya
    Whole(0xE1C5, u"\u099E\u09CD\u099D"),                         // nya virama jha
    Whole(0xE1C6, u"\u099F\u09CD\u099F"),                         // tta virama tta
    Whole(0xE1CE, u"\u09A4\u09CD\u09B0"),                         // ta virama ra
    Hung(0xE1D0, u"\u099E", u"\u099E\u09CD\u09B0"),              // virama ra
    Whole(0xE1D1, u"\u09FB"),                                     // ganda mark
    Above(0xE1D6, u"\u09A2", u"\u099F"),                          // the hook of tta and i
    Whole(0xE1D8, u"\u09A6\u09CD\u09AC"),                         // da virama ba
    Whole(0xE1E5, u"\u09AD\u09CD\u09B0"),                         // bha virama ra
    Whole(0xE1E6, u"\u09AE\u09CD\u09A8"),                         // ma virama na
    Blank(0xE1EC),                                                // filler
    Whole(0xE1EF, u"\u09B6\u09C1"),                               // sha sign u
    After(0xE1F6, u"\u0995", u"\u09B0\u09CD\u0995"),              // ra virama, on ka and its like
    After(0xE1F7, u"\u09A4", u"\u09B0\u09CD\u09A4"),              // ra virama, on ta and its like
    After(0xE1F8, u"\u0997", u"\u09B0\u09CD\u0997"),              // ra virama, on ga and its like
    Whole(0xE1FB, u"\u09B9\u09C1"),                               // ha sign u
    Whole(0xE1FC, u"\u09B9\u09C3"),                               // ha sign vocalic r
    Whole(0xE1FE, u"\u09B9\u09CD\u09AE"),                         // ha virama ma
};
// clang-format on

} // namespace

namespace {

constexpr auto allRows = [] {
    std::array<GlyphFontRow, std::size(rows) + std::size(bengaliConjuncts)> all{};
    auto out = std::copy(std::begin(rows), std::end(rows), all.begin());
    for (const BengaliConjunct& conjunct : bengaliConjuncts) *out++ = Whole(conjunct.code, conjunct.text);
    return all;
}();

} // namespace

std::span<const GlyphFontRow> bengaliFontRows() { return allRows; }

} // namespace corekit::detail
