// How text is handled, as the user has chosen.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit {

struct TextHandling {
    BOOL biDi = FALSE;
    BOOL complexLanguage = FALSE; // the platform handles complex languages
    BOOL extraLineHeight = FALSE;
    BOOL underlineSelect = FALSE;
};

} // namespace corekit
