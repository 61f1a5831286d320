// Key tables: how a user's keys change a default table, and how they are stored.
//
// What is stored are differences: each custom table lists the user's keys for commands of a default table. In
// a property store they stand as "Custom Key Table Count" and, numbered from 0, "Custom Key Table %d ID",
// "... Data Size" in bytes and "... Data", 6 bytes a key: flags, nothing, key, command, little-endian.
#pragma once

#include "corekit/commands/CustomAcceleratorTable.h"
#include "corekit/platform/Export.h"

#include <span>
#include <vector>

class CPropertyStore;

namespace corekit::detail {

// The keys in force. The first custom key of a command, counted from the last one, takes the place of its
// default key and further ones are added; a custom key for a command that the default table lacks is left
// out. Fixed keys stand last, whatever the others are.
COREKIT_API std::vector<ACCEL> mergedKeys(std::span<const ACCEL> defaults, std::span<const ACCEL> custom,
                                          std::span<const ACCEL> fixed);

using CustomAcceleratorTables = CArray<CCustomAcceleratorTable, CCustomAcceleratorTable&>;

// Appends the tables that the store holds. A table whose data is missing has no keys; a part of a key at the
// end is left out, and so are tables whose number the store does not have.
COREKIT_API void loadCustomKeys(CPropertyStore& store, CustomAcceleratorTables& tables);
// Writes all tables. What stood there of tables beyond their number stays, and is not read again.
COREKIT_API void saveCustomKeys(CPropertyStore& store, const CustomAcceleratorTables& tables);

} // namespace corekit::detail
