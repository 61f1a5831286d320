// Binary resources of modules, as the calls that load pictures find them.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstddef>
#include <functional>
#include <span>

// A number in the place of a name. It must not be read as text.
inline const char* MAKEINTRESOURCEA(WORD number)
{
    return reinterpret_cast<const char*>(static_cast<UINT_PTR>(number));
}

inline constexpr WORD RT_CURSOR = 1;      // a picture in XPM form
inline constexpr WORD RT_BITMAP = 2;      // what CreateBitmapFromDib reads
inline constexpr WORD RT_ICON = 3;        // a PNG file, or a picture in XPM form
inline constexpr WORD RT_DIALOG = 5;      // what DialogBytes reads
inline constexpr WORD RT_ACCELERATOR = 9; // what AcceleratorResource makes

// Last error of calls that load a resource which no module has.
inline constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;

// Hands the bytes of a resource to `use` while its module is held in place; whether there was one. A name or
// a type below 0x10000 is a number.
using ResourceReader = bool (*)(const char* name, const char* type,
                                const std::function<void(std::span<const std::byte>)>& use);

// Whoever keeps the list of modules installs its reader when it is loaded. Without one nothing is found. Any
// thread; null takes the reader away.
COREKIT_API void SetResourceReader(ResourceReader reader);
COREKIT_API bool UseResource(const char* name, WORD type,
                             const std::function<void(std::span<const std::byte>)>& use);
