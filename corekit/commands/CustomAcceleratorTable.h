// The keys that a user has given to commands of one table, beside the keys of the table itself.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/platform/Types.h"

// A plain value: a copy has a list of its own. What its keys do to the table's own keys, see KeyTables.h;
// here nothing is checked, and a key or a command may come more than once.
class CCustomAcceleratorTable {
public:
    // No keys, and the number 0, which no table has.
    CCustomAcceleratorTable() = default;
    // No keys yet for the table of that resource number.
    explicit CCustomAcceleratorTable(UINT tableId) : m_nTableID(tableId) {}
    // Copies number and keys. Not from the object itself.
    CCustomAcceleratorTable(const CCustomAcceleratorTable& source) { *this = source; }
    // Copies of tables are what lists of them hold.
    CCustomAcceleratorTable& operator=(const CCustomAcceleratorTable& source)
    {
        m_nTableID = source.m_nTableID;
        m_entries.Copy(source.m_entries);
        return *this;
    }

    UINT m_nTableID = 0;                   // resource number of the default table
    CArray<tagACCEL, tagACCEL&> m_entries; // in the order in which they were given
};
