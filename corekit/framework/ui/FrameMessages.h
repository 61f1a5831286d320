// Messages among windows of the class framework.
#pragma once

#include "corekit/platform/Windows.h"

// Take your place at an edge of what is left of the frame; lParam: AFX_SIZEPARENTPARAMS*, from which the bar
// takes what it needs.
inline constexpr UINT WM_SIZEPARENT = 0x0361;
struct AFX_SIZEPARENTPARAMS {
    HDWP hDWP;      // the moves to come, to be carried on; null: only the sizes are asked for
    RECT rect;      // what is left
    SIZE sizeTotal; // what the bars have taken
    BOOL bStretch;  // bars reach from edge to edge
};
// Bring the state of your commands up to date, as nothing else is to be done; wParam: disable those that
// nobody handles.
inline constexpr UINT WM_IDLEUPDATECMDUI = 0x0363;
// After the first layout of a frame; a view gets its first contents.
inline constexpr UINT WM_INITIALUPDATE = 0x0364;
inline constexpr UINT WM_COMMANDHELP = 0x0365; // help for what is in front; nobody sends it here
