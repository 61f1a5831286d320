// CDataCache: the frame of a cache of blocks. What goes in, and when, is for the class that derives from it;
// the cache owns the blocks, which are freed with safe_free. One thread at a time.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class COREKIT_API CDataCache : public CObject {
    DECLARE_DYNAMIC(CDataCache)
public:
    explicit CDataCache(DWORD maxSize = 0) : m_maxSize(maxSize) {}
    ~CDataCache() override { DeleteAllObjects(); }

    // Frees the blocks from the last to the first.
    void DeleteAllObjects();

protected:
    // The meaning of the two numbers is the deriving class's.
    struct Element {
        DWORD first;
        void* block;
        DWORD third;
    };

    CArray<Element> m_elements;
    DWORD m_maxSize;
    DWORD m_currentSize = 0;
};
