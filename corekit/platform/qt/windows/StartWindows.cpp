#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/qt/windows/MessageLoop.h"

namespace corekit::detail {

void startWindows()
{
    if (installFilter()) joinMessageLoops();
}

} // namespace corekit::detail
