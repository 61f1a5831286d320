// Bitmaps among the resources of modules.
#pragma once

#include "corekit/platform/Gdi.h"

// A bitmap from the resource of that number or name, from the program or else the newest library that has it;
// for the caller to delete. Null if no module has such a resource, or not in a form that CreateBitmapFromDib
// reads.
COREKIT_API HBITMAP AfxLoadBitmap(UINT id);
COREKIT_API HBITMAP AfxLoadBitmap(const char* name);
