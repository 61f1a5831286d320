// Files seen as memory.
//
// A mapping object is made on an open file and closed with CloseHandle; a view is a stretch of it in memory
// and lives until UnmapViewOfFile, however soon the mapping and the file are closed. What is written to the
// file by any road is seen in every view at once. This process does not cut off what its views show (1224);
// looking at a part of a view that another process has cut off ends this one. Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Types.h"

struct _SECURITY_ATTRIBUTES;

inline constexpr DWORD PAGE_READONLY = 0x02;
inline constexpr DWORD PAGE_READWRITE = 0x04;

inline constexpr DWORD FILE_MAP_WRITE = 0x02;
inline constexpr DWORD FILE_MAP_READ = 0x04;

// A mapping of the first bytes of the file, all of them for a size of 0. PAGE_READWRITE needs a file open for
// reading and writing and extends it to the size, with zeros, for which the room on the volume is taken at
// once (112 when there is not enough); with PAGE_READONLY a size beyond the file's fails with 8. A file
// without a byte fails with 1006. Only mappings without a name are to be had (120). Null on failure.
COREKIT_API HANDLE CreateFileMappingA(HANDLE file, _SECURITY_ATTRIBUTES* security, DWORD protection,
                                      DWORD sizeHigh, DWORD sizeLow, const char* name);

// A view of `bytes` bytes from the offset on, up to the mapping's end for 0. The offset is a multiple of
// 65536 (1132). FILE_MAP_WRITE allows both and needs PAGE_READWRITE. Null on failure.
COREKIT_API void* MapViewOfFile(HANDLE mapping, DWORD access, DWORD offsetHigh, DWORD offsetLow,
                                std::size_t bytes);
// Makes a view that begins with its file show the first `bytes` bytes of a larger mapping of the same file.
// It may move, though not at every step: addresses are set aside for the next ones. Null on failure; then it
// is as it was.
COREKIT_API void* ExtendViewOfFile(const void* view, HANDLE mapping, std::size_t bytes);
// The address is the one that MapViewOfFile or ExtendViewOfFile gave; any other is refused with 487.
COREKIT_API BOOL UnmapViewOfFile(const void* view);
// Returns when what was written to this many bytes of a view is on the device, up to the view's end for 0.
// The address lies in a view.
COREKIT_API BOOL FlushViewOfFile(const void* address, std::size_t bytes);
