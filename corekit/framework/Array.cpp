#include "corekit/framework/Array.h"

IMPLEMENT_DYNAMIC(CByteArray, CObject)
IMPLEMENT_DYNAMIC(CWordArray, CObject)
IMPLEMENT_DYNAMIC(CDWordArray, CObject)
IMPLEMENT_DYNAMIC(CPtrArray, CObject)
IMPLEMENT_DYNAMIC(CObArray, CObject)
IMPLEMENT_DYNAMIC(CStringArray, CObject)
