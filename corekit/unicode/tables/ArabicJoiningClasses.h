// The joining classes and presentation forms of the Arabic block, U+0600 to U+06FF.
#pragma once

#include "corekit/unicode/tables/JoiningClasses.h"

class COREKIT_API CArabicJoiningClasses : public corekit::detail::JoiningClasses<0x0600> {
public:
    CArabicJoiningClasses& operator=(const CArabicJoiningClasses&) { return *this; }
};
