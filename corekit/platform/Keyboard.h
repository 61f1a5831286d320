// Keys by number and by name, on the United States layout.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// What ACCEL::fVirt says.
inline constexpr BYTE FVIRTKEY = 1; // the key is a virtual key, else a character
inline constexpr BYTE FSHIFT = 4;   // what must be held
inline constexpr BYTE FCONTROL = 8;
inline constexpr BYTE FALT = 16;

inline constexpr UINT MAPVK_VK_TO_VSC = 0;

// The scan code of a virtual key, 0 if there is none or for another type.
COREKIT_API UINT MapVirtualKeyA(UINT code, UINT type);

// The name of the key whose scan code is in bits 16 to 23, of the extended one where bit 24 is set and there
// is one. At most size - 1 characters and a terminator; how many, 0 for a key without a name.
COREKIT_API int GetKeyNameTextA(LONG param, char* buffer, int size);
