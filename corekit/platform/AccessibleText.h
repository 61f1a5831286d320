// The text of a window that paints it itself, for programs that read out what is on the screen.
//
// User-interface thread only.
#pragma once

#include "corekit/platform/Types.h"

#include <string>

namespace corekit::detail {

// Indexes count UTF-16 units of the text, from 0 to its length.
class AccessibleText {
public:
    virtual std::u16string text() = 0;
    virtual int cursor() = 0;
    virtual void selection(int& from, int& to) = 0; // in ascending order; both are the cursor's without one
    virtual void select(int from, int to) = 0;      // the cursor goes to `to`

protected:
    ~AccessibleText() = default;
};

// Says that the window is an editable text of several lines, named by its window text or by the text right
// before it. Until the window goes, or null; not owned.
void setAccessibleText(HWND window, AccessibleText* text);
// After the text, the cursor or the selection has changed. Costs nothing while nobody listens.
void tellAccessibleText(HWND window);

} // namespace corekit::detail
