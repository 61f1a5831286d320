// Pens, brushes, and the shapes that are drawn with them.
//
// Without smoothing, and through the clip. A shape has the context's pen round it and its brush within.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HPEN = HGDIOBJ;

// ---- Pens and brushes -------------------------------------------------------------------------

inline constexpr int PS_SOLID = 0; // one stroke
inline constexpr int PS_DASH = 1;  // dashes, dots and both: of pens one unit wide
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;
inline constexpr int PS_NULL = 5;        // draws nothing
inline constexpr int PS_INSIDEFRAME = 6; // solid, and within the rectangle of a shape whatever the width

// 0 and 1 wide mean the same. Only pens of that width are dashed; broader ones are solid, with round ends.
// Null with ERROR_INVALID_PARAMETER for another style and for a width below 0 or above 4,096.
COREKIT_API HPEN CreatePen(int style, int width, COLORREF colour);

inline constexpr int HS_HORIZONTAL = 0; // lines from left to right
inline constexpr int HS_VERTICAL = 1;   // lines from top to bottom
inline constexpr int HS_FDIAGONAL = 2;  // falls to the right
inline constexpr int HS_BDIAGONAL = 3;  // rises to the right
inline constexpr int HS_CROSS = 4;      // both of these
inline constexpr int HS_DIAGCROSS = 5;  // both diagonals

COREKIT_API HBRUSH CreateSolidBrush(COLORREF colour);
// Lines eight pixels apart; with OPAQUE the ground has the background colour.
COREKIT_API HBRUSH CreateHatchBrush(int hatch, COLORREF colour);
// Repeats the bitmap from the corner of the surface on. The bitmap may be changed or deleted afterwards.
COREKIT_API HBRUSH CreatePatternBrush(HBITMAP bitmap);

// Kinds of brushes, as GetObjectA tells them.
inline constexpr UINT BS_SOLID = 0;
inline constexpr UINT BS_NULL = 1;
inline constexpr UINT BS_HATCHED = 2;
inline constexpr UINT BS_PATTERN = 3;

// What GetObjectA tells of pens and brushes.
struct LOGPEN {
    UINT lopnStyle;     // PS_
    POINT lopnWidth;    // in x
    COLORREF lopnColor; // 0x00BBGGRR
};
struct LOGBRUSH {
    UINT lbStyle;     // BS_
    COLORREF lbColor; // of a solid or hatched one
    UINT_PTR lbHatch; // HS_
};

// ---- Areas ------------------------------------------------------------------------------------

// The three take a brush, or the number of a system colour plus 1 in its place. The right and bottom edge are
// not part of the rectangle; one that is empty draws nothing.
COREKIT_API int FillRect(HDC dc, const RECT* rect, HBRUSH brush);
// A frame one unit wide.
COREKIT_API int FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
COREKIT_API BOOL InvertRect(HDC dc, const RECT* rect);

// ---- Lines and shapes -------------------------------------------------------------------------

// `before` may be null.
COREKIT_API BOOL MoveToEx(HDC dc, int x, int y, POINT* before);
// A line from the current position up to and without (x, y), which becomes the position.
COREKIT_API BOOL LineTo(HDC dc, int x, int y);
COREKIT_API BOOL Polyline(HDC dc, const POINT* points, int count);
// Fills the polygon with the context's brush where an odd number of its windings lie, and draws its outline,
// points included, with the pen; the last point is joined to the first. Two points make a line; 0 with
// ERROR_INVALID_PARAMETER for fewer.
COREKIT_API BOOL Polygon(HDC dc, const POINT* points, int count);
// Within the rectangle, whose right and bottom edge are not part of it; a broad pen reaches half its width
// beyond.
COREKIT_API BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
COREKIT_API BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);

// The colour that was drawn before; CLR_INVALID outside of the clip.
COREKIT_API COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour);
COREKIT_API COLORREF GetPixel(HDC dc, int x, int y);
