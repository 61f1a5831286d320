// One text of a module's string table.
#pragma once

#include "corekit/platform/Types.h"

struct ResourceString {
    UINT id;
    const char* text; // in the active code page; lives as long as its module
};
