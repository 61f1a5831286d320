// What lies below a key of the registry.
#pragma once

#include "corekit/platform/Registry.h"

#include <string>
#include <vector>

// Names as the registry holds them, in its order.
COREKIT_API std::vector<std::string> RegistryKeyNames(HKEY key);
COREKIT_API std::vector<std::string> RegistryValueNames(HKEY key);
