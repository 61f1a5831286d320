// Styles and ids of bars, and how they are asked for their size.
#pragma once

#include "corekit/platform/Types.h"

// What a bar is. CBRS_FLOATING is set by the bar itself; CBRS_SIZE_DYNAMIC wraps its buttons to the shape
// that the user gives it; CBRS_TOOLTIPS shows tips, CBRS_GRIPPER draws a handle to drag it by,
// CBRS_BORDER_3D keeps room for borders of two pixels. The others are accepted and kept.
// CBRS_FLOAT_MULTI is kept and changes nothing: each floating bar has a frame to itself.
inline constexpr DWORD CBRS_FLOATING = 0x1, CBRS_SIZE_FIXED = 0x2, CBRS_SIZE_DYNAMIC = 0x4,
                       CBRS_HIDE_INPLACE = 0x8, CBRS_TOOLTIPS = 0x10, CBRS_FLYBY = 0x20,
                       CBRS_FLOAT_MULTI = 0x40, CBRS_BORDER_3D = 0x80, CBRS_GRIPPER = 0x400000;
// Sides with a line.
inline constexpr DWORD CBRS_BORDER_LEFT = 0x100, CBRS_BORDER_TOP = 0x200, CBRS_BORDER_RIGHT = 0x400,
                       CBRS_BORDER_BOTTOM = 0x800, CBRS_BORDER_ANY = 0xF00;
// The side of the frame where it lies; with EnableDocking the sides that it may go to.
inline constexpr DWORD CBRS_ALIGN_LEFT = 0x1000, CBRS_ALIGN_TOP = 0x2000, CBRS_ALIGN_RIGHT = 0x4000,
                       CBRS_ALIGN_BOTTOM = 0x8000, CBRS_ALIGN_ANY = 0xF000;
// A bar at the top or the bottom lies, one at the left or the right stands.
inline constexpr DWORD CBRS_ORIENT_HORZ = CBRS_ALIGN_TOP | CBRS_ALIGN_BOTTOM,
                       CBRS_ORIENT_VERT = CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT, CBRS_ORIENT_ANY = 0xF000;
// A side, with the line that parts the bar from the view.
inline constexpr DWORD CBRS_LEFT = CBRS_ALIGN_LEFT | CBRS_BORDER_RIGHT,
                       CBRS_TOP = CBRS_ALIGN_TOP | CBRS_BORDER_BOTTOM,
                       CBRS_RIGHT = CBRS_ALIGN_RIGHT | CBRS_BORDER_LEFT,
                       CBRS_BOTTOM = CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP;
// No side; all that is a bar's in a window style.
inline constexpr DWORD CBRS_NOALIGN = 0, CBRS_ALL = 0x40FFFF;

// Ids of bars within a frame: those of the first tool bar and the status bar, and of the docks at the four
// sides and in a floating frame.
inline constexpr UINT AFX_IDW_CONTROLBAR_FIRST = 0xE800, AFX_IDW_CONTROLBAR_LAST = 0xE8FF,
                      AFX_IDW_TOOLBAR = 0xE800, AFX_IDW_STATUS_BAR = 0xE801, AFX_IDW_DOCKBAR_TOP = 0xE81B,
                      AFX_IDW_DOCKBAR_LEFT = 0xE81C, AFX_IDW_DOCKBAR_RIGHT = 0xE81D,
                      AFX_IDW_DOCKBAR_BOTTOM = 0xE81E, AFX_IDW_DOCKBAR_FLOAT = 0xE81F;

// How CalcDynamicLayout is asked.
inline constexpr DWORD LM_STRETCH = 1, // as long as there is room
    LM_HORZ = 2,                       // lying
    LM_MRUWIDTH = 4,                   // as wide as it floated last
    LM_HORZDOCK = 8, LM_VERTDOCK = 16,
                       LM_LENGTHY = 32, // the length is a height
    LM_COMMIT = 64;                     // remember the outcome

inline constexpr int longestBar = 32767; // of a bar that reaches from edge to edge
