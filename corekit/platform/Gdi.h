// Drawing of text and shapes: device contexts, bitmaps, fonts, pens and brushes, and the operations on them.
//
// Threads: an object belongs to one thread at a time. Whatever touches a font or text belongs to the
// user-interface thread, as its caches are not locked.
//
// Handles: a handle that is null, deleted, foreign or of the wrong kind is refused with
// ERROR_INVALID_HANDLE and the failure value told below; it never does harm. Up to 65,535 objects
// exist at a time.
//
// Pixels: every bitmap has 32 bits a pixel, 0xAARRGGBB in the machine's order, colour multiplied by
// alpha. A new bitmap is all 0. Fills and text leave the alpha that covers them, so a bitmap can serve
// as a key; who wants plain colour disregards the top byte.
//
// Text: a font is drawn unhinted and smoothed, at quarter-pixel positions within one call. Widths are
// summed exactly and rounded once, to the nearest pixel, at the end of a call.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstddef>
#include <span>

using HPEN = HGDIOBJ;

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
inline constexpr UINT GDI_ERROR = 0xFFFFFFFF;

// ---- Device contexts --------------------------------------------------------------------------

// A memory context, which draws into the bitmap selected into it; until then into nothing. `like` may
// be null. It starts with a font of the default face, a black pen of width 1, a white brush, black text,
// white opaque background, TA_LEFT | TA_TOP.
COREKIT_API HDC CreateCompatibleDC(HDC like);
// Lets go of what is selected; the objects themselves stay.
COREKIT_API BOOL DeleteDC(HDC dc);

// Selects an object and returns the one of its kind that was selected before, null on failure. A bitmap that
// another context holds is refused.
COREKIT_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
// Frees an object. A selected bitmap is refused; a selected font, pen or brush stays in force in its context
// until another is selected, and its handle ends here.
COREKIT_API BOOL DeleteObject(HGDIOBJ object);

// ---- Bitmaps ----------------------------------------------------------------------------------

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight; // negative: the first row in memory is the top one
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct RGBQUAD {
    BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
};
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
inline constexpr DWORD BI_RGB = 0;
inline constexpr UINT DIB_RGB_COLORS = 0;

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    void* bmBits; // null unless made by CreateDIBSection or CreateBitmapFromDib
};

// Width and height from 1 pixel, the whole up to 1 GiB; null with ERROR_INVALID_PARAMETER otherwise.
COREKIT_API HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
// A bitmap whose pixels the caller may read and write: *bits is the first row in memory, rows follow each
// other without padding, and the block lives as long as the bitmap. `dc` may be null. Only 32 bits, one
// plane and BI_RGB; `section` must be null and `offset` 0.
COREKIT_API HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                                     DWORD offset);
// A bitmap with the picture of a device-independent one: header, colour table and rows as in a .bmp file
// behind the file's own header. 1, 4, 8, 16, 24 or 32 bits, BI_RGB, the 40-byte header or one that continues
// it. All pixels become opaque; GetObjectA tells where they are, the top row first. Null with
// ERROR_INVALID_PARAMETER for anything else and for a block that ends too early.
COREKIT_API HBITMAP CreateBitmapFromDib(std::span<const std::byte> dib);
// Describes a bitmap: returns the bytes written, sizeof(BITMAP), which is also the answer for a null `out`;
// 0 if `size` is smaller or the object is not a bitmap.
COREKIT_API int GetObjectA(HGDIOBJ object, int size, void* out);
// Writes a bitmap as an opaque PNG file; alpha is disregarded. Replaces the file. False with a last error.
COREKIT_API BOOL SaveBitmapAsPng(HBITMAP bitmap, const char* path);

// ---- Shapes -----------------------------------------------------------------------------------

inline constexpr int PS_SOLID = 0;
inline constexpr int PS_NULL = 5; // draws nothing

COREKIT_API HBRUSH CreateSolidBrush(COLORREF colour);
// One pixel wide: 0 and 1 mean the same, and another width or style is refused with ERROR_INVALID_PARAMETER.
COREKIT_API HPEN CreatePen(int style, int width, COLORREF colour);

// Fills the polygon with the context's brush where an odd number of its windings lie, and draws its outline,
// points included, with the pen; the last point is joined to the first. Nothing is smoothed. Two points make
// a line; 0 with ERROR_INVALID_PARAMETER for fewer.
COREKIT_API BOOL Polygon(HDC dc, const POINT* points, int count);

// ---- Attributes of a context ------------------------------------------------------------------

inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

inline constexpr UINT TA_LEFT = 0;
inline constexpr UINT TA_RIGHT = 2;
inline constexpr UINT TA_CENTER = 6;
inline constexpr UINT TA_TOP = 0;
inline constexpr UINT TA_BOTTOM = 8;
inline constexpr UINT TA_BASELINE = 24;
inline constexpr UINT TA_RTLREADING = 256;

