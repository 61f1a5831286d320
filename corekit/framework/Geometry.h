// Points, sizes and rectangles with arithmetic, laid out as the plain structures they extend.
//
// Coordinates are 32-bit and wrap on overflow. A rectangle holds its left and top edge and not its right
// and bottom edge; it is empty when it has no area.
//
//     const CRect room(CPoint(10, 20), CSize(300, 200)); // edges 10, 20, 310, 220
//     CRect inner = room;
//     inner.DeflateRect(4, 4);
//     const bool hit = inner.PtInRect(mouse);
#pragma once

#include "corekit/platform/Types.h"

#include <algorithm>

class CPoint;
class CRect;

namespace corekit::detail {
constexpr LONG wrapAdd(LONG a, LONG b) // modulo 2^32
{
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}
constexpr LONG wrapSub(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}
} // namespace corekit::detail

// A width and a height. Units are the caller's: pixels on windows and contexts.
class CSize : public SIZE {
public:
    constexpr CSize() : SIZE{0, 0} {} // 0 by 0
    constexpr CSize(int width, int height) : SIZE{width, height} {}
    constexpr CSize(SIZE size) : SIZE(size) {}
    constexpr explicit CSize(POINT point) : SIZE{point.x, point.y} {} // x becomes the width

    constexpr void SetSize(int width, int height) { *this = CSize(width, height); }
    constexpr CSize operator+(SIZE s) const
    {
        return {corekit::detail::wrapAdd(cx, s.cx), corekit::detail::wrapAdd(cy, s.cy)};
    }
    constexpr CSize operator-(SIZE s) const
    {
        return {corekit::detail::wrapSub(cx, s.cx), corekit::detail::wrapSub(cy, s.cy)};
    }
    constexpr CSize operator-() const { return CSize() - *this; } // mirrored
    constexpr CSize& operator+=(SIZE s) { return *this = *this + s; }
    constexpr CSize& operator-=(SIZE s) { return *this = *this - s; }
    friend constexpr bool operator==(const CSize& a, const CSize& b) { return a.cx == b.cx && a.cy == b.cy; }
};

// A place, x to the right and y downward.
class CPoint : public POINT {
public:
    constexpr CPoint() : POINT{0, 0} {}
    constexpr CPoint(int px, int py) : POINT{px, py} {}
    constexpr CPoint(POINT point) : POINT(point) {}
    constexpr explicit CPoint(SIZE size) : POINT{size.cx, size.cy} {} // the width becomes x
    // From a message argument: x in the low word, y in the high word, both signed.
    constexpr explicit CPoint(LPARAM packed)
        : POINT{static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(packed))),
                static_cast<SHORT>(HIWORD(static_cast<DWORD_PTR>(packed)))}
    {
    }

    constexpr void SetPoint(int px, int py) { *this = CPoint(px, py); }
    // Moves the point itself.
    constexpr void Offset(int dx, int dy) { *this += CSize(dx, dy); }
    constexpr void Offset(POINT by) { Offset(by.x, by.y); } // likewise
    constexpr void Offset(SIZE by) { Offset(by.cx, by.cy); }
    // A point moved by a size or a point is a point; the difference of two points is a size.
    constexpr CPoint operator+(SIZE s) const
    {
        return {corekit::detail::wrapAdd(x, s.cx), corekit::detail::wrapAdd(y, s.cy)};
    }
    constexpr CPoint operator-(SIZE s) const
    {
        return {corekit::detail::wrapSub(x, s.cx), corekit::detail::wrapSub(y, s.cy)};
    }
    constexpr CPoint operator+(POINT p) const { return *this + SIZE{p.x, p.y}; }
    constexpr CSize operator-(POINT p) const { return CSize(*this - SIZE{p.x, p.y}); }
    constexpr CPoint operator-() const { return CPoint() - SIZE{x, y}; }
    constexpr CPoint& operator+=(SIZE s) { return *this = *this + s; }
    constexpr CPoint& operator-=(SIZE s) { return *this = *this - s; }
    constexpr CPoint& operator+=(POINT p) { return *this = *this + p; }
    constexpr CPoint& operator-=(POINT p) { return *this = *this - SIZE{p.x, p.y}; }
    friend constexpr bool operator==(const CPoint& a, const CPoint& b) { return a.x == b.x && a.y == b.y; }
};

