// Where an application bar goes: the edge for a point, its rectangle docked, hidden and sliding, the sizes it
// may take. Numbers only, in screen pixels; the window that follows them is CAppBar.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/platform/AppBars.h"

#include <cstddef>

// States of an application bar: the edge it is docked to (ABE_), or one of these two.
inline constexpr UINT appBarFloat = static_cast<UINT>(-2);
inline constexpr UINT appBarUnknown = static_cast<UINT>(-1); // no bar of the desktop

// What a host allows its bar, or-ed together.
inline constexpr DWORD appBarAllowLeftRight = 1, appBarAllowTopBottom = 2, appBarAllowFloat = 4,
                       appBarAllowAutohide = 16, appBarAllowOnTop = 32;

// What a host keeps of its bar from run to run.
struct APPBARSTATE {
    DWORD cbSize;   // bytes of this record that are valid
    UINT uState;    // ABE_ or one of the two above
    BOOL fAutohide; // hides on its edge while docked
    BOOL fAlwaysOnTop;
    UINT auDimsDock[4]; // by edge: the width of a bar at a side, the height of one at top or bottom
    RECT rcFloat;       // where it floats, on the screen
};
static_assert(sizeof(APPBARSTATE) == 48 && offsetof(APPBARSTATE, rcFloat) == 32);

namespace corekit::detail {

constexpr bool isSideEdge(UINT edge) { return edge == ABE_LEFT || edge == ABE_RIGHT; }
constexpr bool isEndEdge(UINT edge) { return edge == ABE_TOP || edge == ABE_BOTTOM; }

// The measures of a screen that decide where bars go.
struct AppBarScreen {
    CSize size;
    CRect workArea;   // what other bars leave
    CSize scrollBars; // width of a vertical one, height of a horizontal one
    CSize border;     // of a window
};

// The state for a bar that is dragged to the point, among those that the flags allow. With none of the edges
// allowed, or well inside of the work area, that is to float if it may.
COREKIT_API UINT edgeFromPoint(DWORD allowed, POINT point, const AppBarScreen& screen);

// The strip of the given breadth along the edge of the area. The area itself for a state that is no edge.
COREKIT_API CRect dockedRect(UINT edge, const CRect& area, UINT breadth);

// Whether a bar that hides itself is out of the way or in sight.
enum class AppBarShow { hidden, shown };
// Where a bar that hides itself lies on its edge; hidden, a rim of two borders stays on the screen. False,
// and nothing changes, for a state that is no edge.
COREKIT_API bool moveForAutohide(UINT edge, AppBarShow show, const AppBarScreen& screen, CRect& rect);

inline constexpr int slideMilliseconds = 400; // a bar takes to hide or come out
// The rectangle on its way from `start` to `end`, `elapsed` milliseconds after it left.
COREKIT_API CRect slidingRect(const CRect& start, const CRect& end, int elapsed);

// Gives the rectangle a client area of whole increments, half of one rounding up. `frame` is what the window
// has around its client area, `side` the side or corner that moves, as WM_SIZING numbers them; the others
// stay. An increment below 1 leaves its axis alone.
COREKIT_API CRect wholeIncrements(const CRect& rect, CSize frame, CSize increment, UINT side);

// The part of a docked bar that the point is on: the inner side sizes where the increment across it is not
// 0, all else of the frame is border. Codes are those of WM_NCHITTEST.
COREKIT_API int dockedHitTest(UINT edge, POINT point, const CRect& client, CSize increment);

} // namespace corekit::detail
