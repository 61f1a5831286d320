#include "corekit/foundation/CriticalObject.h"

IMPLEMENT_DYNAMIC(CCriticalObject, CObject)

CCriticalObject::~CCriticalObject() { DeleteCriticalSection(&m_section); }
