#include "corekit/foundation/CriticalObject.h"

IMPLEMENT_DYNAMIC(CCriticalObject, CObject)

CCriticalObject::CCriticalObject() { InitializeCriticalSection(&m_section); }

CCriticalObject::~CCriticalObject() { DeleteCriticalSection(&m_section); }

void CCriticalObject::EnterLock() { EnterCriticalSection(&m_section); }

void CCriticalObject::LeaveLock() { LeaveCriticalSection(&m_section); }
