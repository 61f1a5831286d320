// CDataCache: the frame of a cache of blocks.
//
// What goes in, what it is found by and when it goes is for the class that derives from it; this one owns
// the blocks, which are freed with safe_free. One thread at a time.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class COREKIT_API CDataCache : public CObject {
    DECLARE_DYNAMIC(CDataCache)
public:
    // An empty cache. `maxSize` is kept for the deriving class, which says what it counts; nothing here
    // looks at it.
    explicit CDataCache(DWORD maxSize = 0) : m_maxSize(maxSize) {}

    ~CDataCache() override { DeleteAllObjects(); }

    // Frees the blocks from the last to the first and drops all elements; m_currentSize becomes 0.
    void DeleteAllObjects();

protected:
    // The meaning of the two numbers is the deriving class's.
    struct Element {
        DWORD first;
        void* block; // owned; null is allowed
        DWORD third;
    };

    CArray<Element> m_elements; // in the order in which the deriving class adds them
    DWORD m_maxSize;            // as given to the constructor
    DWORD m_currentSize = 0;    // kept up to date by the deriving class
};
