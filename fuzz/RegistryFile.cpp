// Any bytes as the file of the registry: keys and values are listed and read as far as there are any, and one
// is written, or the file is refused.
#include "FuzzFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/posix/registry/RegistryStore.h"
#include "corekit/stores/RegistryKey.h"

namespace {

void List(HKEY parent, const char* name, int depth)
{
    CRegistryKey key;
    if (!key.Open(parent, name, 0x20019)) return;
    CString child, className, text;
    CByteArray bytes;
    DWORD type = 0;
    for (int i = 0; i < 8 && key.EnumValue(i, child, type); ++i) {
        key.GetValue(child, text);
        key.GetValue(child, bytes);
    }
    for (int i = 0; depth < 4 && i < 8 && key.EnumKey(i, child, className); ++i) List(key, child, depth + 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const FuzzHome home;
    const FuzzFile file("registry.db", data, size);
    List(HKEY_LOCAL_MACHINE, "", 0);
    try {
        CRegistryKey key;
        key.Create(HKEY_CURRENT_USER, "Software\\Fuzz");
        key.SetValue("Name", "text");
        key.DeleteContents();
    } catch (CException* e) {
        e->Delete();
    }
    corekit::detail::RegistryStore::DisconnectAll();
    return 0;
}
