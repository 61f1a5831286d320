#include "corekit/foundation/AcceleratorResource.h"

#include "corekit/framework/Module.h"
#include "corekit/framework/ResourceTypes.h"

#include <span>
#include <vector>

namespace {

std::vector<ACCEL> rowsOf(std::span<const std::byte> bytes)
{
    const auto word = [&bytes](std::size_t offset) {
        return MAKEWORD(std::to_integer<BYTE>(bytes[offset]), std::to_integer<BYTE>(bytes[offset + 1]));
    };
    std::vector<ACCEL> rows;
    for (; bytes.size() >= acceleratorResourceRow; bytes = bytes.subspan(acceleratorResourceRow)) {
        const BYTE flags = LOBYTE(word(0));
        rows.push_back({static_cast<BYTE>(flags & ~lastAcceleratorFlag), word(2), word(4)});
        if (flags & lastAcceleratorFlag) break;
    }
    return rows;
}

} // namespace

HACCEL AfxLoadAccelerators(const char* name)
{
    HACCEL table = nullptr;
    AfxUseResource(name, MAKEINTRESOURCEA(RT_ACCELERATOR), [&table](std::span<const std::byte> bytes) {
        const std::vector<ACCEL> rows = rowsOf(bytes);
        table = CreateAcceleratorTableA(rows.data(), static_cast<int>(rows.size()));
    });
    return table;
}

HACCEL AfxLoadAccelerators(UINT id) { return AfxLoadAccelerators(MAKEINTRESOURCEA(LOWORD(id))); }
