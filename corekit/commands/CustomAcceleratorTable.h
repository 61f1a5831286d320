// The keys that a user has given to commands of one table, beside the keys of the table itself.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/platform/Types.h"

class CCustomAcceleratorTable {
public:
    CCustomAcceleratorTable() = default;
    explicit CCustomAcceleratorTable(UINT tableId) : m_nTableID(tableId) {}
    CCustomAcceleratorTable(const CCustomAcceleratorTable& source) { *this = source; }
    CCustomAcceleratorTable& operator=(const CCustomAcceleratorTable& source)
    {
        m_nTableID = source.m_nTableID;
        m_entries.Copy(source.m_entries);
        return *this;
    }

    UINT m_nTableID = 0;
    CArray<tagACCEL, tagACCEL&> m_entries;
};