// A rectangle by its edges. Pointers are never null, and arguments may be this rectangle, unless said
// otherwise.
class CRect : public RECT {
public:
    constexpr CRect() : RECT{0, 0, 0, 0} {} // all edges 0
    constexpr CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    constexpr CRect(const RECT& rect) : RECT(rect) {}
    constexpr explicit CRect(const RECT* rect) : RECT(*rect) {}
    // The opposite corner is `origin` + `size`.
    constexpr CRect(POINT origin, SIZE size) : CRect(CPoint(origin), CPoint(origin) + size) {}
    constexpr CRect(POINT topLeft, POINT bottomRight)
        : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {
    }

    // For calls that take a RECT; the pointer is good as long as the object.
    operator RECT*() { return this; }
    operator const RECT*() const { return this; }

    // Below 0 while left and right are the wrong way round.
    constexpr int Width() const { return corekit::detail::wrapSub(right, left); }
    constexpr int Height() const { return corekit::detail::wrapSub(bottom, top); } // likewise
    constexpr CSize Size() const { return {Width(), Height()}; }
    constexpr CPoint TopLeft() const { return {left, top}; } // the corner that belongs to the rectangle
    constexpr CPoint BottomRight() const { return {right, bottom}; } // the corner that does not
    // Half-way between the edges, a half rounded towards 0; does not overflow.
    constexpr CPoint CenterPoint() const
    {
        return {static_cast<LONG>((static_cast<LONGLONG>(left) + right) / 2),
                static_cast<LONG>((static_cast<LONGLONG>(top) + bottom) / 2)};
    }

    // Without area, or edges the wrong way round.
    constexpr bool IsRectEmpty() const { return left >= right || top >= bottom; }
    // All edges are 0; an empty one need not be.
    constexpr bool IsRectNull() const { return *this == CRect(); }
    // On the left or upper edge yes, on the right or lower edge no.
    constexpr bool PtInRect(POINT p) const
    {
        return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
    }

    // In any order of edges; nothing is swapped.
    constexpr void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    constexpr void SetRectEmpty() { *this = CRect(); }
    constexpr void CopyRect(const RECT* rect) { *this = CRect(rect); } // not null
    // The same edges, also where both are empty.
    constexpr bool EqualRect(const RECT* rect) const { return *this == CRect(rect); }

    // Moves each edge outwards; the four-argument forms take left, top, right, bottom.
    constexpr void InflateRect(int l, int t, int r, int b) { *this = Moved(Minus(l), Minus(t), r, b); }
    constexpr void InflateRect(int dx, int dy) { InflateRect(dx, dy, dx, dy); }
    constexpr void InflateRect(SIZE by) { InflateRect(by.cx, by.cy); }
    constexpr void InflateRect(const RECT* by) { InflateRect(by->left, by->top, by->right, by->bottom); }
    // Moves each edge inwards; more than there is leaves edges the wrong way round.
    constexpr void DeflateRect(int l, int t, int r, int b) { *this = Moved(l, t, Minus(r), Minus(b)); }
    constexpr void DeflateRect(int dx, int dy) { DeflateRect(dx, dy, dx, dy); }
    constexpr void DeflateRect(SIZE by) { DeflateRect(by.cx, by.cy); }
    constexpr void DeflateRect(const RECT* by) { DeflateRect(by->left, by->top, by->right, by->bottom); }
    constexpr void OffsetRect(int dx, int dy) { *this = Moved(dx, dy, dx, dy); } // keeps the size
    constexpr void OffsetRect(POINT by) { OffsetRect(by.x, by.y); }
    constexpr void OffsetRect(SIZE by) { OffsetRect(by.cx, by.cy); }
    // Puts the upper left corner there and keeps the size.
    constexpr void MoveToXY(int px, int py)
    {
        OffsetRect(corekit::detail::wrapSub(px, left), corekit::detail::wrapSub(py, top));
    }
    constexpr void MoveToXY(POINT p) { MoveToXY(p.x, p.y); } // the same

