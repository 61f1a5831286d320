// Turns outlines into coverage: every edge adds its exact area to the pixels it crosses, and one sum along
// each row gives what the shape covers. The work is proportional to the edges' length and the mask's size.
#pragma once

#include <cstdint>
#include <QTransform>
#include <vector>

class QPainterPath;

namespace corekit::detail {

struct GlyphMask;

class OutlineFill {
public:
    // Adds closed outlines; curves are cut into lines that stay within a fraction of a pixel.
    void add(const QPainterPath& path, const QTransform& place);
    bool isEmpty() const { return m_edges.empty(); }
    // Sets the smallest whole-pixel rectangle around all that was added.
    void measure(GlyphMask& mask) const;
    // Fills the mask's rectangle; stride and coverage are ready, coverage is 0. Overlapping outlines are
    // joined; where their edges share a pixel, `fineness` rows in place of one tell them apart.
    void fill(GlyphMask& mask, int fineness) const;

private:
    struct Point {
        float x, y;
    };
    struct Edge {
        Point from, to;
    };
    void addCurve(Point a, Point b, Point c, Point d);

    std::vector<Edge> m_edges;
};

} // namespace corekit::detail
