#include "corekit/foundation/CritSection.h"

IMPLEMENT_DYNAMIC(CCritSection, CObject)

CCritSection::CCritSection() { InitializeCriticalSection(&m_section); }

CCritSection::~CCritSection() { DeleteCriticalSection(&m_section); }

bool CCritSection::EnterLock(DWORD)
{
    EnterCriticalSection(&m_section);
    return true;
}

void CCritSection::LeaveLock() { LeaveCriticalSection(&m_section); }

bool CCritSection::IsOwnedByCurrentThread()
{
    EnterCriticalSection(&m_section);
    const LONG count = m_section.LockCount;
    LeaveCriticalSection(&m_section);
    return count >= 1; // 0 is the entry just made
}
