// Who in this process has which file open, and what each lets the others do.
#pragma once

#include "corekit/platform/Types.h"

#include <compare>
#include <cstdint>

namespace corekit::detail {

// A file by device and inode, whatever its names.
struct FileId {
    std::uint64_t device;
    std::uint64_t inode;

    auto operator<=>(const FileId&) const = default;
};

// One opening: the access it has (GENERIC_...) and what it shares (FILE_SHARE_...).
struct FileUse {
    DWORD access;
    DWORD share;

    friend bool operator==(const FileUse&, const FileUse&) = default;
};

// Enters an opening; false when it and an earlier one do not allow each other.
bool claimFile(const FileId& id, const FileUse& use);
// Takes an entered opening out again.
void releaseFile(const FileId& id, const FileUse& use);
// Whether every opening of the file shares its deletion.
bool mayDeleteFile(const FileId& id);

} // namespace corekit::detail
