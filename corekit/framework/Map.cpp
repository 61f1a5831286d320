#include "corekit/framework/Map.h"

IMPLEMENT_DYNAMIC(CMapStringToOb, CObject)
IMPLEMENT_DYNAMIC(CMapWordToPtr, CObject)
