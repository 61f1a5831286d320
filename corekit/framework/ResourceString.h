// One text of a module's string table.
//
// A table is an array of these with ascending ids, so that a text is found by bisection. Module.h tells how
// tables are announced and in which order they are searched.
//
//     static constexpr ResourceString texts[] = {{301, "Cannot open %1."}, {302, "Play\nStarts"}};
//     AfxSetResourceStrings(texts); // of the program; a library puts them into its AFX_EXTENSION_MODULE
#pragma once

#include "corekit/platform/Types.h"

struct ResourceString {
    UINT id;          // each once in a table
    const char* text; // in the active code page; lives as long as its module
};
