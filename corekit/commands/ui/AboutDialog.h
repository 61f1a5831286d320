// The about box of a module, filled from its version record.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CWnd;

// Shows description, version, copyright, special build and comments of the module (null: the program) beside
// the bitmap of that number (0: none), under the caption of that string. 1 once the box has been closed; 0,
// and nothing is shown, if the module has no version record. A bitmap that no module has is left out.
COREKIT_API int scShowStandardAboutDialog(HINSTANCE module, UINT bitmapId, UINT captionId, CWnd* parent);
