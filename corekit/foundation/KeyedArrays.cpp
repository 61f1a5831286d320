#include "corekit/foundation/KeyedArrays.h"

IMPLEMENT_DYNAMIC(CStringCLSIDArray, CObject)
IMPLEMENT_DYNAMIC(StringWCLSIDArray, CObject)
IMPLEMENT_DYNAMIC(StringACLSIDArray, CObject)
IMPLEMENT_DYNAMIC(StringWIntArray, CObject)
IMPLEMENT_DYNAMIC(CStringIntArray, CObject)
IMPLEMENT_DYNAMIC(CIntCLSIDArray, CObject)
