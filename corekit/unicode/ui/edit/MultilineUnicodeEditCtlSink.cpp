#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtlSink.h"

IMPLEMENT_DYNAMIC(CMultilineUnicodeEditCtlSink, CObject)
