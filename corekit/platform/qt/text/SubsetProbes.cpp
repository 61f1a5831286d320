#include "corekit/platform/qt/text/SubsetProbes.h"

namespace corekit::detail {
namespace {

constexpr SubsetProbe probes[] = {
    {0, u"AZaz09.,"},                                                      // basic Latin
    {1, u"\u00C0\u00DF\u00E4\u00E9\u00F1\u00FF"},                          // Latin-1
    {2, u"\u0101\u010D\u0119\u0131\u0142\u0151\u017E"},                    // extended A
    {3, u"\u0192\u0219\u021B"},                                            // extended B
    {4, u"\u0259\u0283\u0292"},                                            // phonetic
    {5, u"\u02C6\u02DC"},                                                  // modifiers
    {6, u"\u0300\u0301\u0308"},                                            // combining marks
    {7, u"\u0391\u03A9\u03AC\u03B1\u03C9"},                                // Greek
    {9, u"\u0410\u042F\u0430\u044F\u0451"},                                // Cyrillic
    {10, u"\u0531\u0556\u0561\u0586"},                                     // Armenian
    {11, u"\u05D0\u05DD\u05EA"},                                           // Hebrew
    {12, u"\u05B0\u05B4\u05B8\u05BC"},                                     // Hebrew points
    {13, u"\u060C\u061F\u0621\u0627\u0628\u0644\u0649\u064A\u064B\u0652"}, // Arabic
    {14,
     u"\u0660\u0669\u0679\u067E\u0686\u0691\u06A9\u06AF\u06BA\u06C1\u06CC\u06D2\u06D4\u06F0\u06F9"}, // more
                                                                                                     // of it
    {15, u"\u0905\u0915\u0930\u0939\u093E\u094D"},             // Devanagari
    {16, u"\u0985\u0995\u09B0\u09B9\u09BE\u09CD"},             // Bengali
    {17, u"\u0A05\u0A15\u0A39\u0A3E\u0A4D"},                   // Gurmukhi
    {18, u"\u0A85\u0A95\u0AB9\u0ABE\u0ACD"},                   // Gujarati
    {19, u"\u0B05\u0B15\u0B39\u0B3E\u0B4D"},                   // Oriya
    {20, u"\u0B85\u0B95\u0BB9\u0BBE\u0BCD"},                   // Tamil
    {21, u"\u0C05\u0C15\u0C39\u0C3E\u0C4D"},                   // Telugu
    {22, u"\u0C85\u0C95\u0CB9\u0CBE\u0CCD"},                   // Kannada
    {23, u"\u0D05\u0D15\u0D39\u0D3E\u0D4D"},                   // Malayalam
    {24, u"\u0E01\u0E32\u0E48"},                               // Thai
    {25, u"\u0E81\u0EB2\u0EC8"},                               // Lao
    {26, u"\u10D0\u10F0"},                                     // Georgian
    {29, u"\u1EA0\u1EF9"},                                     // Latin additional
    {30, u"\u1F00\u1FFC"},                                     // Greek extended
    {31, u"\u2013\u2014\u2018\u2019\u201C\u201D\u2026"},       // punctuation
    {33, u"\u20AC"},                                           // currency
    {35, u"\u2122"},                                           // letterlike
    {37, u"\u2190\u2191\u2192\u2193"},                         // arrows
    {38, u"\u2212\u221E\u2260\u2264"},                         // mathematics
    {43, u"\u2500\u2502\u250C\u2518"},                         // box drawing
    {44, u"\u2588\u2591"},                                     // blocks
    {45, u"\u25A0\u25CB\u25CF"},                               // shapes
    {48, u"\u3001\u3002\u300C\u300D"},                         // punctuation of the Far East
    {49, u"\u3042\u3093"},                                     // Hiragana
    {50, u"\u30A2\u30F3\u30FC"},                               // Katakana
    {56, u"\uAC00\uD558"},                                     // Hangul
    {59, u"\u4E00\u4E2D\u56FD"},                               // Han
    {62, u"\uFB2A\uFB2B\uFB4B"},                               // Hebrew forms
    {63, u"\uFB56\uFB58\uFB7A\uFB8E\uFB92\uFBFC\uFBFE"},       // Arabic forms, with those of Persian
    {67, u"\uFE8D\uFE8E\uFE91\uFEDF\uFEE0\uFEF2\uFEFB\uFEFC"}, // Arabic forms
    {68, u"\uFF01\uFF21\uFF41"},                               // full and half width
};

} // namespace

std::span<const SubsetProbe> subsetProbes() { return probes; }

} // namespace corekit::detail
