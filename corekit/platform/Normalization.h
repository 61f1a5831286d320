// Canonical forms of Unicode text (UAX #15).
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

enum NORM_FORM {
    NormalizationC = 1, // composed
    NormalizationD = 2, // taken apart
};

// Writes the form of a text; lengths are in UTF-16 units, a `length` of -1 is that up to and including the
// terminator. Returns how many units were written or, for a null `result`, how many it takes. 0 with error
// 122 if `size` is too small, with error 87 for another form or a wrong argument. Any thread.
COREKIT_API int NormalizeString(NORM_FORM form, const WCHAR* text, int length, WCHAR* result, int size);
