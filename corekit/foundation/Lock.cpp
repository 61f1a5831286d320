#include "corekit/foundation/Lock.h"

#include <utility>

IMPLEMENT_DYNAMIC(CLockV2, CObject)

CLockV2::CLockV2(ILockObject* lock) : m_held(lock)
{
    if (m_held != nullptr) m_held->EnterLock(INFINITE);
}

CLockV2::CLockV2(ILockInterface* source) : CLockV2(source->GetLockObject()) {}

CLockV2::~CLockV2() { Release(); }

bool CLockV2::Claim(ILockObject* lock, DWORD timeout)
{
    if (lock == nullptr || !lock->EnterLock(timeout)) return false;
    m_held = lock;
    return true;
}

bool CLockV2::Claim(ILockInterface* source, DWORD timeout) { return Claim(source->GetLockObject(), timeout); }

void CLockV2::Release()
{
    if (ILockObject* const held = std::exchange(m_held, nullptr)) held->LeaveLock();
}
