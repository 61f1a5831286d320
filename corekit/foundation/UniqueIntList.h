// A short list of integers with a lock.
//
// Nothing keeps a number from being added twice: ask IsPresent first. Each operation holds the list's lock;
// copying takes none, so no other thread may change the source meanwhile. Searches are linear. Exhausted
// memory throws the memory exception.
//
//     CUniqueIntList open;
//     if (!open.IsPresent(id)) open.Add(id);
#pragma once

#include "corekit/foundation/CriticalObject.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"

class COREKIT_API CUniqueIntList : public CCriticalObject {
    DECLARE_DYNAMIC(CUniqueIntList)

public:
    CUniqueIntList();                             // an empty list with room for 64 numbers
    CUniqueIntList(const CUniqueIntList& source); // the lock is the copy's own
    CUniqueIntList& operator=(const CUniqueIntList& source);

    void Add(int value); // at the end
    // Takes out the first of that value. Where there is none the last number of the list goes, and an empty
    // list counts one number less than none until the next Add makes up for it: ask IsPresent first.
    void Remove(int value);
    int IsPresent(int value); // not 0 if the number is in the list at least once
    int IsEmpty();            // not 0 without numbers
    int GetTopItem();         // the first number; 0 where there is none
    void Empty();             // keeps the room

private:
    static constexpr int step = 64; // numbers by which the room grows

    int Find(int value) const; // the count if there is none

    int m_count = 0; // numbers in use
    CArray<int, int> m_room;
};
