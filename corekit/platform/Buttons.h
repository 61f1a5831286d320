// The button control: push buttons, check boxes, radio buttons and group boxes.
#pragma once

#include "corekit/platform/Controls.h"

// What it is, one of these. An automatic one changes its own state when it is clicked; automatic radio
// buttons also clear the others of their group, which begins at a control with WS_GROUP.
inline constexpr DWORD BS_PUSHBUTTON = 0x0;    // a command
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x1; // looks like the one that Enter presses
inline constexpr DWORD BS_CHECKBOX = 0x2;      // the program changes it
inline constexpr DWORD BS_AUTOCHECKBOX = 0x3;
inline constexpr DWORD BS_RADIOBUTTON = 0x4; // the program changes it
inline constexpr DWORD BS_3STATE = 0x5;      // checked, not, or neither
inline constexpr DWORD BS_AUTO3STATE = 0x6;
inline constexpr DWORD BS_GROUPBOX = 0x7; // a frame with a title; takes no input
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x9;
inline constexpr DWORD BS_OWNERDRAW = 0xB; // the parent draws, at WM_DRAWITEM
inline constexpr DWORD BS_TYPEMASK = 0xF;
// How.
inline constexpr DWORD BS_LEFTTEXT = 0x20; // the text of a check box or radio button stands left of it
inline constexpr DWORD BS_RIGHTBUTTON = BS_LEFTTEXT;
inline constexpr DWORD BS_ICON = 0x40; // shows a picture for its text
inline constexpr DWORD BS_BITMAP = 0x80;
inline constexpr DWORD BS_LEFT = 0x100; // where the text stands, across
inline constexpr DWORD BS_RIGHT = 0x200;
inline constexpr DWORD BS_CENTER = 0x300;
inline constexpr DWORD BS_TOP = 0x400; // and up and down
inline constexpr DWORD BS_BOTTOM = 0x800;
inline constexpr DWORD BS_VCENTER = 0xC00;
inline constexpr DWORD BS_PUSHLIKE = 0x1000;  // a check box or radio button that looks like a push button
inline constexpr DWORD BS_MULTILINE = 0x2000; // text wraps
inline constexpr DWORD BS_NOTIFY = 0x4000;    // also tells focus and double clicks
inline constexpr DWORD BS_FLAT = 0x8000;      // without a raised edge

inline constexpr UINT BST_UNCHECKED = 0;
inline constexpr UINT BST_CHECKED = 1;
inline constexpr UINT BST_INDETERMINATE = 2; // of the three-state kinds
inline constexpr UINT BST_PUSHED = 4;        // held down
inline constexpr UINT BST_FOCUS = 8;         // has the keys

inline constexpr UINT BM_GETCHECK = 0xF0; // answers one of the first three
inline constexpr UINT BM_SETCHECK = 0xF1; // wParam: the same; push buttons have none
inline constexpr UINT BM_GETSTATE = 0xF2; // answers BST_ values or-ed
inline constexpr UINT BM_SETSTATE = 0xF3; // wParam: pushed or not; tells nobody
inline constexpr UINT BM_SETSTYLE = 0xF4; // wParam: a BS_ style of the same family; lParam: draw at once
inline constexpr UINT BM_CLICK = 0xF5;    // as if the user had clicked
inline constexpr UINT BM_GETIMAGE = 0xF6; // wParam: IMAGE_BITMAP or IMAGE_ICON
inline constexpr UINT BM_SETIMAGE = 0xF7; // lParam: the handle; not owned; answers the one before

// WM_COMMAND.
inline constexpr UINT BN_CLICKED = 0;       // by mouse, key or BM_CLICK
inline constexpr UINT BN_DOUBLECLICKED = 5; // also without BS_NOTIFY from radio and owner-drawn buttons
inline constexpr UINT BN_SETFOCUS = 6;      // with BS_NOTIFY, as the next one
inline constexpr UINT BN_KILLFOCUS = 7;
