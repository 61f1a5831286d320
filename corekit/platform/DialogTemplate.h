// The plan of a dialog: a table of controls.
//
// Places and sizes are in dialog units: a quarter of the average width and an eighth of the height of a
// character of the toolkit's font for controls. Tables are constants that last as long as their module.
#pragma once

#include "corekit/platform/Types.h"
#include "corekit/platform/WindowStyles.h"

#include <span>

// Styles of dialogs.
inline constexpr DWORD DS_ABSALIGN = 0x1;    // the place is on the screen, not in the owner's client area
inline constexpr DWORD DS_SETFONT = 0x40;    // in the binary form: names a font, which is not used
inline constexpr DWORD DS_MODALFRAME = 0x80; // the frame of a dialog
inline constexpr DWORD DS_CONTROL = 0x400;   // a child that is part of another dialog, as a page of a sheet
inline constexpr DWORD DS_CENTER = 0x800;    // in the middle of the screen

struct DialogItem {
    const char* windowClass; // any registered class
    const char* text;        // UTF-8, may be null
    int id;                  // -1: none
    int x, y, width, height;
    DWORD style; // WS_CHILD goes without saying; a control is visible only with WS_VISIBLE
    DWORD exStyle = 0;
};

struct DialogTemplate {
    UINT id;
    const char* caption; // UTF-8, may be null
    int width, height;   // of the client area
    DWORD style;
    std::span<const DialogItem> items; // in the order of Tab
    DWORD exStyle = 0;
    int x = 0, y = 0; // both 0: over the middle of the owner
};
