// Small drawings.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/platform/Gdi.h"

// Draws the triangle, its corners and sides included, in one colour. The context's pen and brush are as
// before.
COREKIT_API void DrawSolidTriangle(HDC dc, CPoint a, CPoint b, CPoint c, unsigned long colour);
