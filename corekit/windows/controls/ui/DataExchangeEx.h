// Data exchange for what dialogs of this suite hold: wide text, timecodes, colours, hexadecimal numbers. See
// DataExchange.h; a field that cannot be read is told in a box and fails.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/foundation/Timecode.h"
#include "corekit/framework/ui/DataExchange.h"

COREKIT_API void DDX_TextW(CDataExchange* exchange, int id, StringW& value);
COREKIT_API void DDX_Timecode(CDataExchange* exchange, int id, CTimecode& value); // "10:00:00:00"
COREKIT_API void DDX_Colour(CDataExchange* exchange, int id, COLORREF& value); // "FF8000": red, green, blue
COREKIT_API void DDX_Hex(CDataExchange* exchange, int id, UINT& value);        // "1F40", also "0x1F40"
