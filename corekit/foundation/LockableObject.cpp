#include "corekit/foundation/LockableObject.h"

IMPLEMENT_DYNAMIC(CLockableObject, CObject)
IMPLEMENT_DYNAMIC(CLockableCmdTarget, CCmdTarget)

CLockableObject::CLockableObject() = default;
CLockableObject::~CLockableObject() = default;

CLockableCmdTarget::CLockableCmdTarget() = default;
CLockableCmdTarget::~CLockableCmdTarget() = default;
