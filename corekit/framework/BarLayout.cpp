#include "corekit/framework/BarLayout.h"

#include <algorithm>
#include <utility>

namespace corekit::detail {
namespace {

using Bars = std::span<DockedBar>;

class Axes {
public:
    explicit Axes(Lying lying) : m_lies(lying == Lying::horizontal) {}
    int Along(CSize size) const { return std::max<int>(m_lies ? size.cx : size.cy, 0); }
    int Across(CSize size) const { return std::max<int>(m_lies ? size.cy : size.cx, 0); }
    CSize Size(int along, int across) const { return m_lies ? CSize(along, across) : CSize(across, along); }
    CPoint Point(int along, int across) const
    {
        return m_lies ? CPoint(along, across) : CPoint(across, along);
    }

private:
    bool m_lies;
};

// The line that begins a row: as many bars as fit, at least one.
std::size_t fittingBars(Bars bars, const Axes& axes, int length)
{
    int used = 0;
    std::size_t count = 0;
    for (const DockedBar& bar : bars) {
        used += axes.Along(bar.size);
        if (count > 0 && used > length) break;
        ++count;
    }
    return count;
}

CSize placeLine(Bars line, const Axes& axes, int length, int top)
{
    std::vector<int> at(line.size());
    int end = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        at[i] = std::max(line[i].wanted, end);
        end = at[i] + axes.Along(line[i].size);
    }
    int limit = std::max(length, 0);
    for (std::size_t i = line.size(); i-- > 0;) {
        at[i] = std::max(std::min(at[i], limit - axes.Along(line[i].size)), 0);
        limit = at[i];
    }
    int furthest = 0, breadth = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        line[i].rect = CRect(axes.Point(at[i], top), line[i].size);
        furthest = std::max(furthest, at[i] + axes.Along(line[i].size));
        breadth = std::max(breadth, axes.Across(line[i].size));
    }
    return {furthest, breadth};
}

constexpr int gapBelowLine = 6;

} // namespace

CSize layOutDockRows(std::span<std::vector<DockedBar>> rows, Lying lying, int length)
{
    const Axes axes(lying);
    int furthest = 0, top = 0;
    for (std::vector<DockedBar>& row : rows) {
        Bars rest(row);
        bool isFirst = true;
        while (!rest.empty()) {
            const std::size_t count = fittingBars(rest, axes, length);
            const CSize line = placeLine(rest.first(count), axes, length, top);
            for (DockedBar& bar : rest.first(count)) bar.startsLine = false;
            rest.front().startsLine = !std::exchange(isFirst, false);
            furthest = std::max<int>(furthest, line.cx);
            top += line.cy;
            rest = rest.subspan(count);
        }
    }
    return axes.Size(furthest, top);
}

CSize wrapButtons(std::span<BarButton> buttons, int height, int width)
{
    int x = 0, y = 0, widest = 0;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        BarButton& button = buttons[i];
        button.wraps = false;
        if (x > 0 && !button.separator && x + button.width > width) {
            BarButton& before = buttons[i - 1];
            before.wraps = true;
            y += height + (before.separator ? gapBelowLine : 0);
            x = 0;
        }
        button.rect = CRect(CPoint(x, y), CSize(button.width, height));
        x += button.width;
        if (!button.separator) widest = std::max(widest, x);
    }
    return {std::max(widest, x), buttons.empty() ? 0 : y + height};
}

CSize stackButtons(std::span<BarButton> buttons, int height)
{
    int widest = 0, y = 0;
    for (const BarButton& button : buttons)
        if (!button.separator) widest = std::max(widest, button.width);
    for (BarButton& button : buttons) {
        const CSize size(widest, button.separator ? gapBelowLine : height);
        button.wraps = true;
        button.rect = CRect(CPoint(0, y), size);
        y += size.cy;
    }
    return {widest, y};
}

int widthForHeight(std::span<BarButton> buttons, int buttonHeight, int height)
{
    int narrow = 1, wide = 0;
    for (const BarButton& button : buttons) {
        narrow = std::max(narrow, button.width);
        wide += button.width;
    }
    wide = std::max(wide, narrow);
    while (narrow < wide) {
        const int middle = narrow + (wide - narrow) / 2;
        if (wrapButtons(buttons, buttonHeight, middle).cy <= height)
            wide = middle;
        else
            narrow = middle + 1;
    }
    return wide;
}

} // namespace corekit::detail
