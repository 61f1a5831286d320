// What an archive says of itself, and whether it can be true.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <optional>
#include <string>
#include <vector>

namespace corekit {

// One file of the archive as its row in the directory has it. Nothing of it is checked but that the row is
// whole.
struct ZipDirectoryEntry {
    DWORDLONG place;  // of its row, as unzSetOffset64 takes it
    DWORDLONG local;  // of its own header, in the file
    DWORDLONG packed; // bytes of its data in the file
    DWORDLONG size;   // and of what they become
    std::string name; // bytes as they stand, with "/" between folders
    DWORD dosDate;    // date in the high half, time in the low
};

// The directory of one archive, read at once and kept apart from the file. Takes memory in proportion to
// the directory in the file, whatever it claims. Both the 32-bit and the 64-bit form are read.
class COREKIT_API ZipDirectory {
public:
    // Nothing if the file is no archive, is no plain file or cannot be read. A program in front of the
    // archive is allowed for.
    static std::optional<ZipDirectory> Read(const std::string& path);

    const std::vector<ZipDirectoryEntry>& Entries() const { return m_entries; }
    // False if rows are missing or too many, or reach beyond the directory; the entries are then those
    // before it.
    bool IsWhole() const { return m_isWhole; }
    // Whether two entries share bytes, or one lies in the directory: no packer does that.
    bool HasOverlap() const;
    // What all entries claim together, in bytes, at most the largest number.
    DWORDLONG UnpackedSize() const;

private:
    std::vector<ZipDirectoryEntry> m_entries;
    DWORDLONG m_begin = 0; // of the directory in the file
    bool m_isWhole = false;
};

namespace detail {

// Opens the archive for the functions of minizip, which see it end without a comment: they would search that
// for records of theirs. Null if they find no archive.
void* openZip(const std::string& path);

// Whether the entry's own header has the name and the date that the directory has.
bool isConfirmed(const std::string& path, const ZipDirectoryEntry& entry);

} // namespace detail
} // namespace corekit
