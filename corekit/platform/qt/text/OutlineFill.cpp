#include "corekit/platform/qt/text/OutlineFill.h"

#include "corekit/platform/qt/text/GlyphMask.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <QPainterPath>

namespace corekit::detail {

namespace {

// Signed areas of a band of rows. The running sum along a row is the winding number, in fractions.
class AreaBand {
public:
    AreaBand(int width, int rows)
        : m_width(width), m_rows(rows), m_stride(static_cast<std::size_t>(width) + 2),
          m_areas(m_stride * static_cast<std::size_t>(rows))
    {
    }

    const float* row(int y) const { return m_areas.data() + m_stride * static_cast<std::size_t>(y); }

    // An edge in the band's own coordinates. What lies left of it counts from the first column on, what lies
    // right of it does not count.
    void add(float x0, float y0, float x1, float y1)
    {
        if (y0 == y1) return;
        const float sign = y0 < y1 ? 1.0f : -1.0f;
        if (y0 > y1) {
            std::swap(x0, x1);
            std::swap(y0, y1);
        }
        const float slope = (x1 - x0) / (y1 - y0);
        const float top = std::max(y0, 0.0f), bottom = std::min(y1, static_cast<float>(m_rows));
        float x = x0 + (top - y0) * slope;
        float y = top;
        while (y < bottom) {
            const float next = std::min(std::floor(y) + 1, bottom);
            const float nextX = next == y1 ? x1 : x0 + (next - y0) * slope;
            addClipped(static_cast<int>(y), x, nextX, (next - y) * sign);
            x = nextX;
            y = next;
        }
    }

private:
    // One row's part of an edge, `height` of it, between two columns; cut at both sides of the band.
    void addClipped(int row, float a, float b, float height)
    {
        const float right = static_cast<float>(m_width);
        if (a > b) std::swap(a, b);
        if (a >= right) return;
        float* const areas = m_areas.data() + m_stride * static_cast<std::size_t>(row);
        if (b <= 0) {
            areas[0] += height;
            return;
        }
        const float perColumn = b > a ? height / (b - a) : 0;
        if (a < 0) {
            areas[0] += -a * perColumn;
            height -= -a * perColumn;
            a = 0;
        }
        if (b > right) {
            height -= (b - right) * perColumn;
            b = right;
        }
        addSpan(areas, a, b, height);
    }

    static void addSpan(float* areas, float a, float b, float height)
    {
        const int first = static_cast<int>(a), last = static_cast<int>(b);
        if (first == last) {
            const float outside = (a + b) / 2 - static_cast<float>(first);
            areas[first] += height * (1 - outside);
            areas[first + 1] += height * outside;
            return;
        }
        const float perColumn = height / (b - a);
        // In every column the part of the edge inside it covers what lies to its right.
        for (int column = first; column <= last; ++column) {
            const float from = std::max(a, static_cast<float>(column));
            const float to = std::min(b, static_cast<float>(column + 1));
            const float part = (to - from) * perColumn;
            const float outside = (from + to) / 2 - static_cast<float>(column);
            areas[column] += part * (1 - outside);
            areas[column + 1] += part * outside;
        }
    }