    // Swaps edges that are the wrong way round.
    constexpr void NormalizeRect()
    {
        if (left > right) std::swap(left, right);
        if (top > bottom) std::swap(top, bottom);
    }

    // The common part; empty and false if there is none. The arguments may be this rectangle.
    constexpr bool IntersectRect(const RECT* a, const RECT* b)
    {
        const CRect common(std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                           std::min(a->bottom, b->bottom));
        // Edges that only touch have nothing in common.
        const bool some = !CRect(a).IsRectEmpty() && !CRect(b).IsRectEmpty() && !common.IsRectEmpty();
        *this = some ? common : CRect();
        return some;
    }
    // The smallest rectangle round both; an empty one counts for nothing. False if both are empty.
    constexpr bool UnionRect(const RECT* a, const RECT* b)
    {
        const CRect first(a), second(b);
        if (first.IsRectEmpty() && second.IsRectEmpty())
            *this = CRect(); // nothing on either side
        else if (first.IsRectEmpty())
            *this = second;
        else if (second.IsRectEmpty())
            *this = first;
        else
            *this = CRect(std::min(first.left, second.left), std::min(first.top, second.top),
                          std::max(first.right, second.right), std::max(first.bottom, second.bottom));
        return !IsRectEmpty();
    }

    constexpr void operator+=(POINT by) { OffsetRect(by); }
    constexpr void operator+=(SIZE by) { OffsetRect(by); }
    constexpr void operator-=(POINT by) { *this = Moved(Minus(by.x), Minus(by.y), Minus(by.x), Minus(by.y)); }
    constexpr void operator-=(SIZE by)
    {
        *this = Moved(Minus(by.cx), Minus(by.cy), Minus(by.cx), Minus(by.cy));
    }
    // As IntersectRect and UnionRect; an empty side gives an empty common part, and the other one as union.
    constexpr void operator&=(const RECT& other) { IntersectRect(this, &other); }
    constexpr void operator|=(const RECT& other) { UnionRect(this, &other); }
    // The common part and the union as rectangles of their own.
    constexpr CRect operator&(const RECT& other) const
    {
        CRect result;
        result.IntersectRect(this, &other);
        return result;
    }
    constexpr CRect operator|(const RECT& other) const
    {
        CRect result;
        result.UnionRect(this, &other);
        return result;
    }
    // The rectangle moved; the size stays.
    constexpr CRect operator+(POINT by) const { return Moved(by.x, by.y, by.x, by.y); }
    constexpr CRect operator+(SIZE by) const { return Moved(by.cx, by.cy, by.cx, by.cy); }
    constexpr CRect operator-(POINT by) const
    {
        return Moved(Minus(by.x), Minus(by.y), Minus(by.x), Minus(by.y));
    }
    constexpr CRect operator-(SIZE by) const
    {
        return Moved(Minus(by.cx), Minus(by.cy), Minus(by.cx), Minus(by.cy));
    }
    friend constexpr bool operator==(const CRect& a, const CRect& b)
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }

private:
    // Wide enough for the negative of the lowest number.
    static constexpr LONGLONG Minus(LONG v) { return -static_cast<LONGLONG>(v); }
    // Each edge by its distance, modulo 2^32.
    constexpr CRect Moved(LONGLONG l, LONGLONG t, LONGLONG r, LONGLONG b) const
    {
        return {static_cast<LONG>(left + l), static_cast<LONG>(top + t), static_cast<LONG>(right + r),
                static_cast<LONG>(bottom + b)};
    }
};

// Laid out as POINT, SIZE and RECT.
static_assert(sizeof(CPoint) == 8 && sizeof(CSize) == 8 && sizeof(CRect) == 16);
