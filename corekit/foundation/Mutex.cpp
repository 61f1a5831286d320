#include "corekit/foundation/Mutex.h"

#include "corekit/platform/Waits.h"

IMPLEMENT_DYNAMIC(CMutex, CObject)

CMutex::CMutex() : m_mutex(CreateMutexA(nullptr, FALSE, nullptr)) {}

CMutex::~CMutex() { CloseHandle(m_mutex); }

bool CMutex::EnterLock(DWORD timeout) { return WaitForSingleObject(m_mutex, timeout) == WAIT_OBJECT_0; }

void CMutex::LeaveLock() { ReleaseMutex(m_mutex); }

bool CMutex::IsOwnedByCurrentThread() { return true; }
