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
    // The entries of these ranks, counted from the lowest offset; ascending.
    std::vector<VLRExtent> Entries(std::size_t first, std::size_t end) const;
    std::vector<VLRExtent> Entries() const { return Entries(0, Count()); }

    // The entry that the rule takes for `length` bytes, if there is any.
    std::optional<VLRExtent> Find(DWORD length);
    // Cuts `length` bytes from the front of an entry that Find has given; all of it if it is not longer.
    void TakeFront(VLRExtent entry, DWORD length);
    // Cuts a stretch out of the one entry that it lies in; nothing happens if there is none.
    void TakeOut(VLRExtent stretch);
    // Adds an entry and joins it with those it touches.
    void Add(VLRExtent entry);

    struct Ranks {
        std::size_t first, end;
    };
    // Where entries have changed since the last ForgetChanges. Behind them they are the same ones, whose
    // ranks are the same if the count is. Empty if there was no change.
    Ranks Changed() const;
    void ForgetChanges();

private:
    void NoteChange(DWORD offset);
    bool Holds(VLRExtent entry) const;
    void NoteLength(VLRExtent entry);
    void SettleLengths();
    void SortLengths();

    // Offset above length: the truth.
    SortedKeys m_byPlace;
    // Length above offset, to look an exact fit up. Entries that are gone stay until somebody comes upon
    // them, and new ones wait until somebody looks, so that giving space back costs next to nothing.
    SortedKeys m_byLength;
    std::vector<std::uint64_t> m_newLengths;

    DWORD m_lowestChange, m_highestChange; // offsets
};

} // namespace corekit::detail
