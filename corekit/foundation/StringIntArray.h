// A short table of names and numbers, searched from its end: a later pair shadows an earlier one.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"

// Names compare byte by byte. One thread at a time.
class COREKIT_API CStringIntArray : public CObject {
    DECLARE_DYNAMIC(CStringIntArray)
public:
    CStringIntArray();
    ~CStringIntArray() override;

    int GetSize() const { return m_pairs.GetSize(); }
    CString GetString(int index) const { return m_pairs.GetAt(index).name; }
    int GetInteger(int index) const { return m_pairs.GetAt(index).number; }
    // 1 and the other half of the pair, or 0 and the output untouched.
    int FindString(const char* name, int& number) const;
    int FindInteger(int number, CString& name) const;
    void Add(const char* name, int number);
    void Empty();

private:
    struct Pair {
        CString name;
        int number = 0;
    };
    CArray<Pair, const Pair&> m_pairs;
};
