#include "FuzzFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/stores/RegistryText.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/FontMapInfo.h"

// The text of a registry: whatever values the key of a face and that of a font choice hold, loading ends, and
// a choice that could be loaded comes back as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const FuzzHome home;
    constexpr const char* place = "Software\\Corvane\\Unicode Support\\Font Mapping\\Face";
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, place);
    key.DeleteContents();
    try {
        ImportRegistry("[HKLM\\" + std::string(place) + "]\n" +
                       std::string(reinterpret_cast<const char*>(data), size));
    } catch (CException* e) {
        e->Delete();
        return 0;
    }
    CFontMapInfo info("Face");
    info.Load(nullptr);
    StringW converted;
    for (WCHAR c = 0xE000; c < 0xE400; ++c) info.GetSignature().Convert(c, converted);
    CRegistryKey parent;
    parent.Create(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Unicode Support\\Font Mapping");
    CFontDescriptor font, again;
    if (!font.LoadFromRegistry(parent, "Face")) return 0;
    font.SaveToRegistry(parent, "Again");
    if (!again.LoadFromRegistry(parent, "Again") || again != font) std::abort();
    return 0;
}
