// Bitmaps, and copying from one context to another.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstddef>
#include <span>

// The header of a device-independent bitmap.
struct BITMAPINFOHEADER {
    DWORD biSize;         // 40
    LONG biWidth;         // pixels
    LONG biHeight;        // negative: the first row in memory is the top one
    WORD biPlanes;        // 1
    WORD biBitCount;      // bits a pixel
    DWORD biCompression;  // BI_RGB
    DWORD biSizeImage;    // may be 0
    LONG biXPelsPerMeter; // not used, as the next one
    LONG biYPelsPerMeter;
    DWORD biClrUsed;      // entries of the colour table; 0: all that the bits can name
    DWORD biClrImportant; // not used
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct RGBQUAD {
    BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved; // a colour of the table; the fourth byte is 0
};
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1]; // as many as the header says
};
inline constexpr DWORD BI_RGB = 0;        // rows as they are, not compressed
inline constexpr UINT DIB_RGB_COLORS = 0; // the table holds colours; the only usage here

// What GetObjectA tells.
struct BITMAP {
    LONG bmType;
    LONG bmWidth; // units, as the next one
    LONG bmHeight;
    LONG bmWidthBytes; // of a row, padded to two bytes
    WORD bmPlanes;     // 1
    WORD bmBitsPixel;  // 1 or 32, or what a file had
    void* bmBits;      // null unless made by CreateDIBSection or CreateBitmapFromDib
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
// Writes a bitmap as an opaque PNG file; alpha is disregarded. Replaces the file. False with a last error.
COREKIT_API BOOL SaveBitmapAsPng(HBITMAP bitmap, const char* path);

// A bitmap of 1 or 32 bits a pixel, one plane. Rows of 1 bit are padded to two bytes; a bit that is 0 stands
// for the text colour and one that is 1 for the background colour of the context that it is drawn to. `bits`
// may be null.
COREKIT_API HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);

// ---- Copying ----------------------------------------------------------------------------------

// Raster operations: what becomes of the destination D with the source S and the brush P. Every code of the
// documented form is understood; its third byte is the table of results.
inline constexpr DWORD SRCCOPY = 0x00CC0020;    // S
inline constexpr DWORD SRCPAINT = 0x00EE0086;   // D or S
inline constexpr DWORD SRCAND = 0x008800C6;     // D and S
inline constexpr DWORD SRCINVERT = 0x00660046;  // D xor S
inline constexpr DWORD NOTSRCCOPY = 0x00330008; // not S
inline constexpr DWORD PATCOPY = 0x00F00021;    // P
inline constexpr DWORD PATINVERT = 0x005A0049;  // D xor P
inline constexpr DWORD DSTINVERT = 0x00550009;  // not D
inline constexpr DWORD BLACKNESS = 0x00000042;  // all 0
inline constexpr DWORD WHITENESS = 0x00FF0062;  // all 1

inline constexpr int COLORONCOLOR = 3; // the nearest pixel
inline constexpr int HALFTONE = 4;     // smoothed

// Both contexts may be the same, the areas may overlap. What the source does not have is not drawn. SRCCOPY
// takes alpha along, all others leave that of the destination.
COREKIT_API BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY,
                        DWORD operation);
// A width or height below 0 mirrors.
COREKIT_API BOOL StretchBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY,
                            int fromWidth, int fromHeight, DWORD operation);
// How bitmaps are enlarged and reduced, COLORONCOLOR at first. Returns the former mode, 0 on failure.
COREKIT_API int SetStretchBltMode(HDC dc, int mode);
// The brush alone: PATCOPY, PATINVERT, DSTINVERT, BLACKNESS, WHITENESS. False for an operation with a source.
COREKIT_API BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);
