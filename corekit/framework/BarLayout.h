// Where bars stand in a dock, and buttons on a bar. Numbers only; the windows that follow them are CDockBar
// and CToolBar.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/platform/Export.h"

#include <span>
#include <vector>

namespace corekit::detail {

enum class Lying { horizontal, vertical };

// One bar of a row. Bars that are hidden stay out of the layout.
struct DockedBar {
    CSize size;
    int wanted = 0;          // where along the row the user put it
    bool startsLine = false; // result: the row had no room left, and goes on in a line below
    CRect rect;              // result, in the dock
};

// Lays rows of bars out, each along the dock's length, one row after the other across it. A bar keeps its
// wanted place as far as its neighbours let it: those that overlap are pushed on, and back where the row
// would leave the dock. A row that is longer than the dock goes on in another line, and comes together again
// when there is room. Returns what the rows take, in width and height.
COREKIT_API CSize layOutDockRows(std::span<std::vector<DockedBar>> rows, Lying lying, int length);

struct BarButton {
    int width = 0;
    bool separator = false;
    bool wraps = false; // result: the line ends behind this one
    CRect rect;         // result
};

// Puts buttons of one height into lines of at most the given width, at least one each. A separator never
// begins a line: it ends the one before, where it needs no room, and becomes a gap below it. Returns what
// they take.
COREKIT_API CSize wrapButtons(std::span<BarButton> buttons, int height, int width);
// One button a line, separators as gaps.
COREKIT_API CSize stackButtons(std::span<BarButton> buttons, int height);
// The smallest width at which the buttons take no more than that height.
COREKIT_API int widthForHeight(std::span<BarButton> buttons, int buttonHeight, int height);

} // namespace corekit::detail