// The three colour calls answer CLR_INVALID for a bad handle.
COREKIT_API COLORREF SetTextColor(HDC dc, COLORREF colour);
COREKIT_API COLORREF GetTextColor(HDC dc);
COREKIT_API COLORREF SetBkColor(HDC dc, COLORREF colour);
// OPAQUE fills the cell of a text (its extent) before it is drawn. Returns the former mode, 0 on failure.
COREKIT_API int SetBkMode(HDC dc, int mode);
// One horizontal, one vertical value and TA_RTLREADING, or-ed. Returns the former, GDI_ERROR on failure.
COREKIT_API UINT SetTextAlign(HDC dc, UINT align);

// ---- Fonts ------------------------------------------------------------------------------------

inline constexpr int LF_FACESIZE = 32;
inline constexpr int FW_NORMAL = 400;
inline constexpr int FW_BOLD = 700;
inline constexpr DWORD ANSI_CHARSET = 0;
inline constexpr DWORD DEFAULT_CHARSET = 1;
inline constexpr DWORD TRUETYPE_FONTTYPE = 4;

struct LOGFONTA {
    LONG lfHeight, lfWidth, lfEscapement, lfOrientation, lfWeight;
    BYTE lfItalic, lfUnderline, lfStrikeOut, lfCharSet;
    BYTE lfOutPrecision, lfClipPrecision, lfQuality, lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE]; // a longer name is cut; CreateFontA finds the face by the cut name, too
};

struct TEXTMETRICA {
    LONG tmHeight; // tmAscent + tmDescent, the height of a line's cell
    LONG tmAscent, tmDescent, tmInternalLeading, tmExternalLeading;
    LONG tmAveCharWidth, tmMaxCharWidth, tmWeight, tmOverhang;
    LONG tmDigitizedAspectX, tmDigitizedAspectY;
    BYTE tmFirstChar, tmLastChar, tmDefaultChar, tmBreakChar;
    BYTE tmItalic, tmUnderlined, tmStruckOut, tmPitchAndFamily, tmCharSet;
};

struct FONTSIGNATURE {
    DWORD fsUsb[4]; // Unicode subset bits, as the face's OS/2 table has them
    DWORD fsCsb[2]; // code page bits
};

// A font of the face with this name, compared without regard to case (UTF-8); an unknown or empty name
// gives the default face, and GetTextFaceA tells which. A positive height is that of the cell, exactly
// (winAscent + winDescent); a negative one that of the em; 0 stands for an em of 16 pixels. A non-zero
// width is the average character width that the face is stretched to. Weights from 600 are bold.
// Character set, precisions, quality and pitch do not choose between faces here.
// Null if the em is above 4096 pixels, an angle is not 0 or the toolkit is not running.
COREKIT_API HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight,
                              DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                              DWORD outPrecision, DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily,
                              const char* face);

// Metrics of the selected font in pixels: ascent is rounded to the nearest pixel, and descent completes the
// cell height asked for or, with an em height, is rounded likewise; widths are rounded to the nearest.
COREKIT_API BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
// Copies the real face name, cut to `size` bytes with its zero; returns the bytes copied, or needed if
// `face` is null, the zero counted. 0 on failure.
COREKIT_API int GetTextFaceA(HDC dc, int size, char* face);
// Fills `signature` (may be null) from the selected face, and returns its character set, DEFAULT_CHARSET if
// it names none or on failure; the signature then is all 0. `flags` must be 0.
COREKIT_API int GetTextCharsetInfo(HDC dc, FONTSIGNATURE* signature, DWORD flags);

// Makes the faces of a font file known to this process, as if they were installed, until it ends; the
// file itself may go. Returns the number of faces that are new; 0 with a last error if the file is no font or
// the toolkit is not running.
COREKIT_API int AddFontResourceA(const char* path);

using FONTENUMPROCA = int (*)(const LOGFONTA*, const TEXTMETRICA*, DWORD type, LPARAM);
// Calls back for each style of the face named, with its metrics at an em of 32 pixels; for a null or empty
// name once for each face of the machine, which opens none of them: the metrics are all 0 then, and the font
// has little more than its name. Only scalable faces are told, so type has TRUETYPE_FONTTYPE set. Ends when
// the callback answers 0, and returns its last answer; 0 if there is nothing to tell or the toolkit is not
// running.
COREKIT_API int EnumFontsA(HDC dc, const char* face, FONTENUMPROCA callback, LPARAM parameter);

// ---- Text -------------------------------------------------------------------------------------

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
