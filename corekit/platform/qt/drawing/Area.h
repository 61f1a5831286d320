// A rectangle of pixels, with edges wide enough that no caller's coordinates overflow.
#pragma once

#include "corekit/platform/Types.h"

#include <algorithm>
#include <cstdint>

namespace corekit::detail {

// Edges in pixels, right and bottom excluded.
struct Area {
    std::int64_t left, top, right, bottom;

    bool isEmpty() const { return left >= right || top >= bottom; }
    std::int64_t width() const { return right - left; }
    std::int64_t height() const { return bottom - top; }
    Area cut(const Area& by) const
    {
        return {std::max(left, by.left), std::max(top, by.top), std::min(right, by.right),
                std::min(bottom, by.bottom)};
    }
    bool covers(const Area& inner) const
    {
        return inner.left >= left && inner.right <= right && inner.top >= top && inner.bottom <= bottom;
    }
};

inline Area areaOf(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

inline Area joined(const Area& a, const Area& b)
{
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

// With edges in order.
inline Area orderedArea(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2)
{
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

} // namespace corekit::detail
