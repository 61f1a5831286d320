// Looking through a folder.
//
// A pattern is a path whose last part may hold * (any characters, also none) and ? (one character); "*.*"
// takes every name, with a dot or without. Names are told as they are, links as themselves; case counts. A
// name with a `\` in it is passed over: as part of a path it would lead elsewhere. The names are taken when
// the search begins, in the order of their bytes, so a caller may delete what it finds.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/FileAttributes.h"

// One name with what WIN32_FILE_ATTRIBUTE_DATA has.
struct WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0; // 0
    DWORD dwReserved1;
    char cFileName[MAX_PATH];    // without its folder
    char cAlternateFileName[14]; // empty
};
static_assert(sizeof(WIN32_FIND_DATAA) == 320);

inline constexpr DWORD ERROR_NO_MORE_FILES = 18; // the end of a search

// The first match, "." and ".." among those of a pattern with wildcards. INVALID_HANDLE_VALUE with error 2
// or 3 if there is none. The handle is for the next two alone and belongs to one thread at a time. A pattern
// without wildcards finds the one name, if it is there.
COREKIT_API HANDLE FindFirstFileA(const char* pattern, WIN32_FIND_DATAA* data);
// 0 with error 18 after the last. Names that have gone meanwhile are passed over.
COREKIT_API BOOL FindNextFileA(HANDLE search, WIN32_FIND_DATAA* data);
// 0 with error 6 for any other handle.
COREKIT_API BOOL FindClose(HANDLE search);
