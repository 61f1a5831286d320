#include "corekit/hosts/TraceProgressSink.h"

#include "corekit/hosts/ServiceApp.h"

void CTraceProgressSink::DoSetStatus(const char* text) { m_app.TraceWhite(CString(text) + "\n"); }

int CTraceProgressSink::DoMessageBox(const char* text, unsigned int)
{
    m_app.TraceRed(CString(text) + "\n");
    return 0;
}
