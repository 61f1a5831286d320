#include "FuzzFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/stores/RegistryText.h"

#include <string_view>

// A value that can be read must come back as it was; a text must be taken or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const FuzzHome home;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        const RegistryItem item = ParseRegistryValue(text.substr(0, text.find('\n')));
        const RegistryItem again = ParseRegistryValue(FormatRegistryValue(item));
        if (again.type != item.type || again.data != item.data) std::abort();
    } catch (CException* e) {
        e->Delete();
    }
    try {
        ImportRegistry(text);
    } catch (CException* e) {
        e->Delete();
    }
    return 0;
}
