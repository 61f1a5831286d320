// The joining classes of the Indic Urdu block, U+E300 to U+E3FF: those of the Arabic block, moved. For
// clients that shape the block themselves; the library draws it unshaped.
#pragma once

#include "corekit/unicode/tables/JoiningClasses.h"

class COREKIT_API CUrduIndicJoiningClasses : public corekit::detail::JoiningClasses<0xE300> {
public:
    // There is nothing to assign: objects have no state.
    CUrduIndicJoiningClasses& operator=(const CUrduIndicJoiningClasses&) { return *this; }
};
