// The one home of the platform's basic types and constants, under their documented names.
//
// Integers have the sizes that files and wires rely on: LONG and DWORD are 32 bits wide here although
// the machine's `long` is 64. Wide text is UTF-16 in char16_t; literals are u"...".
#pragma once

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;   // 8 bits
using WORD = std::uint16_t;  // 16 bits
using DWORD = std::uint32_t; // 32 bits, unsigned, as the next one
using UINT = std::uint32_t;
using LONG = std::int32_t;            // 32 bits
using SHORT = std::int16_t;           // 16 bits
using BOOL = int;                     // 0 is false, anything else true
using LONGLONG = long long;           // not `long`, which stands for 32 bits in overloads
using DWORDLONG = unsigned long long; // 64 bits
using WCHAR = char16_t;               // a UTF-16 unit

using UINT_PTR = std::uintptr_t; // wide enough for a pointer, as the next six
using LONG_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using LANGID = WORD;        // language number: ten bits of language, variety above
using LCID = DWORD;         // the same in 32 bits
using HRESULT = LONG;       // below 0: failure
using SIZE_T = std::size_t; // bytes in memory
using COLORREF = DWORD;     // 0x00BBGGRR

// A kernel object of any kind. Owned by whoever created or opened it, closed with CloseHandle.
using HANDLE = void*;
using HGLOBAL = void*; // block of global memory (Memory.h)

// Window-system objects are told apart by type.
using HINSTANCE = struct HINSTANCE__*; // a module, by its load address
using HWND = struct HWND__*;           // a window (Windows.h)
using HMODULE = HINSTANCE;
using HDC = struct HDC__*;         // a device context (GdiContexts.h)
using HGDIOBJ = struct HGDIOBJ__*; // a pen, brush, font, bitmap or region
using HFONT = HGDIOBJ;
using HBITMAP = HGDIOBJ;
using HBRUSH = HGDIOBJ;
using HICON = struct HICON__*; // an icon or cursor (Cursors.h)
using HCURSOR = HICON;

// What calls that open files give on failure; others give null.
inline HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1));
inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;
inline constexpr DWORD INFINITE = 0xFFFFFFFF; // milliseconds without end
inline constexpr int MAX_PATH = 260;          // bytes with the terminator, where a call has no size

// Places and sizes in whatever units a call takes; right and bottom edge are not part of a rectangle.
struct POINT {
    LONG x, y;
};
struct SIZE {
    LONG cx, cy;
};
struct RECT {
    LONG left, top, right, bottom;
};

// A key and the command that it stands for; Keyboard.h has the flags.
struct tagACCEL {
    BYTE fVirt; // flags
    WORD key;   // virtual key or character
    WORD cmd;   // number of the command
};
using ACCEL = tagACCEL;

// Laid out as it is stored and sent.
struct _GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8]; // in this order of bytes

    friend bool operator==(const _GUID&, const _GUID&) = default;
};
using GUID = _GUID;
using CLSID = _GUID;
using IID = _GUID;

// 100-nanosecond steps since 1 January 1601, UTC.
struct _FILETIME {
    DWORD dwLowDateTime; // of 64 bits
    DWORD dwHighDateTime;
};
using FILETIME = _FILETIME;

static_assert(sizeof(WCHAR) == 2 && sizeof(LONG) == 4 && sizeof(GUID) == 16 && sizeof(FILETIME) == 8);
static_assert(sizeof(POINT) == 8 && sizeof(SIZE) == 8 && sizeof(RECT) == 16);

// The halves of 32 and 16 bits, and wholes made of halves.
constexpr WORD LOWORD(DWORD_PTR v) { return static_cast<WORD>(v & 0xFFFF); }
constexpr WORD HIWORD(DWORD_PTR v) { return static_cast<WORD>((v >> 16) & 0xFFFF); }
constexpr BYTE LOBYTE(DWORD_PTR v) { return static_cast<BYTE>(v & 0xFF); }
constexpr BYTE HIBYTE(DWORD_PTR v) { return static_cast<BYTE>((v >> 8) & 0xFF); }
constexpr DWORD MAKELONG(WORD low, WORD high)
{
    return static_cast<DWORD>(low) | static_cast<DWORD>(high) << 16;
}
constexpr WORD MAKEWORD(BYTE low, BYTE high) { return static_cast<WORD>(low | high << 8); }
// Each part from 0 to 255.
constexpr COLORREF RGB(BYTE r, BYTE g, BYTE b)
{
    return static_cast<COLORREF>(r) | static_cast<COLORREF>(g) << 8 | static_cast<COLORREF>(b) << 16;
}
