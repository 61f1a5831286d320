// Whoever owns an edit control and hears of the keys and clicks that are not editing: the cell of a grid, for
// example.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"

// Each operation may destroy the control, and the object with it.
class COREKIT_API CMultilineUnicodeEditCtlSink : public CObject {
    DECLARE_DYNAMIC(CMultilineUnicodeEditCtlSink)
public:
    virtual void OnEditReturn() = 0; // without Shift and Ctrl
    virtual void OnEditEscape() = 0;
    virtual void OnEditTab(int shift) = 0; // 1 with Shift held
    virtual void OnEditLButtonDown() = 0;  // the cursor has moved, the mouse is not captured yet
    virtual void OnEditLButtonUp() = 0;    // the mouse is free again, the focus is not taken yet
    virtual void OnEditCursorUp() = 0;     // on the first line, without Shift
    virtual void OnEditCursorDown() = 0;   // on the last line, without Shift
    virtual void OnEditKillFocus() = 0;    // to a window that is neither the control nor one above it
};
