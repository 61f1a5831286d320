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
    below(0xE101, u"\u0997", u"\u0997\u09CD\u09A8"),                                     // virama na, below
    after(0xE102, u"\u09B2", u"\u09B2\u09D7"),                    // au length mark
    whole(0xE103, u"\u09A8\u09CD\u200D"),                         // na virama
    beyond(0xE104, u"\u09B8\u09CD\u200D", u"\u09B8\u09CD\u09B0"), // ra below half sa
    before(0xE105, u"\u09B2", u"\u09B2\u09C8"),                   // sign ai
    whole(0xE106, u"\u0999\u09CD\u0995"),                         // nga virama ka
    whole(0xE107, u"\u0999\u09CD\u0996"),                         // nga virama kha
    whole(0xE108, u"\u0999\u09CD\u0997"),                         // nga virama ga
    before(0xE109, u"\u09B2", u"\u09B2\u09C7"),                   // sign e
    whole(0xE10B, u"\u0999\u09CD\u0998"),                         // nga virama gha
    whole(0xE10E, u"\u099A\u09CD\u099A"),                         // ca virama ca
    whole(0xE10F, u"\u099A\u09CD\u099B"),                         // ca virama cha
    before(0xE110, u"\u09B2\u09B2", u"\u09B2\u09B2\u09C7"),       // sign e, within a word
    after(0xE112, u"\u09B2", u"\u09B2\u09C3"),                    // sign vocalic r
    before(0xE113, u"\u09B2\u09B2", u"\u09B2\u09B2\u09C8"),       // sign ai, within a word
    whole(0xE114, u"\u099C\u09CD\u099C"),                         // ja virama ja
    whole(0xE115, u"\u09A8\u09CD\u200D"),                         // na virama
    beyond(0xE117, u"\u09B0", u"\u09B0\u09C2"),                   // sign uu, behind ra
    whole(0xE118, u"\u099E\u09CD\u099A"),                         // nya virama ca
    whole(0xE119, u"\u0995\u09CD\u09B0"),                         // ka virama ra
    whole(0xE11A, u"\u099E\u09CD\u099B"),                         // nya virama cha
    whole(0xE11B, u"\u099E\u09CD\u099C"),                         // nya virama ja
    whole(0xE11D, u"\u09A1\u09CD\u09A1"),                         // dda virama dda
    whole(0xE11E, u"\u09A3\u09CD\u099F"),                         // nna virama tta
    whole(0xE11F, u"\u09A3\u09CD\u09A0"),                         // nna virama ttha
    whole(0xE121, u"\u09A3\u09CD\u09A1"),                         // nna virama dda
    whole(0xE123, u"\u09A3\u09CD\u09A3"),                         // nna virama nna
    whole(0xE124, u"\u09F3"),                                     // sign of the taka
    whole(0xE125, u"\u09A3\u09CD\u09AE"),                         // nna virama ma
    after(0xE126, u"\u09B2", u"\u09B2\u09CD"),                    // virama
    whole(0xE127, u"\u09A4\u09CD\u09A4"),                         // ta virama ta
    whole(0xE128, u"\u09A4\u09CD\u09A5"),                         // ta virama tha
    whole(0xE129, u"\u09A4\u09CD\u09AE"),                         // ta virama ma
    whole(0xE12A, u"\u09A6\u09CD\u0997"),                         // da virama ga
    whole(0xE12B, u"\u09A6\u09CD\u0998"),                         // da virama gha
    whole(0xE12C, u"\u09A6\u09CD\u09A6"),                         // da virama da
    whole(0xE12D, u"\u09A6\u09CD\u09A7"),                         // da virama dha
    whole(0xE12E, u"\u09A6\u09CD\u09AD"),                         // da virama bha
    whole(0xE12F, u"\u09A6\u09CD\u09AE"),                         // da virama ma
    whole(0xE130, u"\u09E6"),                                     // zero
    whole(0xE131, u"\u09E7"),                                     // one
    whole(0xE132, u"\u09E8"),                                     // two
    whole(0xE133, u"\u09E9"),                                     // three
    whole(0xE134, u"\u09EA"),                                     // four
    whole(0xE135, u"\u09EB"),                                     // five
    whole(0xE136, u"\u09EC"),                                     // six
    whole(0xE137, u"\u09ED"),                                     // seven
    whole(0xE138, u"\u09EE"),                                     // eight
    whole(0xE139, u"\u09EF"),                                     // nine
    whole(0xE13A, u"\u09A7\u09CD\u09AE"),                         // dha virama ma
    whole(0xE13B, u"\u09AA\u09CD\u099F"),                         // pa virama tta
    whole(0xE13C, u"\u09AA\u09CD\u09A4"),                         // pa virama ta
    whole(0xE13D, u"\u09AA\u09CD\u09AA"),                         // pa virama pa
    whole(0xE13E, u"\u09AA\u09CD\u09B8"),                         // pa virama sa
    whole(0xE13F, u"\u09AB\u09CD\u099F"),                         // pha virama tta
    whole(0xE141, u"\u0985"),                                     // a
    whole(0xE142, u"\u0987"),                                     // i
    whole(0xE143, u"\u0988"),                                     // ii
    whole(0xE144, u"\u0989"),                                     // u
    whole(0xE145, u"\u098A"),                                     // uu
    whole(0xE146, u"\u098B"),                                     // vocalic r
    whole(0xE147, u"\u098F"),                                     // e
    whole(0xE148, u"\u0990"),                                     // ai
    whole(0xE149, u"\u0993"),                                     // o
    whole(0xE14A, u"\u0994"),                                     // au
    whole(0xE14B, u"\u0995"),                                     // ka
    whole(0xE14C, u"\u0996"),                                     // kha
    whole(0xE14D, u"\u0997"),                                     // ga
    whole(0xE14E, u"\u0998"),                                     // gha
    whole(0xE14F, u"\u0999"),                                     // nga
    whole(0xE150, u"\u099A"),                                     // ca
    whole(0xE151, u"\u099B"),                                     // cha
    whole(0xE152, u"\u099C"),                                     // ja
    whole(0xE153, u"\u099D"),                                     // jha
    whole(0xE154, u"\u099E"),                                     // nya
    whole(0xE155, u"\u099F"),                                     // tta
    whole(0xE156, u"\u09A0"),                                     // ttha
    whole(0xE157, u"\u09A1"),                                     // dda
    whole(0xE158, u"\u09A2"),                                     // ddha
    whole(0xE159, u"\u09A3"),                                     // nna
    whole(0xE15A, u"\u09A4"),                                     // ta
    whole(0xE15B, u"\u09AC\u09CD\u099C"),                         // ba virama ja
    whole(0xE15C, u"\u09F1"),                                     // ra with lower diagonal
    whole(0xE15D, u"\u09AC\u09CD\u09A6"),                         // ba virama da
    beyond(0xE15E, u"\u09A8\u09CD\u200D", u"\u09A8\u09CD\u09AC"), // ba below half na
    whole(0xE15F, u"\u09A5"),                                     // tha
    whole(0xE160, u"\u09A6"),                                     // da
    whole(0xE161, u"\u09A7"),                                     // dha
    whole(0xE162, u"\u09A8"),                                     // na
    whole(0xE163, u"\u09AA"),                                     // pa
    whole(0xE164, u"\u09AB"),                                     // pha
    whole(0xE165, u"\u09AC"),                                     // ba
    whole(0xE166, u"\u09AD"),                                     // bha
    whole(0xE167, u"\u09AE"),                                     // ma
    whole(0xE168, u"\u09AF"),                                     // ya
    whole(0xE169, u"\u09B0"),                                     // ra
    whole(0xE16A, u"\u09B2"),                                     // la
    whole(0xE16B, u"\u09B6"),                                     // sha
    whole(0xE16C, u"\u09B7"),                                     // ssa
    whole(0xE16D, u"\u09B8"),                                     // sa
    whole(0xE16E, u"\u09B9"),                                     // ha
    whole(0xE16F, u"\u09DC"),                                     // rra
    whole(0xE170, u"\u09DD"),                                     // rha
    whole(0xE171, u"\u09DF"),                                     // yya
    whole(0xE172, u"\u09CE"),                                     // khanda ta
    whole(0xE173, u"\u0982"),                                     // anusvara
    whole(0xE174, u"\u0983"),                                     // visarga
    after(0xE175, u"\u09B2", u"\u09B2\u0981"),                    // candrabindu
    after(0xE176, u"\u09B2", u"\u09B2\u09BE"),                    // sign aa
    before(0xE177, u"\u09B2", u"\u09B2\u09BF"),                   // sign i
    after(0xE178, u"\u09B2", u"\u09B2\u09C0"),                    // sign ii
    after(0xE179, u"\u09B2", u"\u09B2\u09C1"),                    // sign u
    whole(0xE17A, u"\u09AC\u09CD\u09A7"),                         // ba virama dha
    whole(0xE17C, u"\u0964"),                                     // danda
    whole(0xE17D, u"\u09B2\u09CD\u0995"),                         // la virama ka
    whole(0xE17E, u"\u09B2\u09CD\u0997"),                         // la virama ga
    whole(0xE17F, u"\u09B2\u09CD\u099F"),                         // la virama tta
    beyond(0xE180, u"\u09B0", u"\u09B0\u09C1"),                   // sign u, behind ra
    after(0xE181, u"\u09B2", u"\u09B2\u09C2"),                    // sign uu
    whole(0xE182, u"\u09B2\u09CD\u09A1"),                         // la virama dda
    whole(0xE183, u"\u09B2\u09CD\u09A4"),                         // la virama ta
    whole(0xE184, u"\u0995\u09CD\u09B2"),                         // ka virama la
    blank(0xE185),                                                // filler
    whole(0xE186, u"\u09B2\u09CD\u09A6"),                         // la virama da
    whole(0xE187, u"\u09B2\u09CD\u09AA"),                         // la virama pa
    whole(0xE188, u"\u09B2\u09CD\u09AB"),                         // la virama pha
    half(0xE189, u"\u09B2\u09CD", u"\u09B9"),                   // la virama, half
    whole(0xE18A, u"\u09B2\u09CD\u09AE"),                         // la virama ma
    whole(0xE18C, u"\u0997\u09CD\u200D"),                         // ga virama
    whole(0xE18D, u"\u0995\u09CD\u200D"),                         // ka virama
    whole(0xE18F, u"\u09B6\u09CD\u099A"),                         // sha virama ca
    whole(0xE190, u"\u09A4\u09CD\u09B0"),                         // ta virama ra below half sa
    whole(0xE191, u"\u09B6\u09CD\u099B"),                         // sha virama cha
    whole(0xE192, u"\u09B6\u09CD\u09AE"),                         // sha virama ma
    after(0xE193, u"\u09B2", u"\u09B2\u09CD\u09AF"),              // virama ya
    whole(0xE194, u"\u09B9\u09CD\u09A3"),                         // ha virama nna
    whole(0xE196, u"\u09A8\u09CD\u09A8"),                         // na virama na
    blank(0xE19A),                                                // filler
    below(0xE19D, u"\u0997", u"\u0997\u09CD\u09A8"),                                     // virama na, below
    after(0xE19F, u"\u09A1", u"\u09A1\u09BC"),                   // nukta
    whole(0xE1A0, u"\u09F0"),                                     // ra with middle diagonal
    after(0xE1A1, u"\u0996", u"\u0996\u09CD\u09AC"),              // virama ba
    whole(0xE1A4, u"\u09AE\u09CD\u200D"),                         // ma virama
    after(0xE1A6, u"\u0996", u"\u0996\u09CD\u09AC"),              // virama ba
    after(0xE1A8, u"\u09B2", u"\u09B2\u09CD\u09AF"),              // virama ya
    after(0xE1A9, u"\u09B2", u"\u09B0\u09CD\u09B2"),              // ra virama
    hung(0xE1AA, u"\u099E", u"\u099E\u09CD\u09B0"),              // virama ra
    hung(0xE1AB, u"\u099E", u"\u099E\u09CD\u09B0"),              // virama ra
    below(0xE1AD, u"\u0997", u"\u0997\u09CD\u09B2"),                                     // virama la, below
    whole(0xE1AE, u"\u09B7\u09CD\u200D"),                         // ssa virama
    whole(0xE1AF, u"\u09B8\u09CD\u200D"),                         // sa virama
    whole(0xE1B0, u"\u0995\u09CD\u0995"),                         // ka virama ka
    whole(0xE1B2, u"\u0995\u09CD\u09B7\u09CD\u09AE"),             // ka virama ssa virama ma
    whole(0xE1B3, u"\u0995\u09CD\u09A4"),                         // ka virama ta
    whole(0xE1B5, u"\u0995\u09CD\u09B0"),                         // ka virama ra
    whole(0xE1B6, u"\u0995\u09CD\u09B7"),                         // ka virama ssa
    whole(0xE1B8, u"\u0997\u09C1"),                               // ga sign u
    whole(0xE1C1, u"\u099C\u09CD\u099E"),                         // ja virama nya
    whole(0xE1C5, u"\u099E\u09CD\u099D"),                         // nya virama jha
    whole(0xE1C6, u"\u099F\u09CD\u099F"),                         // tta virama tta
    whole(0xE1CE, u"\u09A4\u09CD\u09B0"),                         // ta virama ra
    hung(0xE1D0, u"\u099E", u"\u099E\u09CD\u09B0"),              // virama ra
    whole(0xE1D1, u"\u09FB"),                                     // ganda mark
    above(0xE1D6, u"\u09A2", u"\u099F"),                          // the hook of tta and i
    whole(0xE1D8, u"\u09A6\u09CD\u09AC"),                         // da virama ba
    whole(0xE1E5, u"\u09AD\u09CD\u09B0"),                         // bha virama ra
    whole(0xE1E6, u"\u09AE\u09CD\u09A8"),                         // ma virama na
    blank(0xE1EC),                                                // filler
    whole(0xE1EF, u"\u09B6\u09C1"),                               // sha sign u
    after(0xE1F6, u"\u0995", u"\u09B0\u09CD\u0995"),              // ra virama, on ka and its like
    after(0xE1F7, u"\u09A4", u"\u09B0\u09CD\u09A4"),              // ra virama, on ta and its like
    after(0xE1F8, u"\u0997", u"\u09B0\u09CD\u0997"),              // ra virama, on ga and its like
    whole(0xE1FB, u"\u09B9\u09C1"),                               // ha sign u
    whole(0xE1FC, u"\u09B9\u09C3"),                               // ha sign vocalic r
    whole(0xE1FE, u"\u09B9\u09CD\u09AE"),                         // ha virama ma
};
// clang-format on

} // namespace

namespace {

constexpr auto allRows = [] {
    std::array<GlyphFontRow, std::size(rows) + std::size(bengaliConjuncts)> all{};
    auto out = std::copy(std::begin(rows), std::end(rows), all.begin());
    for (const BengaliConjunct& conjunct : bengaliConjuncts) *out++ = whole(conjunct.code, conjunct.text);
    return all;
}();

} // namespace

std::span<const GlyphFontRow> bengaliFontRows() { return allRows; }

} // namespace corekit::detail
