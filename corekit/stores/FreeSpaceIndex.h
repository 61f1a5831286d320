// The free space of a record file, found by place and by length.
//
// The rule of placement: of the entries of exactly the length asked for the one at the lowest offset, else
// the lowest entry that is long enough. Either is found without looking at the others. Neighbours that touch
// are one entry. One thread at a time.
#pragma once

#include "corekit/stores/RecordFileFormat.h"
#include "corekit/stores/SortedKeys.h"

#include <optional>
#include <span>
#include <vector>

namespace corekit::detail {

class FreeSpaceIndex {
public:
    // Entries ascend by offset, and none touches the next.
    explicit FreeSpaceIndex(std::span<const VLRExtent> entries);

    std::size_t Count() const { return m_byPlace.Count(); }
    // Every entry, ascending by offset.
    std::vector<VLRExtent> Entries() const;

    // The entry that the rule takes for `length` bytes, if there is any.
    std::optional<VLRExtent> Find(DWORD length) const;
    // Cuts `length` bytes from the front of an entry that Find has given; all of it if it is not longer.
    void TakeFront(VLRExtent entry, DWORD length);
    // Cuts a stretch out of the one entry that it lies in; nothing happens if there is none.
    void TakeOut(VLRExtent stretch);
    // Adds an entry and joins it with those it touches.
    void Add(VLRExtent entry);

private:
    void Remove(VLRExtent entry);

    SortedKeys m_byPlace;  // offset above length
    SortedKeys m_byLength; // length above offset
};

} // namespace corekit::detail
