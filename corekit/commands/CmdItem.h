// One command of a host application, as the registry of commands keeps it. A plain value.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class COREKIT_API CCmdItem {
public:
    // The part of the category path in front of the first "!"; empty if there is none.
    CString GetCatagory() const;
    // The text of the command in the string table, up to its first line end: the prompt without the tip.
    CString GetDescription() const;

    // What WM_COMMAND carries for it, and the number of its text in the string table.
    UINT m_nCommand = 0;
    // Bitmaps may be 0, for a command without a button.
    UINT m_nSmallBitmap = 0; // resources that hold the button's image, 16 by 15 pixels or larger ones
    UINT m_nLargeBitmap = 0;

    UINT m_nImageIndex = 0; // of the image inside either bitmap
    CString m_strCategory;  // path, parts divided by "!"
    CString m_strName;      // as lists of commands show it
};
