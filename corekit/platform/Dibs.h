// Device-independent bitmaps on contexts: pictures that lie in memory as a header, a colour table and rows.
//
// 1, 4, 8, 16 (five bits a colour), 24 or 32 bits, BI_RGB. Rows are padded to four bytes; the lowest comes
// first unless the height is below 0. Coordinates in such a picture count from its first row in memory, so
// from its lower left corner as a rule. A number that the colour table lacks is black. A call with a header
// that makes no sense fails with ERROR_INVALID_PARAMETER; the memory behind it is the caller's to answer for:
// the header, its colours, and as many whole rows as the call names.
#pragma once

#include "corekit/platform/GdiBitmaps.h"

// Draws the part of width by height at (fromX, fromY). `bits` begins with row `firstRow`, counted in memory,
// and has `rowCount` of them. Returns rowCount, 0 on failure.
COREKIT_API int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int fromX, int fromY,
                                  UINT firstRow, UINT rowCount, const void* bits, const BITMAPINFO* info,
                                  UINT usage);

// Draws the part into a rectangle of another size; a size below 0 mirrors. Returns the picture's height, 0 on
// failure.
COREKIT_API int StretchDIBits(HDC dc, int x, int y, int width, int height, int fromX, int fromY,
                              int fromWidth, int fromHeight, const void* bits, const BITMAPINFO* info,
                              UINT usage, DWORD operation);

// Writes rows of a bitmap from `firstRow` on, counted in memory, in the form that the header asks for, and
// the colour table for 8 bits and less: the bitmap's own where it has that many bits, else a common one.
// Without `bits` only the header is filled in. Returns the number of rows, with no bits 1, 0 on failure. `dc`
// may be null.
COREKIT_API int GetDIBits(HDC dc, HBITMAP bitmap, UINT firstRow, UINT rowCount, void* bits, BITMAPINFO* info,
                          UINT usage);

// A bitmap from a resource of the form that CreateBitmapFromDib reads, whatever the instance; GetObjectA
// tells the bits a pixel that it had there. For the caller to delete; null if there is none.
COREKIT_API HBITMAP LoadBitmapA(HINSTANCE instance, const char* name);

namespace corekit {

// How a picture lies in memory, by its header.
struct DibLayout {
    int width = 0, height = 0; // above 0
    bool topDown = false;
    unsigned bits = 0;
    std::size_t colours = 0; // rows of the colour table in front of the pixels
    std::size_t stride = 0;  // bytes from row to row

    std::size_t dataSize() const { return stride * static_cast<std::size_t>(height); }
};

// False for a header of less than 40 bytes, of a compressed picture, or with more than 2 GiB of rows.
COREKIT_API bool ReadDibLayout(const BITMAPINFOHEADER& header, DibLayout& layout);

} // namespace corekit
