// Private profiles: text files of [sections] with lines of key=value.
//
// Names compare without regard to ASCII case; of two keys of one name in one section the first counts.
// Lines that begin with `;` are comments. Blanks round names and values do not count, nor does a pair of
// quotation marks round a value. A change touches the lines that it must and no other byte of the file, and
// takes effect at once and whole: the file is replaced, with its rights kept, and several processes may be at
// it.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Copies the value, or the fallback if there is none, cut to `size` - 1 characters, and returns how many were
// copied. With a null key it is the section's keys instead, with a null section all sections, each with a
// terminator and one more at the end; then at most `size` - 2 are returned. Last error 2 if nothing was
// there.
COREKIT_API DWORD GetPrivateProfileStringA(const char* section, const char* key, const char* fallback,
                                           char* buffer, DWORD size, const char* file);

// Sets the value, making file, section and key as needed; a null value deletes the key, a null key the
// section with all its lines. Returns 0 on failure: last error 5 for a file that may not be changed, 87 for a
// name or value that would not be read back (a line end, `=` in a key, `]` in a section), 1113 for a file in
// UTF-16.
COREKIT_API BOOL WritePrivateProfileStringA(const char* section, const char* key, const char* value,
                                            const char* file);
