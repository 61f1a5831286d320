// The glyph codes U+E000 to U+E0FF. Letters with a stem at their right end are taken without it, as the same
// code serves before another consonant; marks are taken from where they stand over a letter with a stem.
#include "corekit/unicode/storage/DevanagariPieces.h"
#include "corekit/unicode/ui/fonts/GlyphFontRows.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace corekit::detail {

namespace {

// Before va most half forms have their usual width; those that make one piece with it, before ka.
constexpr std::u16string_view followers = u"\u0935\u0915";

// clang-format off
constexpr GlyphFontRow rows[] = {
    whole(0xE024, u"\u0950"),                                     // om
    whole(0xE025, u"\u093D"),                                     // avagraha
    whole(0xE02A, u"\u0964"),                                     // danda
    whole(0xE02B, u"\u0905"),                                     // a
    whole(0xE030, u"\u0966"),                                     // zero
    whole(0xE031, u"\u0967"),                                     // one
    whole(0xE032, u"\u0968"),                                     // two
    whole(0xE033, u"\u0969"),                                     // three
    whole(0xE034, u"\u096A"),                                     // four
    whole(0xE035, u"\u096B"),                                     // five
    whole(0xE036, u"\u096C"),                                     // six
    whole(0xE037, u"\u096D"),                                     // seven
    whole(0xE038, u"\u096E"),                                     // eight
    whole(0xE039, u"\u096F"),                                     // nine
    after(0xE03A, u"\u092A", u"\u092A\u0903"),                    // visarga
    whole(0xE03C, u"\u0907"),                                     // i
    whole(0xE03D, u"\u0909"),                                     // u
    whole(0xE03E, u"\u090A", 0xE0F0),                             // uu
    whole(0xE040, u"\u090B", 0xE0F1),                             // vocalic r
    whole(0xE042, u"\u090F"),                                     // e
    half(0xE043, u"\u0915\u094D", followers),                     // ka virama, half
    half(0xE044, u"\u0915\u093C\u094D", followers),               // ka nukta virama, half
    whole(0xE045, u"\u0915", 0xE0F2),                             // ka
    whole(0xE046, u"\u0915\u093C", 0xE0F2),                       // ka nukta
    whole(0xE047, u"\u0915\u094D\u0930", 0xE0F2),                 // ka virama ra
    stemless(0xE049, u"\u0915\u094D\u0937"),                      // ka virama ssa
    stemless(0xE04A, u"\u0916"),                                  // kha
    stemless(0xE04B, u"\u0916\u093C"),                            // kha nukta
    stemless(0xE04C, u"\u0916\u094D\u0930"),                      // kha virama ra
    stemless(0xE04D, u"\u0917"),                                  // ga
    stemless(0xE04E, u"\u0917\u093C"),                            // ga nukta
    stemless(0xE04F, u"\u0917\u094D\u0930"),                      // ga virama ra
    stemless(0xE050, u"\u0918"),                                  // gha
    stemless(0xE051, u"\u0918\u094D\u0930"),                      // gha virama ra
    whole(0xE052, u"\u0919", 0xE0F3),                             // nga
    stemless(0xE053, u"\u091A"),                                  // ca
    stemless(0xE054, u"\u091A\u094D\u0930"),                      // ca virama ra
    whole(0xE055, u"\u091B", 0xE0F4),                             // cha
    stemless(0xE056, u"\u091C"),                                  // ja
    stemless(0xE057, u"\u091C\u093C"),                            // ja nukta
    stemless(0xE058, u"\u091C\u094D\u0930"),                      // ja virama ra
    stemless(0xE059, u"\u091C\u094D\u091E"),                      // ja virama nya
    stemless(0xE05A, u"\u091D"),                                  // jha
    stemless(0xE05B, u"\u091D\u094D\u0930"),                      // jha virama ra
    stemless(0xE05C, u"\u091E"),                                  // nya
    whole(0xE05D, u"\u091F", 0xE0F5),                             // tta
    whole(0xE060, u"\u0920", 0xE0F6),                             // ttha
    whole(0xE062, u"\u0921", 0xE0F7),                             // dda
    whole(0xE063, u"\u0921\u093C", 0xE0F7),                       // dda nukta
    whole(0xE066, u"\u0922", 0xE0F8),                             // ddha
    whole(0xE067, u"\u0922\u093C", 0xE0F8),                       // ddha nukta
    stemless(0xE068, u"\u0923"),                                  // nna
    stemless(0xE069, u"\u0924"),                                  // ta
    stemless(0xE06A, u"\u0924\u094D\u0930"),                      // ta virama ra
    stemless(0xE06C, u"\u0925"),                                  // tha
    stemless(0xE06D, u"\u0925\u094D\u0930"),                      // tha virama ra
    whole(0xE06E, u"\u0926", 0xE0F9),                             // da
    stemless(0xE076, u"\u0927"),                                  // dha
    stemless(0xE077, u"\u0927\u094D\u0930"),                      // dha virama ra
    stemless(0xE078, u"\u0928"),                                  // na
    stemless(0xE079, u"\u0928\u094D\u0930"),                      // na virama ra
    stemless(0xE07B, u"\u092A"),                                  // pa
    stemless(0xE07C, u"\u092A\u094D\u0930"),                      // pa virama ra
    half(0xE07D, u"\u092B\u094D", followers),                     // pha virama, half
    half(0xE07E, u"\u092B\u093C\u094D", followers),               // pha nukta virama, half
    whole(0xE0A1, u"\u092B", 0xE0F2),                             // pha
    whole(0xE0A2, u"\u092B\u093C", 0xE0F2),                       // pha nukta
    whole(0xE0A3, u"\u092B\u094D\u0930", 0xE0F2),                 // pha virama ra
    stemless(0xE0A4, u"\u092C"),                                  // ba
    stemless(0xE0A5, u"\u092C\u094D\u0930"),                      // ba virama ra
    stemless(0xE0A6, u"\u092D"),                                  // bha
    stemless(0xE0A7, u"\u092D\u094D\u0930"),                      // bha virama ra
    stemless(0xE0A8, u"\u092E"),                                  // ma
    stemless(0xE0A9, u"\u092E\u094D\u0930"),                      // ma virama ra
    stemless(0xE0AA, u"\u092F"),                                  // ya
    stemless(0xE0AB, u"\u092F\u094D\u0930"),                      // ya virama ra
    whole(0xE0AE, u"\u0930", 0xE0FA),                             // ra
    whole(0xE0AF, u"\u0930\u0941", 0xE0FA),                       // ra sign u
    whole(0xE0B0, u"\u0930\u0942", 0xE0FC),                       // ra sign uu
    stemless(0xE0B1, u"\u0932"),                                  // la
    whole(0xE0B2, u"\u0933", 0xE0FD),                             // lla
    whole(0xE0B3, u"\u0933", 0xE0FD),                             // lla
    stemless(0xE0B4, u"\u0935"),                                  // va
    stemless(0xE0B5, u"\u0935\u094D\u0930"),                      // va virama ra
    stemless(0xE0B6, u"\u0936"),                                  // sha
    stemless(0xE0B8, u"\u0936\u094D\u0930"),                      // sha virama ra
    stemless(0xE0B9, u"\u0937"),                                  // ssa
    stemless(0xE0BA, u"\u0938"),                                  // sa
    stemless(0xE0BB, u"\u0938\u094D\u0930"),                      // sa virama ra
    whole(0xE0BD, u"\u0939", 0xE0FE),                             // ha
    whole(0xE0BF, u"\u0939\u094D\u0930", 0xE0FE),                 // ha virama ra
    after(0xE0C2, u"\u092A", u"\u092A\u094D"),                    // virama
    after(0xE0C3, u"\u092A", u"\u092A\u093C"),                    // nukta
    after(0xE0C4, u"\u092A", u"\u092A\u0901"),                    // candrabindu
    hung(0xE0C5, u"\u091F", u"\u091F\u094D\u0930"),              // virama ra
    after(0xE0C6, u"\u092A", u"\u092A\u0902"),                    // anusvara
    after(0xE0C7, u"\u092A", u"\u0930\u094D\u092A"),              // ra virama
    after(0xE0C8, u"\u092A", u"\u0930\u094D\u092A\u0902"),        // ra virama anusvara
    after(0xE0C9, u"\u092A", u"\u092A\u093E"),                    // sign aa
    before(0xE0CA, u"\u092A", u"\u092A\u093F"),                   // sign i
    before(0xE0CB, u"\u092A", u"\u092A\u093F\u0902"),             // sign i anusvara
    before(0xE0CC, u"\u092A", u"\u0930\u094D\u092A\u093F"),       // ra virama sign i
    before(0xE0CD, u"\u092A", u"\u0930\u094D\u092A\u093F\u0902"), // ra virama sign i anusvara
    after(0xE0D2, u"\u092A", u"\u092A\u0940"),                    // sign ii
    after(0xE0D3, u"\u092A", u"\u092A\u0940\u0902"),              // sign ii anusvara
    after(0xE0D4, u"\u092A", u"\u0930\u094D\u092A\u0940"),        // ra virama sign ii
    after(0xE0D5, u"\u092A", u"\u0930\u094D\u092A\u0940\u0902"),  // ra virama sign ii anusvara
    after(0xE0D6, u"\u092A", u"\u092A\u0941"),                    // sign u
    after(0xE0D7, u"\u092A", u"\u092A\u093C\u0941"),              // nukta sign u
    hung(0xE0D8, u"\u091F", u"\u091F\u094D\u0930\u0941"),        // virama ra sign u
    whole(0xE0D9, u"\u0965"),                                     // double danda
    after(0xE0DA, u"\u092A", u"\u092A\u0942"),                    // sign uu
    after(0xE0DB, u"\u092A", u"\u092A\u093C\u0942"),              // nukta sign uu
    hung(0xE0DC, u"\u091F", u"\u091F\u094D\u0930\u0942"),        // virama ra sign uu
    after(0xE0DE, u"\u092A", u"\u092A\u0943"),                    // sign vocalic r
    after(0xE0DF, u"\u092A", u"\u092A\u0944"),                    // sign vocalic rr
    after(0xE0E0, u"\u092A", u"\u092A\u0946"),                    // sign short e
    after(0xE0E1, u"\u092A", u"\u092A\u0946\u0902"),              // sign short e anusvara
    after(0xE0E2, u"\u092A", u"\u0930\u094D\u092A\u0946"),        // ra virama sign short e
    after(0xE0E3, u"\u092A", u"\u0930\u094D\u092A\u0946\u0902"),  // ra virama sign short e anusvara
    after(0xE0E4, u"\u092A", u"\u092A\u0947"),                    // sign e
    after(0xE0E5, u"\u092A", u"\u092A\u0947\u0902"),              // sign e anusvara
    after(0xE0E6, u"\u092A", u"\u0930\u094D\u092A\u0947"),        // ra virama sign e
    after(0xE0E7, u"\u092A", u"\u0930\u094D\u092A\u0947\u0902"),  // ra virama sign e anusvara
    after(0xE0E8, u"\u092A", u"\u092A\u0948"),                    // sign ai
    after(0xE0E9, u"\u092A", u"\u092A\u0948\u0902"),              // sign ai anusvara
    after(0xE0EA, u"\u092A", u"\u0930\u094D\u092A\u0948"),        // ra virama sign ai
    after(0xE0EB, u"\u092A", u"\u0930\u094D\u092A\u0948\u0902"),  // ra virama sign ai anusvara
    after(0xE0EC, u"\u092A", u"\u092A\u0945"),                    // sign candra e
    after(0xE0ED, u"\u092A", u"\u092A\u0945\u0902"),              // sign candra e anusvara
    after(0xE0EE, u"\u092A", u"\u0930\u094D\u092A\u0945"),        // ra virama sign candra e
    after(0xE0EF, u"\u092A", u"\u0930\u094D\u092A\u0945\u0902"),  // ra virama sign candra e anusvara
    tail(0xE0F0, u"\u090A"),                                      // uu
    tail(0xE0F1, u"\u090B"),                                      // vocalic r
    tail(0xE0F2, u"\u0915"),                                      // ka
    tail(0xE0F3, u"\u0919"),                                      // nga
    tail(0xE0F4, u"\u091B"),                                      // cha
    tail(0xE0F5, u"\u091F"),                                      // tta
    tail(0xE0F6, u"\u0920"),                                      // ttha
    tail(0xE0F7, u"\u0921"),                                      // dda
    tail(0xE0F8, u"\u0922"),                                      // ddha
    tail(0xE0F9, u"\u0926"),                                      // da
    tail(0xE0FA, u"\u0930"),                                      // ra
    tail(0xE0FC, u"\u0930\u0942"),                                // ra sign uu
    tail(0xE0FD, u"\u0933"),                                      // lla
    tail(0xE0FE, u"\u0939"),                                      // ha
};
// clang-format on

} // namespace

namespace {

// With the pieces that stored text adds.
constexpr auto allRows = [] {
    std::array<GlyphFontRow, std::size(rows) + std::size(devanagariHalves) + std::size(devanagariWholes)>
        all{};
    auto out = std::copy(std::begin(rows), std::end(rows), all.begin());
    for (const DevanagariHalf& row : devanagariHalves) *out++ = half(row.code, row.text, followers);
    for (const DevanagariWhole& row : devanagariWholes) *out++ = whole(row.code, row.text, row.tail);
    return all;
}();

} // namespace

std::span<const GlyphFontRow> devanagariFontRows() { return allRows; }

} // namespace corekit::detail
