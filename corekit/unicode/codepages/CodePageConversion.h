// Text between StringW and 8-bit code pages.
//
// A code page is a number. Those below 0x10000 are the machine's; the two below are this library's own and do
// not depend on what the machine has. A `length` below zero is that up to the terminator. The result replaces
// what was in `out`. Any thread.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/String.h"

inline constexpr int CP_ISCII89 = 0x10001;  // an 8-bit Devanagari encoding, for reading only
inline constexpr int CP_OWN_UTF8 = 0x10002; // UTF-8 of 16-bit units: each half of a surrogate pair by itself

// The library's own pages: how many, and the number and the name in each row. 0 and no name outside.
COREKIT_API int cconvGetCPCount();
COREKIT_API int cconvGetCodePage(int index);   // 0 outside
COREKIT_API CString cconvGetCPName(int index); // from the string table

// What a page cannot hold is replaced by the machine's rule, and a page that the machine lacks gives an empty
// text; CP_ISCII89 leaves `out` as it was. Both throw CNotSupportedException for 0x10000 and above 0x10002.
COREKIT_API void UnicodeToAnsi(int codePage, StringA& out, const WCHAR* text, int length);
COREKIT_API void AnsiToUnicode(int codePage, StringW& out, const char* text, int length);

// One to three bytes a unit (RFC 3629 without its rules for surrogates).
COREKIT_API void UnicodeToUTF8(const WCHAR* text, int length, StringA& out);
// FALSE at the first character that has four bytes, is cut or is none; what was read before it stays in
// `out`. Overlong forms stand for their value.
COREKIT_API BOOL UTF8toUnicode(const char* text, int length, StringW& out);
