// What SystemParametersInfoA asks of the desktop: the window library installs it when it is loaded.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

namespace corekit {

struct DesktopSource {
    bool (*workArea)(RECT& area); // of the main screen; false while there is no application
    bool (*animates)();           // whether windows show what they hold while they move
};
// Any thread; the table must stay until another one is set. Null: there is no desktop.
COREKIT_API void setDesktopSource(const DesktopSource* source);

} // namespace corekit
