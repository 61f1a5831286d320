// Compiled so that a null `this` is not taken to be impossible.
#include "corekit/logging/AlertSink.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/logging/LogTarget.h"

IMPLEMENT_DYNAMIC(CAlertSink, CObject)

namespace {

void writeToLog(CLogTarget& log, eAlertCategory category, const char* text)
{
    switch (category) {
    case alertInformation:
        return log.LogInfoMsg(text);
    case alertWarning:
        return log.LogWarningMsg(text);
    case alertMajorError:
        return log.LogMajorErrorMsg(text);
    default:
        return log.LogMinorErrorMsg(text);
    }
}

} // namespace

CAlertSink::CAlertSink() = default;
CAlertSink::~CAlertSink() = default;

int CAlertSink::Initialise(const CAlertSinkConfig& config, const char* name)
{
    m_config = config;
    m_name = name;
    return 1;
}

void CAlertSink::RegisterHook(void (*hook)(eAlertCategory, const char*)) { m_hooks.Add(hook); }
void CAlertSink::SetLogTarget(CLogTarget* target) { m_logTarget = target; }

void CAlertSink::Alert(CAlertSink* sink, eAlertCategory category, const char* text)
{
    if (!sink) return;
    for (int i = 0; i < sink->m_hooks.GetSize(); ++i) sink->m_hooks[i](category, text);
    if (sink->m_logTarget) writeToLog(*sink->m_logTarget, category, text);
}

void CAlertSink::Alert(CAlertSink* sink, eAlertCategory category, unsigned int stringId)
{
    if (sink) Alert(sink, category, LoadResourceString(stringId).GetString());
}

void CAlertSink::Alert(CAlertSink* sink, eAlertCategory category, const char* title, const char* detail)
{
    if (sink) Alert(sink, category, (CString(title) + "\n" + detail).GetString());
}

void CAlertSink::AlertSysError(CAlertSink* sink, eAlertCategory category, const char* text)
{
    if (sink) Alert(sink, category, text, GetLastErrorString().GetString());
}

void CAlertSink::AlertSysError(CAlertSink* sink, eAlertCategory category, unsigned int stringId)
{
    if (sink) AlertSysError(sink, category, LoadResourceString(stringId).GetString());
}

void CAlertSink::AlertException(CAlertSink* sink, eAlertCategory category, const char* text, CException* e)
{
    if (sink) Alert(sink, category, text, GetExceptionMsg(e).GetString());
}

void CAlertSink::AlertException(CAlertSink* sink, eAlertCategory category, const char* text,
                                unsigned int code)
{
    if (sink) Alert(sink, category, text, GetExceptionMsg(code).GetString());
}

void CAlertSink::Alert(eAlertCategory category, const char* text) { Alert(this, category, text); }
void CAlertSink::Alert(eAlertCategory category, unsigned int stringId) { Alert(this, category, stringId); }
void CAlertSink::Alert(eAlertCategory category, const char* title, const char* detail)
{
    Alert(this, category, title, detail);
}
void CAlertSink::AlertSysError(eAlertCategory category, const char* text)
{
    AlertSysError(this, category, text);
}
void CAlertSink::AlertSysError(eAlertCategory category, unsigned int stringId)
{
    AlertSysError(this, category, stringId);
}
void CAlertSink::AlertException(eAlertCategory category, const char* text, CException* e)
{
    AlertException(this, category, text, e);
}
void CAlertSink::AlertException(eAlertCategory category, const char* text, unsigned int code)
{
    AlertException(this, category, text, code);
}
