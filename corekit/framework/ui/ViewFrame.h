// A frame as its views see it: one of them is the active one.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CView;

namespace corekit::detail {

class COREKIT_API ViewFrame {
public:
    virtual CView* GetActiveView() const = 0;
    // Null for none. Both views are told unless `notify` is false.
    virtual void SetActiveView(CView* view, BOOL notify = TRUE) = 0;

protected:
    ~ViewFrame() = default;
};

} // namespace corekit::detail
