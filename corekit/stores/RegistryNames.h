// What lies below a key of the registry.
#pragma once

#include "corekit/platform/Registry.h"

#include <string>
#include <vector>

// Names of the keys, and of the values, directly below a key, as the registry holds them, in its order. A
// list is complete when it is given, so entries may be deleted while one goes through it.
COREKIT_API std::vector<std::string> RegistryKeyNames(HKEY key);
COREKIT_API std::vector<std::string> RegistryValueNames(HKEY key);
