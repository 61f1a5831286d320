// Common names of code pages: those that the Internet's registry of character sets prefers, and what people
// type. Names that are cp, ibm or windows- and the number, and iso-8859- and the part, need no row.
#pragma once

#include "corekit/unicode/codepages/CodePageConversion.h"

#include <string_view>

struct CodePageAlias {
    int page;
    std::string_view name;
};

// The first of a page is the one that is shown.
inline constexpr CodePageAlias codePageAliases[] = {
    {708, "asmo-708"},      {709, "asmo-449"},       {874, "windows-874"},  {874, "tis-620"},
    {932, "windows-31j"},   {932, "shift_jis"},      {932, "sjis"},         {936, "gbk"},
    {936, "gb2312"},        {949, "ks_c_5601-1987"}, {949, "uhc"},          {950, "big5"},
    {1200, "utf-16le"},     {1200, "utf-16"},        {1361, "johab"},       {10000, "macintosh"},
    {20127, "us-ascii"},    {20127, "ascii"},        {20261, "t.61"},       {20269, "iso_6937"},
    {20866, "koi8-r"},      {20932, "euc-jp"},       {21866, "koi8-u"},     {28591, "latin1"},
    {50220, "iso-2022-jp"}, {51949, "euc-kr"},       {52936, "hz-gb-2312"}, {54936, "gb18030"},
    {65000, "utf-7"},       {65001, "utf-8"},        {65001, "utf8"},       {CP_ISCII89, "iscii-89"},
    {CP_ISCII89, "iscii"},  {CP_OWN_UTF8, "cesu-8"},
};
