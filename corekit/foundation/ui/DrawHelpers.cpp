#include "corekit/foundation/ui/DrawHelpers.h"

void DrawSolidTriangle(HDC dc, CPoint a, CPoint b, CPoint c, unsigned long colour)
{
    const auto plain = static_cast<COLORREF>(colour);
    const HBRUSH brush = CreateSolidBrush(plain);
    const HPEN pen = CreatePen(PS_SOLID, 1, plain);
    const HGDIOBJ formerBrush = SelectObject(dc, brush);
    const HGDIOBJ formerPen = SelectObject(dc, pen);
    const POINT corners[] = {a, b, c};
    Polygon(dc, corners, 3);
    SelectObject(dc, formerPen);
    SelectObject(dc, formerBrush);
    DeleteObject(pen);
    DeleteObject(brush);
}
