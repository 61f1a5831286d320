// Variants and the counted wide strings they hold, as far as text passes through them.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Wide text behind a hidden length, zero-terminated. Null counts as the empty text. Made by
// SysAllocString..., owned by whoever holds it, freed with SysFreeString.
using BSTR = WCHAR*;

using VARTYPE = WORD;
inline constexpr VARTYPE VT_EMPTY = 0; // nothing
inline constexpr VARTYPE VT_NULL = 1;  // nothing, said so
inline constexpr VARTYPE VT_I2 = 2;    // iVal
inline constexpr VARTYPE VT_I4 = 3;    // lVal
inline constexpr VARTYPE VT_R8 = 5;    // dblVal
inline constexpr VARTYPE VT_BSTR = 8;  // bstrVal, owned
inline constexpr VARTYPE VT_BOOL = 11; // boolVal: 0 or -1

// A tagged value; vt names the member that counts. Of these kinds only the text owns anything.
struct VARIANT {
    VARTYPE vt;
    WORD wReserved1; // not used, as the next two
    WORD wReserved2;
    WORD wReserved3;
    union {
        SHORT iVal;
        LONG lVal;
        double dblVal;
        BSTR bstrVal;
        SHORT boolVal;
    };
};

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008); // a type that is not listed

// A copy of text up to its terminator; null for null text or when memory is short.
COREKIT_API BSTR SysAllocString(const WCHAR* text);
// length units from text, zeros included; of unset content when text is null.
COREKIT_API BSTR SysAllocStringLen(const WCHAR* text, UINT length);
COREKIT_API void SysFreeString(BSTR text); // null is disregarded

// Makes an empty variant out of unset memory.
COREKIT_API void VariantInit(VARIANT* variant);
// Frees what the variant owns and leaves it empty; a type not listed above is refused and kept.
COREKIT_API HRESULT VariantClear(VARIANT* variant);
