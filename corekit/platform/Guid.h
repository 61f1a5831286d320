// Class identifiers as text: {xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}, 38 characters.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr HRESULT CO_E_CLASSSTRING = static_cast<HRESULT>(0x800401F3);

// Reads that form, digits in either case. Null or empty text is the null identifier. Any other text gives
// CO_E_CLASSSTRING and the null identifier. Returns 0 on success.
COREKIT_API HRESULT CLSIDFromString(const WCHAR* text, GUID* guid);
// Writes that form with upper-case digits. Returns the characters written with the terminator, 39, or 0 if
// `size` is too small.
COREKIT_API int StringFromGUID2(const GUID& guid, WCHAR* text, int size);
