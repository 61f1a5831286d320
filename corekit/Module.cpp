// What happens when this library is loaded and unloaded.
#include "corekit/framework/Module.h"
#include "corekit/foundation/Timecode.h"
#include "corekit/platform/Resources.h"
#include "corekit/resources/BinaryResources.h"
#include "corekit/resources/StringTable.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/WireUp.h"

#include <exception>
#include <new>

namespace {
constinit AFX_EXTENSION_MODULE library;

void addToChain() { static_cast<void>(new (std::nothrow) CDynLinkLibrary(library)); }

// Takes the standard that the machine is set to. The key is opened for writing, so a user who may not write
// there keeps the default, as does everyone for whom anything fails.
void readTimecodeStandard()
try {
    CRegistryKey key;
    unsigned int ntsc = 0;
    if (!key.Open(HKEY_LOCAL_MACHINE, "Software\\Corvane", 0x2001F)) return;
    if (key.GetValue("NTSC Mode", ntsc) && ntsc != 0) CTimecode::SetNTSC(0);
} catch (CException* e) {
    e->Delete();
} catch (const std::exception&) {
}

// Class records have linked themselves before this runs; what else it touches is ready without code.
[[gnu::constructor]] void start()
{
    SetResourceReader(AfxUseResource);
    library.strings = corekit::detail::stringTable();
    library.resources = corekit::detail::binaryResources();
    if (!AfxInitExtensionModule(library, nullptr)) return;
    addToChain();
    readTimecodeStandard();
}

[[gnu::destructor]] void stop() { AfxTermExtensionModule(library); }
} // namespace

void WireUp_CoreKit() { addToChain(); }
