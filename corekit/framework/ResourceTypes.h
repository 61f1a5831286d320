// How binary resources are named by number, and the kinds that this library reads.
#pragma once

#include "corekit/platform/Types.h"

inline const char* MAKEINTRESOURCEA(WORD number)
{
    return reinterpret_cast<const char*>(static_cast<UINT_PTR>(number));
}

inline constexpr WORD RT_BITMAP = 2;      // what CreateBitmapFromDib reads
inline constexpr WORD RT_ACCELERATOR = 9; // what AcceleratorResource makes
