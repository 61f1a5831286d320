// One binary resource of a module: a picture, a sound, a table.
#pragma once

#include "corekit/platform/Types.h"

#include <cstddef>
#include <span>

struct BinaryResource {
    const char* type; // letter case does not matter, here and below
    const char* name; // a number is written as "#101"
    std::span<const std::byte> data;
};
