// Text split into items and lines.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"

// Empties the array and fills it with what stands between the delimiters, empty items included. A
// CStringArray always gets what follows the last delimiter, so an empty text gives one empty item; a CArray
// gets it only if it is not empty. Wide text in a CStringArray keeps the low byte of each unit. The text is
// not null and may be an item of the array.
COREKIT_API void ConvertDelimitedStringToArray(const char* text, CStringArray& items, char delimiter);
COREKIT_API void ConvertDelimitedStringToArray(const WCHAR* text, CStringArray& items, WCHAR delimiter);
COREKIT_API void ConvertDelimitedStringToArray(const char* text, CArray<StringA, const char*>& items,
                                               char delimiter);
COREKIT_API void ConvertDelimitedStringToArray(const WCHAR* text, CArray<StringW, const WCHAR*>& items,
                                               WCHAR delimiter);
// With a stand-in, by which an item may contain the delimiter: where `stand` is in the text, the item gets
// the delimiter itself. The items are split before that.
COREKIT_API void ConvertDelimitedStringToArray(const WCHAR* text, CArray<StringW, const WCHAR*>& items,
                                               WCHAR delimiter, WCHAR stand);

// Empties the array and fills it with the lines of the text, which CR, LF or CR LF end and which come
// without them. An empty last line is not added, and no empty line at all with `skipEmpty` not 0. The text
// ends at its first zero and is not null.
COREKIT_API void ConvertBufferIntoLines(const char* text, CStringArray& lines, int skipEmpty);
COREKIT_API void ConvertBufferIntoLines(const char* text, CArray<StringA, const char*>& lines, int skipEmpty);
