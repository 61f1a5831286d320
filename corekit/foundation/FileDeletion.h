// Deleting files and making folders. Failures throw CChainedException.
//
// With `force`, a file that nobody may write is made writable and tried again. What a pattern may hold is
// said in platform/FindFile.h. A link found on the way is deleted and never followed. Not for folders that
// somebody else is changing meanwhile.
#pragma once

#include "corekit/platform/Export.h"

// A missing file is a success, a missing folder above it is not. message::deleteFileFailed over the system's
// reason, as from all that deletes files below.
COREKIT_API void File_DeleteFile(const char* path, int force);
// Every file, and no folder, that the pattern names; stops at the first failure.
COREKIT_API void File_DeleteFilesMatchingPattern(const char* pattern, int force);
// Those of them that were last written more than `days` whole days ago.
COREKIT_API void File_DeleteFilesOlderThan(const char* pattern, int days, int force);

// All that is in the folder; nothing, and a success, if it is missing, cannot be read or is the empty text. A
// path that grows past what the system takes ends it with message::deleteDirectoryFailed.
COREKIT_API void File_DeleteDirectoryContents(const char* directory, int force);
// The folder as well; of a link to a folder the link alone. message::deleteDirectoryFailed over the
// system's reason.
COREKIT_API void File_DeleteDirectoryAndContents(const char* directory, int force);

// The folder and those above it that are missing; a folder of that name that is there is a success, and so is
// a file. `\` and `/` both separate. message::createFoldersFailed with no reason below it.
COREKIT_API void CreateDirectoryAndParents(const char* path);
