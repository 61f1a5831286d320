// Drawing and measuring text.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr UINT ETO_OPAQUE = 0x2;            // fill the rectangle with the background colour first
inline constexpr UINT ETO_CLIPPED = 0x4;           // draw nothing outside the rectangle
inline constexpr UINT ETO_RTLREADING = 0x80;       // the base direction is right to left
inline constexpr UINT ETO_IGNORELANGUAGE = 0x1000; // units one to one, left to right, nothing joined

// The size that ExtTextOutW takes for the text when it gets the same flags in `options`; height is that of
// the font's cell. Up to 65,535 units, shaped text up to 8,192.
COREKIT_API BOOL GetTextExtentPoint32W(HDC dc, const WCHAR* text, int count, SIZE* size, UINT options = 0);

// Draws text at (x, y) as the alignment says. Without ETO_IGNORELANGUAGE it is logical text: it is ordered,
// joined and its marks are placed as its scripts ask for. With it each unit is its own glyph, and controls
// and surrogates, too, show what the face has for them. Units that the face lacks show its missing glyph; no
// other face steps in. `distances`, if given, has `count` advances in pixels and places the units one to one.
// A null `rect` switches off the two flags that need one. Text of 0 units fills the background only.
COREKIT_API BOOL ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, const WCHAR* text,
                             UINT count, const int* distances = nullptr);

// The same in the active code page.
COREKIT_API BOOL GetTextExtentPoint32A(HDC dc, const char* text, int count, SIZE* size);
COREKIT_API BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, const char* text,
                             UINT count, const int* distances = nullptr);
// Without a rectangle and options.
COREKIT_API BOOL TextOutA(HDC dc, int x, int y, const char* text, int count);
COREKIT_API BOOL TextOutW(HDC dc, int x, int y, const WCHAR* text, int count);

// ---- Text in a rectangle ----------------------------------------------------------------------

inline constexpr UINT DT_TOP = 0;
inline constexpr UINT DT_LEFT = 0;
inline constexpr UINT DT_CENTER = 0x1;            // each line in the middle
inline constexpr UINT DT_RIGHT = 0x2;             // each line at the right
inline constexpr UINT DT_VCENTER = 0x4;           // with DT_SINGLELINE only, like the next
inline constexpr UINT DT_BOTTOM = 0x8;            // at the lower edge
inline constexpr UINT DT_WORDBREAK = 0x10;        // lines break between words where they would be too wide
inline constexpr UINT DT_SINGLELINE = 0x20;       // line ends are drawn as blanks
inline constexpr UINT DT_EXPANDTABS = 0x40;       // to multiples of eight average characters
inline constexpr UINT DT_NOCLIP = 0x100;          // also outside the rectangle
inline constexpr UINT DT_EXTERNALLEADING = 0x200; // lines stand further apart by the font's leading
inline constexpr UINT DT_CALCRECT = 0x400;        // draws nothing, sets the rectangle's right and bottom edge
inline constexpr UINT DT_NOPREFIX = 0x800;        // "&" is a character like others
inline constexpr UINT DT_EDITCONTROL = 0x2000; // with DT_WORDBREAK: words too wide for a line break anywhere
inline constexpr UINT DT_PATH_ELLIPSIS = 0x4000;  // cut in the middle, the last part of a path is kept
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;   // what is too wide ends with "..."
inline constexpr UINT DT_RTLREADING = 0x20000;    // the base direction is right to left
inline constexpr UINT DT_WORD_ELLIPSIS = 0x40000; // as DT_END_ELLIPSIS, for each line
inline constexpr UINT DT_HIDEPREFIX = 0x100000;   // "&" is taken out and underlines nothing

// Draws text in the rectangle, and returns the height of the text, or with DT_VCENTER and DT_BOTTOM the
// distance of its lower edge from the rectangle's upper one; 0 on failure. "&" underlines the character
// behind it, "&&" is one "&". A count below 0 means up to the terminating zero.
COREKIT_API int DrawTextW(HDC dc, const WCHAR* text, int count, RECT* rect, UINT format);
COREKIT_API int DrawTextA(HDC dc, const char* text, int count, RECT* rect, UINT format);
