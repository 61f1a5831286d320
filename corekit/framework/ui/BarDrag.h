// A bar on its way, as the bar sees it: the mouse that it has caught moves it.
#pragma once

#include "corekit/framework/Geometry.h"

namespace corekit::detail {

class BarDrag {
public:
    virtual ~BarDrag() = default;

    enum class Docking { on, off };
    virtual void MoveTo(CPoint screen, Docking docking) = 0;
    // The bar may have another parent afterwards.
    virtual void Drop() = 0;
};

} // namespace corekit::detail
