#include "corekit/commands/MacroBitmaps.h"

#include "corekit/framework/Exception.h"
#include "corekit/stores/MemoryStream.h"

namespace corekit::detail {

std::unique_ptr<CDib> dibOf(std::span<const BYTE> bytes)
{
    if (bytes.empty()) return nullptr;
    auto bitmap = std::make_unique<CDib>();
    try {
        CMemoryStream stream(bytes.data(), static_cast<int>(bytes.size()));
        bitmap->ReadStream(stream);
    } catch (CException* error) {
        error->Delete();
        return nullptr;
    }
    return bitmap->IsValid() ? std::move(bitmap) : nullptr;
}

std::vector<BYTE> bytesOf(const CDib* bitmap)
{
    if (!bitmap || !bitmap->IsValid()) return {};
    constexpr int block = 8192;
    CMemoryStream stream(block, block);
    bitmap->WriteStream(stream);
    const auto* const first = static_cast<const BYTE*>(stream.GetMemoryBufferPointer());
    return {first, first + stream.GetSize()};
}

} // namespace corekit::detail
