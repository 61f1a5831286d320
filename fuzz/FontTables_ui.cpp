// Any bytes as the tables of a face: what is drawn with it needs a cell that has a height.
#include "corekit/platform/qt/text/FontTables.h"
#include "corekit/platform/qt/text/KernTable.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace corekit::detail;
    constexpr std::size_t os2Size = 96, hheaSize = 36;
    const std::span<const BYTE> all(data, size);
    const auto part = [&](std::size_t from, std::size_t count) {
        return all.subspan(std::min(from, size), std::min(count, size - std::min(from, size)));
    };
    FontTables tables;
    tables.read(part(0, os2Size), part(os2Size, hheaSize), part(os2Size + hheaSize, size));
    if (tables.cellAscent < 0 || tables.cellDescent < 0 || tables.externalLeading < 0 ||
        tables.cellAscent + tables.cellDescent == 0)
        std::abort();
    const KernTable pairs(all);
    return pairs.Of(1, 2) > 0x7FFF;
}
