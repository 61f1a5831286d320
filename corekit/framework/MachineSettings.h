// Settings of the machine, for code that stands below the store that keeps them.
//
// The store registers a reader whenever it comes up, before or after those who ask; so the order in which
// objects are built at load does not matter. Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Reads a number by key path ("Software\\...") and value name. False, with `value` untouched, if it is not
// there or may not be read.
using MachineSettingReader = bool (*)(const char* key, const char* name, DWORD& value);

// Null takes the reader away. A new one answers every standing question anew.
COREKIT_API void SetMachineSettingReader(MachineSettingReader reader);
// False without a reader.
COREKIT_API bool ReadMachineSetting(const char* key, const char* name, DWORD& value);

namespace corekit::detail {
// A question that stands for the life of the process: asked now, and again of each later reader.
struct MachineQuestion {
    void (*ask)();
    MachineQuestion* next = nullptr;
};
void AskMachine(MachineQuestion& question);
} // namespace corekit::detail
