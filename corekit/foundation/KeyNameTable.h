// The names of the virtual keys that are neither letters nor digits.
#pragma once

#include "corekit/platform/Types.h"

#include <span>

namespace corekit::detail {

struct KeyName {
    BYTE key;
    bool forAccelerators;
    const char* name;
};
std::span<const KeyName> keyNameRows(); // by ascending key

// The names of keys in accelerators, as numbers in the string table.
struct AcceleratorKeyName {
    BYTE key;
    WORD textId;
};
std::span<const AcceleratorKeyName> acceleratorKeyNameRows();

} // namespace corekit::detail
