// The keys of the toolkit as virtual keys.
#pragma once

#include "corekit/platform/Types.h"

class QKeyEvent;

namespace corekit::detail {

struct PressedKey {
    int virtualKey = 0; // 0: none that is known
    int sided = 0;      // of Shift, Ctrl and Alt the left or right one; else the same
    bool isExtended = false;
};

// Letters and digits go by their place on the keyboard, so that keyboards of our own find them; with Ctrl or
// Alt held, by what the user's layout has there, so that commands stay where they are written.
PressedKey pressedKeyOf(const QKeyEvent& event);

// A key of the toolkit for a virtual one, for input of our own making; 0 if there is none.
int toolkitKeyOf(int virtualKey);

} // namespace corekit::detail
