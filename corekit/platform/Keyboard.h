// The keyboard: keys by number and by name on the United States layout, and which of them are down.
//
// What is down is recorded for each thread separately: the thread that receives the keys keeps its own
// record.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// A keyboard layout of the platform; the low word of its value is its language.
using HKL = struct HKL__*;

// ---- Virtual keys. Letters and digits are their ASCII capitals and digits.
inline constexpr int VK_BACK = 0x08; // Backspace
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_RETURN = 0x0D; // Enter, both
inline constexpr int VK_SHIFT = 0x10;  // either one, as the next two
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;    // Alt
inline constexpr int VK_CAPITAL = 0x14; // Caps Lock
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21, VK_NEXT = 0x22; // page up and down
inline constexpr int VK_END = 0x23, VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25, VK_UP = 0x26, VK_RIGHT = 0x27, VK_DOWN = 0x28;
inline constexpr int VK_INSERT = 0x2D, VK_DELETE = 0x2E;
inline constexpr int VK_NUMPAD0 = 0x60; // to 0x69
inline constexpr int VK_F1 = 0x70;      // to F24 at 0x87
inline constexpr int VK_LSHIFT = 0xA0;  // left and right ones apart
inline constexpr int VK_RSHIFT = 0xA1;
inline constexpr int VK_LCONTROL = 0xA2;
inline constexpr int VK_RCONTROL = 0xA3;
inline constexpr int VK_LMENU = 0xA4;
inline constexpr int VK_RMENU = 0xA5;      // right Alt
inline constexpr int VK_OEM_1 = 0xBA;      // ;
inline constexpr int VK_OEM_PLUS = 0xBB;   // =
inline constexpr int VK_OEM_COMMA = 0xBC;  // ,
inline constexpr int VK_OEM_MINUS = 0xBD;  // -
inline constexpr int VK_OEM_PERIOD = 0xBE; // .
inline constexpr int VK_OEM_2 = 0xBF;      // /
inline constexpr int VK_OEM_3 = 0xC0;      // `, the apostrophe on the British layout
inline constexpr int VK_OEM_4 = 0xDB;      // [
inline constexpr int VK_OEM_5 = 0xDC;      // backslash
inline constexpr int VK_OEM_6 = 0xDD;      // ]
inline constexpr int VK_OEM_7 = 0xDE;      // ', the number sign on the British layout
inline constexpr int VK_OEM_8 = 0xDF;      // ` on the British layout

// What ACCEL::fVirt says.
inline constexpr BYTE FVIRTKEY = 1; // the key is a virtual key, else a character
inline constexpr BYTE FSHIFT = 4;   // what must be held
inline constexpr BYTE FCONTROL = 8; // Ctrl
inline constexpr BYTE FALT = 16;    // Alt

inline constexpr UINT MAPVK_VK_TO_VSC = 0; // the one type of MapVirtualKeyA

// The scan code of a virtual key, 0 if there is none or for another type.
COREKIT_API UINT MapVirtualKeyA(UINT code, UINT type);

// The name of the key whose scan code is in bits 16 to 23, of the extended one where bit 24 is set and there
// is one. At most size - 1 characters and a terminator; how many, 0 for a key without a name.
COREKIT_API int GetKeyNameTextA(LONG param, char* buffer, int size);

// ---- Key state, 256 bytes for the virtual keys: the top bit is set while a key is down, the lowest one
// changes with each press.

// The byte of one key, its top bit moved to the result's; 0 for a number outside 0 to 255.
COREKIT_API SHORT GetKeyState(int virtualKey);
// All of them; false with ERROR_INVALID_PARAMETER for a null pointer.
COREKIT_API BOOL GetKeyboardState(BYTE* state);
COREKIT_API BOOL SetKeyboardState(const BYTE* state);

enum class KeyMotion { up, down };
// Brings the state up to date with one motion of a key, as whoever receives the keys does. The keys Shift,
// Ctrl and Alt follow their left and right ones. A number outside 0 to 255 is disregarded.
COREKIT_API void RecordKeyMotion(int virtualKey, KeyMotion motion);
