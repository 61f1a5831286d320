// Any bytes as a dialog template of a module.
#include "corekit/framework/DialogBytes.h"

#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto dialog = corekit::detail::DialogBytes::read(std::as_bytes(std::span(data, size)), 1);
    if (!dialog) return 0;
    std::size_t length = 0;
    for (const DialogItem& item : dialog->dialog().items) length += std::strlen(item.windowClass);
    if (dialog->dialog().items.size() > size) std::abort(); // out of proportion
    return length > size * 8;
}
