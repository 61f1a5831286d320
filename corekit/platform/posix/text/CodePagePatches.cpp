// Where the pages of another desktop system, the international alphabet and the one-byte parts of two
// mainframe pages part from the converter that they are made with. The former after the mapping files for
// vendors' pages that the Unicode Consortium publishes; what those map to private units or to more than one
// is left out, but for the logo and for two Hebrew letters with a point.
#include "corekit/platform/posix/text/CodePageNames.h"

#include <algorithm>

namespace corekit::detail {
namespace {

constexpr CodePagePatch patches[] = {
    {10001, 0x5C, u"\u00A5"},
    {10001, 0x80, u"\\"},
    {10001, 0xA0, u"\u00A0"},
    {10001, 0xFD, u"\u00A9\u2122\u2026"},
    {10002, 0xA0, u"\u00A0"},
    {10002, 0xFD, u"\u00A9\u2122\u2026"},
    {10003, 0x80, u"\u00A0\u20A9"},
    {10003, 0x83, u"\u00A9"},
    {10003, 0xFF, u"\u2026"},
    {10004, 0x80,
     u"\u00C4\u00A0\u00C7\u00C9\u00D1\u00D6\u00DC\u00E1\u00E0\u00E2\u00E4\u06BA\u00AB\u00E7\u00E9\u00E8"
     u"\u00EA\u00EB\u00ED\u2026\u00EE\u00EF\u00F1\u00F3\u00BB\u00F4\u00F6\u00F7\u00FA\u00F9\u00FB\u00FC"
     u" !\"#$\u066A&'()*+\u060C-./"
     u"\u0660\u0661\u0662\u0663\u0664\u0665\u0666\u0667\u0668\u0669:\u061B<=>\u061F"
     u"\u274A\u0621\u0622\u0623\u0624\u0625\u0626\u0627\u0628\u0629\u062A\u062B\u062C\u062D\u062E\u062F"
     u"\u0630\u0631\u0632\u0633\u0634\u0635\u0636\u0637\u0638\u0639\u063A[\\]^_"
     u"\u0640\u0641\u0642\u0643\u0644\u0645\u0646\u0647\u0648\u0649\u064A\u064B\u064C\u064D\u064E\u064F"
     u"\u0650\u0651\u0652\u067E\u0679\u0686\u06D5\u06A4\u06AF\u0688\u0691{|}\u0698\u06D2"},
    {10005, 0x80,
     u"\u00C4\uFB1F\u00C7\u00C9\u00D1\u00D6\u00DC\u00E1\u00E0\u00E2\u00E4\u00E3\u00E5\u00E7\u00E9\u00E8"
     u"\u00EA\u00EB\u00ED\u00EC\u00EE\u00EF\u00F1\u00F3\u00F2\u00F4\u00F6\u00F5\u00FA\u00F9\u00FB\u00FC"
     u" !\"#$%\u20AA')(*+,-./"
     u"0123456789:;<=>?"},
    {10005, 0xC1, u"\u201E"},
    {10005, 0xC6,
     u"\u05BC\uFB4B\uFB35\u2026\u00A0\u05B8\u05B7\u05B5\u05B6\u05B4\u2013\u2014\u201C\u201D\u2018\u2019"
     u"\uFB2A\uFB2B\u05BF\u05B0\u05B2\u05B1\u05BB\u05B9\u05B8\u05B3\u05D0\u05D1\u05D2\u05D3\u05D4\u05D5"
     u"\u05D6\u05D7\u05D8\u05D9\u05DA\u05DB\u05DC\u05DD\u05DE\u05DF\u05E0\u05E1\u05E2\u05E3\u05E4\u05E5"
     u"\u05E6\u05E7\u05E8\u05E9\u05EA}]{[|"},
    {10008, 0x80, u"\u00FC"},
    {10008, 0xA0, u"\u00A0"},
    {10008, 0xFD, u"\u00A9\u2122\u2026"},
    {10010, 0xAE, u"\u0102\u0218"},
    {10010, 0xBE, u"\u0103\u0219"},
    {10010, 0xDE, u"\u021A\u021B"},
    {10079, 0xA0, u"\u00DD"},
    {10079, 0xDC, u"\u00D0\u00F0\u00DE\u00FE\u00FD"},
    {10082, 0xA9, u"\u0160"},
    {10082, 0xAE, u"\u017D"},
    {10082, 0xB4, u"\u2206"},
    {10082, 0xB9, u"\u0161"},
    {10082, 0xBE, u"\u017E"},
    {10082, 0xC6, u"\u0106"},
    {10082, 0xC8, u"\u010C"},
    {10082, 0xD0, u"\u0110"},
    {10082, 0xD8, u"\uF8FF\u00A9"},
    {10082, 0xDE, u"\u00C6\u00BB\u2013"},
    {10082, 0xE6, u"\u0107"},
    {10082, 0xE8, u"\u010D"},
    {10082, 0xF0, u"\u0111"},
    {10082, 0xF9, u"\u03C0\u00CB"},
    {10082, 0xFD, u"\u00CA\u00E6"},
    {20105, 0x24, u"\u00A4"},
    {20105, 0x7E, u"\u203E"},
    {20833, 0x0E, u"\x0E\x0F"},
    {21027, 0x0E, u"\x0E\x0F"},
};
static_assert(std::ranges::is_sorted(patches, {}, &CodePagePatch::page));

} // namespace

std::span<const CodePagePatch> codePagePatches(UINT page)
{
    return {std::ranges::lower_bound(patches, page, {}, &CodePagePatch::page),
            std::ranges::upper_bound(patches, page, {}, &CodePagePatch::page)};
}

} // namespace corekit::detail
