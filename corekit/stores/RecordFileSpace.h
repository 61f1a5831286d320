// The index of a record file and its free space, both held in memory, and the areas of the file in which they
// lie.
//
// The areas are written where they differ from what is held, so that a flush costs what has changed. Space
// that cannot be had throws, and all is as it was. One thread at a time.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/stores/FreeSlots.h"
#include "corekit/stores/FreeSpaceIndex.h"
#include "corekit/stores/RecordFileImage.h"

#include <memory>
#include <optional>
#include <vector>

namespace corekit::detail {

class RecordFileSpace {
public:
    explicit RecordFileSpace(RecordFileImage& image) : m_image(image) {}

    // Of a new file: no record, and one free entry.
    void Make(VLRExtent free);
    // From the areas that the header names.
    void Load();
    void Forget();
    // Whether there is something to flush.
    bool IsLoaded() const { return m_loaded; }

    // --- the index

    int Count() const { return m_index.GetSize(); }
    int InUse() const { return m_inUse; }
    VLRExtent Entry(int record) const { return m_index[record]; } // {0, 0} outside
    void SetEntry(int record, VLRExtent entry);                   // of one in the index
    void ExtendTo(int record);                                    // by free numbers, up to this one
    // The lowest free number, a new one if need be.
    int FindFreeRecord();

    // --- free space

    // The entry that has room for `size` bytes, after the file has grown if it must. It is still free.
    VLRExtent Find(DWORD size);
    // Takes that many bytes, in whole sectors; where they begin.
    DWORD Take(DWORD size);
    // Takes that many in exchange for others, which are free first, so that the new may overlap the old.
    DWORD Exchange(VLRExtent from, DWORD size);
    void Free(VLRExtent entry) { Index().Add(entry); }

    // The map as a list, in which it is until the first change.
    CArray<VLRExtent>& List() { return m_list; }
    void SortList();
    void MergeList();

    // --- the areas

    void WriteIndex();
    void WriteMap();
    // After something was written there: what of it was the areas' is written anew.
    void NoteOverwritten(DWORD offset, DWORD size);
    // Everything is written anew.
    void NoteAll();

private:
    static int sortHelper(const void* first, const void* second);

    void LoadEntries(CArray<VLRExtent>& to, DWORD offset, DWORD count);
    FreeSpaceIndex& Index();
    DWORD MapCount() const;
    void Grow(DWORD wholeSize);
    void MoveMapWhereItFits();
    void NoteEntries(int from, int to);

    RecordFileImage& m_image;
    CArray<VLRExtent> m_index;
    CArray<VLRExtent> m_list; // the map as it was read; empty once m_free has taken it over
    std::optional<FreeSpaceIndex> m_free;
    std::unique_ptr<FreeSlots> m_slots; // made when the first number is asked for
    int m_inUse = 0;
    std::vector<bool> m_changed;                        // by page of the index
    std::size_t m_firstChanged = 0, m_endOfChanged = 0; // pages
    bool m_wholeMap = false;                            // is to be written
    bool m_loaded = false;
};

} // namespace corekit::detail