    int m_width, m_rows;
    std::size_t m_stride;
    std::vector<float> m_areas;
};

constexpr std::size_t bandFloats = std::size_t{1} << 20;

} // namespace

void OutlineFill::add(const QPainterPath& path, const QTransform& place)
{
    const auto pointAt = [&](int i) {
        const QPointF p = place.map(QPointF(path.elementAt(i).x, path.elementAt(i).y));
        return Point{static_cast<float>(p.x()), static_cast<float>(p.y())};
    };
    Point start{}, now{};
    const auto close = [&] {
        if (now.x != start.x || now.y != start.y) m_edges.push_back({now, start});
    };
    for (int i = 0; i < path.elementCount(); ++i) {
        const Point p = pointAt(i);
        switch (path.elementAt(i).type) {
        case QPainterPath::MoveToElement:
            close();
            start = now = p;
            break;
        case QPainterPath::CurveToElement:
            if (i + 2 >= path.elementCount()) break;
            addCurve(now, p, pointAt(i + 1), pointAt(i + 2));
            now = pointAt(i + 2);
            i += 2;
            break;
        default:
            m_edges.push_back({now, p});
            now = p;
        }
    }
    close();
}

void OutlineFill::addCurve(Point a, Point b, Point c, Point d)
{
    // The second differences bound how far the curve strays from its chords.
    const float bend = std::max(std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y),
                                std::hypot(b.x - 2 * c.x + d.x, b.y - 2 * c.y + d.y));
    const int pieces = std::clamp(static_cast<int>(std::ceil(std::sqrt(bend * 8))), 1, 64);
    Point from = a;
    for (int i = 1; i <= pieces; ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(pieces), u = 1 - t;
        const float wa = u * u * u, wb = 3 * u * u * t, wc = 3 * u * t * t, wd = t * t * t;
        const Point to = i == pieces ? d
                                     : Point{wa * a.x + wb * b.x + wc * c.x + wd * d.x,
                                             wa * a.y + wb * b.y + wc * c.y + wd * d.y};
        m_edges.push_back({from, to});
        from = to;
    }
}

void OutlineFill::measure(GlyphMask& mask) const
{
    constexpr float far = std::numeric_limits<float>::max();
    Point least{far, far}, most{-far, -far};
    for (const Edge& e : m_edges) { // closed outlines: every point is the start of an edge
        least = {std::min(least.x, e.from.x), std::min(least.y, e.from.y)};
        most = {std::max(most.x, e.from.x), std::max(most.y, e.from.y)};
    }
    if (least.x > most.x) return;
    // A face may say anything of its glyphs' size.
    const auto pixel = [](float place) { return static_cast<int>(std::clamp(place, -0x1p29f, 0x1p29f)); };
    mask.left = pixel(std::floor(least.x));
    mask.top = pixel(std::floor(least.y));
    mask.width = pixel(std::ceil(most.x)) - mask.left;
    mask.height = pixel(std::ceil(most.y)) - mask.top;
}

void OutlineFill::fill(GlyphMask& mask, int fineness) const
{
    const std::size_t perRow =
        (static_cast<std::size_t>(mask.width) + 2) * static_cast<std::size_t>(fineness);
    const int bandRows = static_cast<int>(
        std::clamp<std::size_t>(bandFloats / perRow, 1, static_cast<std::size_t>(mask.height)));
    const auto left = static_cast<float>(mask.left), scale = static_cast<float>(fineness);
    std::vector<float> sums(static_cast<std::size_t>(mask.width));
    for (int top = 0; top < mask.height; top += bandRows) {
        const int rows = std::min(bandRows, mask.height - top);
        AreaBand band(mask.width, rows * fineness);
        const auto offset = static_cast<float>(mask.top + top);
        for (const Edge& e : m_edges)
            band.add(e.from.x - left, (e.from.y - offset) * scale, e.to.x - left, (e.to.y - offset) * scale);
        for (int y = 0; y < rows; ++y) {
            std::fill(sums.begin(), sums.end(), 0.0f);
            for (int fine = y * fineness; fine < (y + 1) * fineness; ++fine) {
                const float* const areas = band.row(fine);
                float winding = 0;
                for (std::size_t x = 0; x < sums.size(); ++x) {
                    winding += areas[x];
                    sums[x] += std::min(std::abs(winding), 1.0f);
                }
            }
            std::uint8_t* const to = mask.coverage.get() + static_cast<std::ptrdiff_t>(top + y) * mask.stride;
            for (std::size_t x = 0; x < sums.size(); ++x)
                to[x] = static_cast<std::uint8_t>(sums[x] * (255.0f / scale) + 0.5f);
        }
    }
}

} // namespace corekit::detail
