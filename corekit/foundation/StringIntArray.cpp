#include "corekit/foundation/StringIntArray.h"

IMPLEMENT_DYNAMIC(CStringIntArray, CObject)

CStringIntArray::CStringIntArray() = default;
CStringIntArray::~CStringIntArray() = default;

int CStringIntArray::FindString(const char* name, int& number) const
{
    for (int i = GetSize(); i-- > 0;)
        if (m_pairs.GetAt(i).name.Compare(name) == 0) {
            number = GetInteger(i);
            return 1;
        }
    return 0;
}

int CStringIntArray::FindInteger(int number, CString& name) const
{
    for (int i = GetSize(); i-- > 0;)
        if (GetInteger(i) == number) {
            name = GetString(i);
            return 1;
        }
    return 0;
}

void CStringIntArray::Add(const char* name, int number) { m_pairs.Add({CString(name), number}); }

void CStringIntArray::Empty() { m_pairs.RemoveAll(); }
