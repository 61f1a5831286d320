// What a frame remembers of its bars from run to run, and the form in which a property store keeps it:
// "Count", "Screen Size" and a nested store "Bar 0", "Bar 1" ... for each bar. Numbers only; CDockBarEx takes
// them from a frame and puts them in force.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/platform/Export.h"

#include <functional>
#include <vector>

class CPropertyStore;

namespace corekit::detail {

// One bar. Defaults are what a value that is missing in the store stands for.
struct BarRecord {
    UINT id = 0;
    bool visible = true;
    bool horizontal = true;
    bool floating = false;
    CPoint position{-1, -1};
    UINT mruWidth = 32767; // the length it had when it last floated
    struct Docking {
        UINT dockBarId = 0;
        CRect rect;
        DWORD floatStyle = 0;
        CPoint floatPosition;
    };
    bool hasDocking = false;
    Docking docking; // where it was docked and floated last
    bool isDockBar = false;
    std::vector<int> children; // of a dock bar: the bars in it, 0 for the end of a row

    // A dock bar at its usual place with nothing in it is not worth a record.
    bool IsWorthKeeping() const;
};

struct BarLayout {
    CSize screen;
    std::vector<BarRecord> bars;
};

// Empties the store first.
COREKIT_API void saveBarLayout(CPropertyStore& store, const BarLayout& layout);

// False if the store has no layout. Points and rectangles are scaled to the `present` screen. Bars for which
// `isKnown` is false are left out, and so are records without an id; reading ends where the store runs dry.
COREKIT_API bool loadBarLayout(CPropertyStore& store, CSize present, const std::function<bool(UINT)>& isKnown,
                               BarLayout& layout);

} // namespace corekit::detail
