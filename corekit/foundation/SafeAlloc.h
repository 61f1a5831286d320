// Allocation that never returns null.
//
// Each function throws the framework's memory exception when there is no block to be had, which includes a
// negative size. Every block is freed with safe_free, never with delete. `file` and `line` are the caller's
// position, for builds that track blocks; this one does not look at them. Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

COREKIT_API void* __safe_malloc(int size, const char* file, int line);
// Null is let pass.
COREKIT_API void safe_free(void* block);
// After a failure the old block is still good and still the caller's.
COREKIT_API void* __safe_realloc(void* block, int size, const char* file, int line);
// A copy of `size` bytes.
COREKIT_API void* __safe_duplicate(const void* source, int size, const char* file, int line);
// A copy with its terminating zero; a null text is an empty one.
COREKIT_API char* __safe_dupstring(const char* text, const char* file, int line);
COREKIT_API WCHAR* __safe_dupstring(const WCHAR* text, const char* file, int line);
