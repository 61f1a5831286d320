// What happens when the window library is loaded and unloaded.
#include "corekit/framework/Module.h"

#include "corekit/framework/ui/MessageBoxWindow.h"
#include "corekit/resources/ui/DialogTable.h"

#include <new>

namespace {
constinit AFX_EXTENSION_MODULE library;

// Class records have linked themselves before this runs; what else it touches is ready without code.
[[gnu::constructor]] void start()
{
    library.dialogs = corekit::detail::dialogTable();
    if (!AfxInitExtensionModule(library, nullptr)) return;
    static_cast<void>(new (std::nothrow) CDynLinkLibrary(library));
    SetMessageBoxHandler(corekit::detail::showMessageBox);
}

[[gnu::destructor]] void stop()
{
    SetMessageBoxHandler(nullptr);
    AfxTermExtensionModule(library);
}
} // namespace
