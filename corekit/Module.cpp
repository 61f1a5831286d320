// What happens when this library is loaded and unloaded.
#include "corekit/framework/Module.h"

#include "corekit/resources/StringTable.h"
#include "corekit/WireUp.h"

#include <new>

namespace {
constinit AFX_EXTENSION_MODULE library;

void AddToChain() { static_cast<void>(new (std::nothrow) CDynLinkLibrary(library)); }

// Class records have linked themselves before this runs; what else it touches is ready without code.
[[gnu::constructor]] void Start()
{
    library.strings = corekit::detail::StringTable();
    if (AfxInitExtensionModule(library, nullptr)) AddToChain();
}

[[gnu::destructor]] void Stop() { AfxTermExtensionModule(library); }
} // namespace

void WireUp_CoreKit() { AddToChain(); }
