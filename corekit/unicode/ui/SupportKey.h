// Where the registry keeps what the Unicode manager is set to.
#pragma once

#include "corekit/framework/Exception.h"
#include "corekit/stores/RegistryKey.h"

namespace corekit::detail {

inline constexpr const char* supportKey = "Software\\Corvane\\Unicode Support";
inline constexpr const char* enabledKeyboardsKey = "Software\\Corvane\\Unicode Support\\Enabled Keyboards";

// Makes the key where it is missing. Where that cannot be, the settings are read as far as they are there, or
// have their defaults.
inline void openForReading(CRegistryKey& key, const char* path)
{
    try {
        key.Create(HKEY_LOCAL_MACHINE, path);
    } catch (CException* e) {
        e->Delete();
        key.Open(HKEY_LOCAL_MACHINE, path, KEY_READ);
    }
}

} // namespace corekit::detail
