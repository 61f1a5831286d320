// Bytes as text that a person can read and type, and texts with escapes.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"

// Printable bytes (32 to 126) as they are, any other as "<" hexadecimal ">". A byte from 128 up is written
// sign-extended with eight digits ("<FFFFFF80>"), which the reader below refuses.
COREKIT_API void ConvertByteArrayToUserString(CByteArray& bytes, CString& text);
// Each byte in hexadecimal, two digits (eight from 128 up, as above), and a blank.
COREKIT_API void ConvertByteArrayToHexString(CByteArray& bytes, CString& text);
// "(", each four bytes as a signed number, most significant first, separated by ",", and ")". Missing bytes
// of the last four count as 0; no bytes at all give ")".
COREKIT_API void ConvertByteArrayToDecString(CByteArray& bytes, CString& text);

// The readers append nothing to what the array held: they empty it first. 1 if anything was malformed, in
// which case the array holds what could be read; else 0. "<<" in a user string stands for "<"; a hexadecimal
// token counts only if a blank follows it; the decimal reader finds no fault in any text.
COREKIT_API int ConvertUserStringToByteArray(CString& text, CByteArray& bytes);
COREKIT_API int ConvertHexStringToByteArray(CString& text, CByteArray& bytes);
COREKIT_API int ConvertDecStringToByteArray(CString& text, CByteArray& bytes);

// Tab, LF, CR and backslash become "\t", "\n", "\r" and "\\", other controls "\x" and two digits.
COREKIT_API StringW ExpandBackslashSequences(const WCHAR* text);
// The reverse. "\x" takes up to two digits; a backslash before any other character is dropped, and one at the
// end of the text stays.
COREKIT_API StringW CompactBackslashSequences(const WCHAR* text);
