#include "corekit/unicode/ui/fonts/OutlineCut.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corekit::detail {

namespace {

OutlinePoint between(OutlinePoint a, OutlinePoint b, double t)
{
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

OutlineCurve straight(OutlinePoint from, OutlinePoint to) { return {from, between(from, to, 0.5), to}; }

// The part of a side between two of its parameters.
OutlineCurve partBetween(const OutlineCurve& c, double from, double to)
{
    const auto at = [&](double t) {
        return between(between(c.start, c.control, t), between(c.control, c.end, t), t);
    };
    const OutlinePoint control =
        between(between(c.start, c.control, from), between(c.control, c.end, from), to);
    return {at(from), control, at(to)};
}

// A straight cut; what is kept has a distance of 0 or less.
struct Cut {
    double x, y, place;

    double DistanceOf(OutlinePoint p) const { return p.x * x + p.y * y - place; }
};

Cut cutAt(CutSide side, double place)
{
    switch (side) {
    case CutSide::left:
        return {1, 0, place};
    case CutSide::right:
        return {-1, 0, -place};
    case CutSide::below:
        return {0, 1, place};
    default:
        return {0, -1, -place};
    }
}

// Where a side crosses the line, in order, between 0 and 1, with both ends.
struct Crossings {
    std::array<double, 4> at{};
    int count = 0;
};

Crossings crossingsOf(const OutlineCurve& side, const Cut& cut)
{
    const double p = cut.DistanceOf(side.start), q = cut.DistanceOf(side.control),
                 r = cut.DistanceOf(side.end);
    const double a = p - 2 * q + r, b = 2 * (q - p), d = p;
    Crossings found;
    found.at[found.count++] = 0;
    const auto add = [&](double t) {
        if (t > 0 && t < 1) found.at[found.count++] = t;
    };
    if (std::abs(a) < 1e-9) {
        if (std::abs(b) > 1e-9) add(-d / b);
    } else if (const double root = b * b - 4 * a * d; root > 0) {
        const double s = std::sqrt(root), t1 = (-b - s) / (2 * a), t2 = (-b + s) / (2 * a);
        add(std::min(t1, t2));
        add(std::max(t1, t2));
    }
    found.at[found.count++] = 1;
    return found;
}

void append(OutlineContour& to, const OutlineCurve& side)
{
    if (!to.empty()) {
        const OutlinePoint end = to.back().end;
        if (std::hypot(end.x - side.start.x, end.y - side.start.y) > 1e-6)
            to.push_back(straight(end, side.start));
    }
    to.push_back(side);
}

OutlineContour partOf(const OutlineContour& contour, const Cut& cut)
{
    OutlineContour kept;
    for (const OutlineCurve& side : contour) {
        const Crossings c = crossingsOf(side, cut);
        for (int i = 0; i + 1 < c.count; ++i) {
            const OutlineCurve part = partBetween(side, c.at[i], c.at[i + 1]);
            const OutlinePoint middle =
                between(between(part.start, part.control, 0.5), between(part.control, part.end, 0.5), 0.5);
            if (cut.DistanceOf(middle) <= 0) append(kept, part);
        }
    }
    if (!kept.empty()) {
        const OutlinePoint first = kept.front().start, last = kept.back().end;
        if (std::hypot(first.x - last.x, first.y - last.y) > 1e-6) kept.push_back(straight(last, first));
    }
    return kept;
}

} // namespace

namespace {

template <class Change>
void changePoints(GlyphOutline& outline, Change change)
{
    for (OutlineContour& contour : outline)
        for (OutlineCurve& side : contour)
            for (OutlinePoint* const p : {&side.start, &side.control, &side.end}) change(*p);
}

} // namespace

void moveOutline(GlyphOutline& outline, double x, double y)
{
    changePoints(outline, [=](OutlinePoint& p) { p = {p.x + x, p.y + y}; });
}

GlyphOutline partOf(const GlyphOutline& outline, CutSide side, double place)
{
    GlyphOutline part;
    for (const OutlineContour& contour : outline)
        if (OutlineContour kept = partOf(contour, cutAt(side, place)); !kept.empty())
            part.push_back(std::move(kept));
    return part;
}

} // namespace corekit::detail
