// One binary resource of a module: a picture, a sound, a table.
//
// The data is the module's own, linked into it, and read in place: it is good as long as the module stays
// loaded. What the kinds that this library reads look like is in platform/Resources.h.
//
//     static constexpr BinaryResource resources[] = {{"#2", "#101", logoBytes}}; // bitmap number 101
//     AfxSetResources(resources);
#pragma once

#include "corekit/platform/Types.h"

#include <cstddef>
#include <span>

// A row of a module's table; type and name together are its key.
struct BinaryResource {
    const char* type;                // letter case does not matter, here and below
    const char* name;                // a number is written as "#101"
    std::span<const std::byte> data; // may be empty
};
