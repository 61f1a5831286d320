#include "corekit/foundation/UniqueIntList.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CUniqueIntList, CCriticalObject)

using corekit::detail::Hold;

CUniqueIntList::CUniqueIntList() { m_room.SetSize(step); }

CUniqueIntList::CUniqueIntList(const CUniqueIntList& source) : CCriticalObject(), m_count(source.m_count)
{
    m_room.Copy(source.m_room);
}

CUniqueIntList& CUniqueIntList::operator=(const CUniqueIntList& source)
{
    m_room.Copy(source.m_room);
    m_count = source.m_count;
    return *this;
}

int CUniqueIntList::Find(int value) const
{
    const int* first = m_room.GetData();
    return static_cast<int>(std::find(first, first + std::max(m_count, 0), value) - first);
}

void CUniqueIntList::Add(int value)
{
    const Hold hold(*this);
    if (m_count == m_room.GetSize()) m_room.SetSize(m_count + step);
    if (m_count >= 0) m_room[m_count] = value;
    ++m_count;
}

void CUniqueIntList::Remove(int value)
{
    const Hold hold(*this);
    int* numbers = m_room.GetData();
    if (const int at = Find(value); at < m_count)
        std::copy(numbers + at + 1, numbers + m_count, numbers + at);
    --m_count;
}

int CUniqueIntList::IsPresent(int value)
{
    const Hold hold(*this);
    return m_count > 0 && Find(value) < m_count;
}

int CUniqueIntList::IsEmpty()
{
    const Hold hold(*this);
    return m_count == 0;
}

int CUniqueIntList::GetTopItem()
{
    const Hold hold(*this);
    return m_count > 0 ? m_room[0] : 0;
}

void CUniqueIntList::Empty()
{
    const Hold hold(*this);
    m_count = 0;
}
