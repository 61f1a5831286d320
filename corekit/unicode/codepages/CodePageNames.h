// What code pages are called, and which of them a font is made for.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Types.h"

// A name that a person knows, from the string table. The numbers of this library's own pages have none, as
// any number that the table lacks: message::codePageUnrecognised with the number in it.
COREKIT_API CString GetCodePageName(UINT codePage);

// The code page of a font's character set (the numbers of LOGFONT); for others the active one.
COREKIT_API UINT ConvertCharSetToCodePage(UINT charSet);
