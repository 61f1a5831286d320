// Regions, and the part of a context that may be drawn on.
//
// A region is a set of whole units. Drawing is cut to the clip of its context: at first the whole bitmap, or
// what is to be painted of a window. The clip of a caller narrows that and never widens it.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HRGN = HGDIOBJ;

// What the calls below answer.
inline constexpr int ERROR_REGION = 0;  // a failure
inline constexpr int NULLREGION = 1;    // nothing in it
inline constexpr int SIMPLEREGION = 2;  // one rectangle
inline constexpr int COMPLEXREGION = 3; // several rectangles

// How two are combined.
inline constexpr int RGN_AND = 1;  // what is in both
inline constexpr int RGN_OR = 2;   // what is in either
inline constexpr int RGN_XOR = 3;  // what is in one of them
inline constexpr int RGN_DIFF = 4; // the first without the second
inline constexpr int RGN_COPY = 5; // the first

// The rectangle, edges in any order. DeleteObject frees it.
COREKIT_API HRGN CreateRectRgn(int left, int top, int right, int bottom);
COREKIT_API BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom);
// Sets `to`, which exists, and may be one of the others.
COREKIT_API int CombineRgn(HRGN to, HRGN first, HRGN second, int mode);
// Moves it; answers its complexity.
COREKIT_API int OffsetRgn(HRGN region, int dx, int dy);
// The smallest rectangle round it, all 0 for an empty one.
COREKIT_API int GetRgnBox(HRGN region, RECT* box);
// Whether both hold the same units.
COREKIT_API BOOL EqualRgn(HRGN a, HRGN b);
// Whether the unit is in it, or any unit of the rectangle.
COREKIT_API BOOL PtInRegion(HRGN region, int x, int y);
COREKIT_API BOOL RectInRegion(HRGN region, const RECT* rect);
// With the brush alone; the region counts from the origin of the context.
COREKIT_API BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush);

// A copy of the region, counted from the surface's corner, becomes the clip; null takes the caller's clip
// off.
COREKIT_API int SelectClipRgn(HDC dc, HRGN region);
// The caller's clip combined with the region.
COREKIT_API int ExtSelectClipRgn(HDC dc, HRGN region, int mode);
// Narrows the clip to the rectangle, or takes it out; edges count from the origin.
COREKIT_API int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
COREKIT_API int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
// The smallest rectangle round all that can be drawn on.
COREKIT_API int GetClipBox(HDC dc, RECT* box);
// Whether anything there can be drawn on.
COREKIT_API BOOL RectVisible(HDC dc, const RECT* rect);
COREKIT_API BOOL PtVisible(HDC dc, int x, int y);
