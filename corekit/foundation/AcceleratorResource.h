// Accelerator keys among the resources of modules.
//
// A module brings a table along like this:
//
//     static constexpr ACCEL keys[] = {{FVIRTKEY | FCONTROL, 'S', 101}, {FVIRTKEY, 0x70, 102}};
//     static constexpr auto table = AcceleratorResource(keys);
//     static constexpr BinaryResource resources[] = {{"#9", "#7", table}};
#pragma once

#include "corekit/platform/Accelerators.h"
#include "corekit/platform/Export.h"

#include <array>
#include <cstddef>

inline constexpr std::size_t acceleratorResourceRow = 8; // flags, key, command and nothing, 16 bits each
// Marks the last row among a row's flags; never seen in a loaded table.
inline constexpr BYTE lastAcceleratorFlag = 0x80;

// The stored form of the resource: little-endian rows, the last one flagged. Eight bytes for each row;
// meant for a constant, so that the table costs nothing at start.
template <std::size_t count>
constexpr std::array<std::byte, count * acceleratorResourceRow>
AcceleratorResource(const ACCEL (&rows)[count])
{
    std::array<std::byte, count * acceleratorResourceRow> bytes{};
    for (std::size_t i = 0; i < count; ++i) {
        const WORD words[] = {static_cast<WORD>(rows[i].fVirt | (i + 1 == count ? lastAcceleratorFlag : 0)),
                              rows[i].key, rows[i].cmd};
        for (std::size_t word = 0; word < std::size(words); ++word) {
            bytes[i * acceleratorResourceRow + word * 2] = static_cast<std::byte>(LOBYTE(words[word]));
            bytes[i * acceleratorResourceRow + word * 2 + 1] = static_cast<std::byte>(HIBYTE(words[word]));
        }
    }
    return bytes;
}

// A table from the resource of that number or name, from the program or else the newest library that has it;
// for the caller to destroy. The table ends with the flagged row or the last whole one. Null if no module has
// such a resource, or one without a row.
COREKIT_API HACCEL AfxLoadAccelerators(UINT id);
COREKIT_API HACCEL AfxLoadAccelerators(const char* name); // or MAKEINTRESOURCEA of a number
