#include "corekit/foundation/ReadWriteLock.h"

#include "corekit/platform/Waits.h"

IMPLEMENT_DYNAMIC(CReadWriteLock, CObject)

namespace {

constexpr DWORD slice = 1000; // milliseconds

// A wait that fails ends as if the token had been had.
void takeToken(HANDLE token)
{
    while (WaitForSingleObject(token, slice) == WAIT_TIMEOUT) {
    }
}

class SectionGuard {
public:
    explicit SectionGuard(CRITICAL_SECTION& section) : m_section(section)
    {
        EnterCriticalSection(&m_section);
    }
    SectionGuard(const SectionGuard&) = delete;
    SectionGuard& operator=(const SectionGuard&) = delete;
    ~SectionGuard() { LeaveCriticalSection(&m_section); }

private:
    CRITICAL_SECTION& m_section;
};

} // namespace

CReadWriteLock::CReadWriteLock() : m_token(CreateEventA(nullptr, FALSE, TRUE, nullptr))
{
    InitializeCriticalSection(&m_section);
}

CReadWriteLock::~CReadWriteLock()
{
    DeleteCriticalSection(&m_section);
    CloseHandle(m_token);
}

void CReadWriteLock::GetReadLock()
{
    const SectionGuard guard(m_section);
    if (m_readers == 0) takeToken(m_token);
    ++m_readers;
}

void CReadWriteLock::ReleaseReadLock()
{
    const SectionGuard guard(m_section);
    if (m_readers-- == 1) SetEvent(m_token);
}

void CReadWriteLock::GetExclusiveLock() { takeToken(m_token); }

void CReadWriteLock::ReleaseExclusiveLock() { SetEvent(m_token); }
