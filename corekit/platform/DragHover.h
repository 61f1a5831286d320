// What is dragged over a window, from this program or another, as far as a window wants to look at it: where
// it is and when it leaves. Nothing is dropped here. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class COREKIT_API DragHoverTarget {
public:
    virtual ~DragHoverTarget() = default;
    // Points of the client area. They come again and again while the mouse rests.
    virtual void DragEnter(POINT point) = 0;
    virtual void DragOver(POINT point) = 0;
    virtual void DragLeave() = 0;
};

// Shows the target what is dragged over the window or a child that takes no drops itself. The target is not
// owned; null ends it, and so does the end of the window. False for what is no window.
COREKIT_API BOOL SetDragHoverTarget(HWND window, DragHoverTarget* target);
