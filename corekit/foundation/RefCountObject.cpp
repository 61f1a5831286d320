#include "corekit/foundation/RefCountObject.h"

#include "corekit/platform/Interlocked.h"

IMPLEMENT_DYNAMIC(CRefCountObject, CObject)

void CRefCountObject::AddRef() { InterlockedIncrement(&m_references); }

void CRefCountObject::Release()
{
    if (InterlockedDecrement(&m_references) >= 1) return;
    OnFinalRelease();
    if (InterlockedExchangeAdd(&m_references, 0) == 0) delete this;
}
