#include "corekit/stores/DataCache.h"

#include "corekit/foundation/SafeAlloc.h"

IMPLEMENT_DYNAMIC(CDataCache, CObject)

void CDataCache::DeleteAllObjects()
{
    for (int i = m_elements.GetUpperBound(); i >= 0; --i) safe_free(m_elements[i].block);
    m_elements.RemoveAll();
    m_currentSize = 0;
}
