// The joining classes and presentation forms of the Arabic block, U+0600 to U+06FF; the forms lie in U+FB50
// to U+FEF4. JoiningClasses.h has the operations, all of them static and for any thread.
#pragma once

#include "corekit/unicode/tables/JoiningClasses.h"

class COREKIT_API CArabicJoiningClasses : public corekit::detail::JoiningClasses<0x0600> {
public:
    // There is nothing to assign: objects have no state.
    CArabicJoiningClasses& operator=(const CArabicJoiningClasses&) { return *this; }
};
