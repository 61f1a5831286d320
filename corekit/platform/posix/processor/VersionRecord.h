// Finding and checking the version record in an ELF file.
#pragma once

#include "corekit/platform/Types.h"

#include <optional>
#include <string>

namespace corekit::detail {

struct VersionRecord {
    DWORD fileVersion[2]; // most significant first
    DWORD productVersion[2];
    DWORD translation; // language, code page above it
    std::string texts; // name, 0, value, 0, and so on
};

// Reads at most the headers and the notes, each within bounds. Empty when the file has no sound record; the
// last error tells why.
std::optional<VersionRecord> readVersionRecord(const char* path);

} // namespace corekit::detail
