// How an exception is shown to a person.
#include "corekit/framework/Exception.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/String.h"

int CException::ReportError(CWnd* parent, UINT type, UINT fallbackId)
{
    char text[1024];
    if (GetErrorMessage(text, sizeof text)) return StockMessageBox(parent, text, type);
    CString fallback;
    if (fallbackId == 0 || !fallback.LoadString(fallbackId)) fallback = "No error message is available.";
    return StockMessageBox(parent, fallback, type);
}
