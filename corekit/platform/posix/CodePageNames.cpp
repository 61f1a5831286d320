#include "corekit/platform/posix/CodePageNames.h"

#include <algorithm>

namespace corekit::detail {
namespace {

using enum ConverterKind;

constexpr CodePageName kNames[] = {
    {708, icu, "ISO-8859-6"},
    {874, icu, "windows-874-2000"},
    {932, iconv, "CP932"},
    {936, icu, "windows-936-2000"},
    {949, icu, "windows-949-2000"},
    {950, icu, "windows-950-2000"},
    {1361, iconv, "JOHAB"},
    {10000, icu, "macintosh"},
    {10006, icu, "x-mac-greek"},
    {10007, icu, "x-mac-cyrillic"},
    {10029, icu, "x-mac-centraleurroman"},
    {10081, icu, "x-mac-turkish"},
    {20127, icu, "US-ASCII"},
    {20866, icu, "KOI8-R"},
    {20932, icu, "EUC-JP"},
    {21866, icu, "KOI8-U"},
    {28591, icu, "ISO-8859-1"},
    {28592, icu, "ISO-8859-2"},
    {28593, icu, "ISO-8859-3"},
    {28594, icu, "ISO-8859-4"},
    {28595, icu, "ISO-8859-5"},
    {28596, icu, "ISO-8859-6"},
    {28597, icu, "ISO-8859-7"},
    {28598, icu, "ISO-8859-8"},
    {28599, icu, "ISO-8859-9"},
    {28603, icu, "ISO-8859-13"},
    {28605, icu, "ISO-8859-15"},
    {50220, icu, "ISO-2022-JP"},
    {50225, icu, "ISO-2022-KR"},
    {51932, icu, "EUC-JP"},
    {51949, icu, "EUC-KR"},
    {52936, icu, "HZ"},
    {54936, icu, "gb18030"},
    {65000, icu, "UTF-7"},
};
static_assert(std::ranges::is_sorted(kNames, {}, &CodePageName::number));

} // namespace

std::span<const CodePageName> codePageNames() { return kNames; }

} // namespace corekit::detail
