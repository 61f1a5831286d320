// The hot key control: shows the key that the user presses in it. Changes are told by EN_CHANGE.
#pragma once

#include "corekit/platform/Controls.h"

// A key is a virtual key in the low byte and these in the byte above; 0 is none.
inline constexpr BYTE HOTKEYF_SHIFT = 0x1; // held down
inline constexpr BYTE HOTKEYF_CONTROL = 0x2;
inline constexpr BYTE HOTKEYF_ALT = 0x4;
inline constexpr BYTE HOTKEYF_EXT = 0x8; // a key beside the number pad

inline constexpr UINT HKM_SETHOTKEY = 0x401; // wParam: the key
inline constexpr UINT HKM_GETHOTKEY = 0x402; // answers the key
inline constexpr UINT HKM_SETRULES =
    0x403; // wParam: HKCOMB_ refused; lParam: HOTKEYF_ added to those instead

// Combinations of Shift, Ctrl and Alt.
inline constexpr WORD HKCOMB_NONE = 0x1; // without any of the three
inline constexpr WORD HKCOMB_S = 0x2;    // Shift
inline constexpr WORD HKCOMB_C = 0x4;    // Ctrl
inline constexpr WORD HKCOMB_A = 0x8;    // Alt
inline constexpr WORD HKCOMB_SC = 0x10;  // both, and so on
inline constexpr WORD HKCOMB_SA = 0x20;
inline constexpr WORD HKCOMB_CA = 0x40;
inline constexpr WORD HKCOMB_SCA = 0x80; // all three
