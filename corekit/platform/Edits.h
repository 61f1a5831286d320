// The edit control: one line of plain text, or many.
//
// Positions count UTF-16 units from 0. Lines of a multi-line control end with "\r\n", which counts as two; a
// lone "\n" that comes in is made into that. Lines are what is shown: a wrapped paragraph has several.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD ES_LEFT = 0x0; // text at the left, in the middle, at the right
inline constexpr DWORD ES_CENTER = 0x1;
inline constexpr DWORD ES_RIGHT = 0x2;
inline constexpr DWORD ES_MULTILINE = 0x4;
inline constexpr DWORD ES_UPPERCASE = 0x8;     // what the user enters becomes so
inline constexpr DWORD ES_LOWERCASE = 0x10;    // likewise
inline constexpr DWORD ES_PASSWORD = 0x20;     // what is entered does not show
inline constexpr DWORD ES_AUTOVSCROLL = 0x40;  // accepted
inline constexpr DWORD ES_AUTOHSCROLL = 0x80;  // a multi-line control without it wraps
inline constexpr DWORD ES_NOHIDESEL = 0x100;   // accepted
inline constexpr DWORD ES_READONLY = 0x800;    // can be selected and copied
inline constexpr DWORD ES_WANTRETURN = 0x1000; // Enter makes a line, in a dialog as well
inline constexpr DWORD ES_NUMBER = 0x2000;     // the user can enter digits only

inline constexpr UINT EM_GETSEL =
    0xB0; // wParam, lParam: DWORD* start and end, may be null; answers both in 16 bits
inline constexpr UINT EM_SETSEL = 0xB1;      // wParam, lParam: start and end; (0, -1) all, (-1, any) none
inline constexpr UINT EM_GETRECT = 0xB2;     // lParam: RECT* of the text, in the client
inline constexpr UINT EM_LINESCROLL = 0xB6;  // lParam: lines down
inline constexpr UINT EM_SCROLLCARET = 0xB7; // brings it into view
inline constexpr UINT EM_GETMODIFY = 0xB8;
inline constexpr UINT EM_SETMODIFY = 0xB9; // wParam: the flag, which typing sets and setting the text clears
inline constexpr UINT EM_GETLINECOUNT = 0xBA; // lines on show
inline constexpr UINT EM_LINEINDEX =
    0xBB; // wParam: line, -1 the caret's; answers its first position, -1 for none
inline constexpr UINT EM_LINELENGTH =
    0xC1; // wParam: a position in the line; -1: unselected text of the caret's
inline constexpr UINT EM_REPLACESEL = 0xC2; // wParam: can be undone; lParam: text
inline constexpr UINT EM_GETLINE =
    0xC4; // wParam: line; lParam: buffer, whose first WORD is its size; no zero is added
inline constexpr UINT EM_LIMITTEXT = 0xC5;
inline constexpr UINT EM_SETLIMITTEXT =
    EM_LIMITTEXT;                        // wParam: units that the user can enter, 0: the greatest
inline constexpr UINT EM_CANUNDO = 0xC6; // answers whether there is a step to undo
inline constexpr UINT EM_UNDO = 0xC7;
inline constexpr UINT EM_LINEFROMCHAR = 0xC9; // wParam: position, -1: the selection's beginning
inline constexpr UINT EM_SETTABSTOPS =
    0xCB; // wParam 1, lParam: const int* distance in quarters of a character
inline constexpr UINT EM_SETPASSWORDCHAR = 0xCC;     // wParam: the character shown, 0: the text itself
inline constexpr UINT EM_EMPTYUNDOBUFFER = 0xCD;     // forgets all steps
inline constexpr UINT EM_GETFIRSTVISIBLELINE = 0xCE; // of a single-line control the first visible position
inline constexpr UINT EM_SETREADONLY = 0xCF;         // wParam: whether
inline constexpr UINT EM_GETPASSWORDCHAR = 0xD2;     // 0: text shows
inline constexpr UINT EM_SETMARGINS = 0xD3; // wParam: EC_ values; lParam: left and right pixels in its words
inline constexpr UINT EM_GETMARGINS = 0xD4; // of one line
inline constexpr UINT EM_GETLIMITTEXT = 0xD5; // 30,000 at first
inline constexpr UINT EM_POSFROMCHAR =
    0xD6; // wParam: position; answers x and y in its words, -1 beyond the end
inline constexpr UINT EM_CHARFROMPOS = 0xD7; // lParam: x and y; answers position and line in its words
inline constexpr UINT EM_SETCUEBANNER =
    0x1501; // lParam: const WCHAR* shown while there is no text; wParam: in focus as well

inline constexpr WPARAM EC_LEFTMARGIN = 1;
inline constexpr WPARAM EC_RIGHTMARGIN = 2;
inline constexpr WORD EC_USEFONTINFO = 0xFFFF; // a margin of the toolkit's choice

// WM_COMMAND.
inline constexpr UINT EN_SETFOCUS = 0x100;
inline constexpr UINT EN_KILLFOCUS = 0x200;
inline constexpr UINT EN_CHANGE =
    0x300; // the text on show is another; not by WM_SETTEXT to a multi-line control
inline constexpr UINT EN_UPDATE = 0x400;  // just before it is drawn
inline constexpr UINT EN_MAXTEXT = 0x501; // what was typed did not go in, or not all of it
inline constexpr UINT EN_HSCROLL = 0x601; // of many lines: the text has moved
inline constexpr UINT EN_VSCROLL = 0x602;
