#include "corekit/stores/RecordFileFormat.h"

#include <algorithm>

namespace corekit::detail {
namespace {

struct Area {
    std::uint64_t from, to;

    Area(DWORD offset, DWORD sectors, DWORD sectorSize)
        : from(offset), to(offset + static_cast<std::uint64_t>(sectors) * sectorSize)
    {
    }
    bool IsEmpty() const { return from == to; }
    bool HasRoomFor(DWORD entries) const { return to - from >= std::uint64_t{entries} * sizeof(VLRExtent); }
};

bool fits(const Area& area, const RecordFileHeader& header)
{
    return area.IsEmpty() || (area.from >= header.sectorSize && area.from % header.sectorSize == 0 &&
                              area.to <= header.fileSize);
}

} // namespace

bool RecordFileHeader::HasMagic() const { return std::ranges::equal(magic, recordFileMagic); }

bool RecordFileHeader::HasPossibleSize(std::uint64_t bytesOnDisk) const
{
    return fileSize >= sectorSize && fileSize <= bytesOnDisk;
}

bool RecordFileHeader::IsPossible(std::uint64_t bytesOnDisk) const
{
    if (!HasUsableSectors() || !HasPossibleSize(bytesOnDisk)) return false;
    const Area index(indexOffset, indexSectors, sectorSize), map(mapOffset, mapSectors, sectorSize);
    const bool apart = index.IsEmpty() || map.IsEmpty() || index.to <= map.from || map.to <= index.from;
    return apart && fits(index, *this) && fits(map, *this) && index.HasRoomFor(indexEntries) &&
           map.HasRoomFor(mapEntries);
}

} // namespace corekit::detail
