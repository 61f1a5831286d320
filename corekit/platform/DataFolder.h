// Where the library keeps what belongs to the machine or, where it may not, to the user.
#pragma once

#include "corekit/platform/Export.h"

#include <string>

namespace corekit {

// $COREKIT_HOME; else /var/lib/corekit for a user who may write there; else $XDG_DATA_HOME/corekit, by
// default ~/.local/share/corekit. Asked anew at each call; the folder need not exist.
COREKIT_API std::string DataFolder();

// Whether this user may write to the file, or make it and the folders above it.
COREKIT_API bool MayWrite(const std::string& path);

namespace detail {

// Makes the folder and those above it that are missing, for this user alone unless they lie below /var.
// False with errno set.
bool makeFolder(const std::string& path);

// Whether the path lies where the system keeps what all its users share.
bool isOfSystem(const std::string& path);

} // namespace detail
} // namespace corekit
