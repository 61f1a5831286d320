// Where an entry of an archive goes, and that it stays there.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <string>

namespace corekit {

// Whether a name from outside, of an archive's entry or a server's file, may be appended to a folder: it is
// relative, has no drive, no part ".." and no zero byte, its last part is not ".", and it is no longer and no
// deeper than the system takes in reasonable time.
COREKIT_API bool IsInsideName(const std::string& name);

// What stands behind the last separator, which `/` and `\` both are.
COREKIT_API std::string LastPart(const std::string& name);

namespace detail {

// The folder and the name below it; the name alone for an empty folder.
std::string pathBelow(const std::string& folder, const std::string& name);

// Whether any part of `name` below the folder is a link on the disk.
bool leadsThroughLink(const std::string& folder, const std::string& name);

// Makes the folder `name` below `folder` with all those above it. A part whose parent is not there is
// reported by message::createFolderFailed, and then the result is false. A part that is there already is no
// failure.
bool makeFolders(const std::string& folder, const std::string& name);

// Gives the file the entry's date.
void changeFileDate(const std::string& path, DWORD dosDate);

} // namespace detail
} // namespace corekit
