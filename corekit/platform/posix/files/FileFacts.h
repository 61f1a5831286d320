// What the system tells of one name, in the platform's form.
#pragma once

#include "corekit/platform/FileAttributes.h"

#include <string>

namespace corekit::detail {

// The error for errno after a failed use of the path: a missing file is told from a missing folder.
DWORD pathError(const std::string& path);

// The name relative to an open folder, or to the current one for AT_FDCWD. False with errno set.
bool factsOf(int folder, const std::string& path, WIN32_FILE_ATTRIBUTE_DATA& data);

} // namespace corekit::detail
