// Parts of a path's text. `\` alone separates here, whatever the system takes; nothing is looked up but the
// display name. Null counts as empty.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"

// What follows the last separator; all of it if there is none.
COREKIT_API CString File_GetNameAndExt(const char* path);
// The same without the last dot and what follows, unless the dot comes first: ".log" stays.
COREKIT_API CString File_GetNameOnly(const char* path);
// What follows the last dot, unless that is the path's first character; without a dot, the whole path.
COREKIT_API CString File_GetExtension(const char* path);
// What comes before the last separator, unless that is the first character; without one, the whole path.
COREKIT_API CString File_GetDirectory(const char* path);
// The name that the user sees for what lies at the path; the path itself if nothing does.
COREKIT_API CString File_GetDisplayName(const char* path);
