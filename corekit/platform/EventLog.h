// The log of the system: the journal, or syslog where there is none.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr WORD EVENTLOG_ERROR_TYPE = 1, EVENTLOG_WARNING_TYPE = 2, EVENTLOG_INFORMATION_TYPE = 4;

// Under which name events appear; closed with DeregisterEventSource. Null if it cannot be had. The server
// must be null, for this machine.
COREKIT_API HANDLE RegisterEventSourceA(const char* server, const char* source);
COREKIT_API BOOL DeregisterEventSource(HANDLE source);

// Writes one event of the texts, which are joined by line ends. Category and data have no place there; the
// user is the process's. Where there is no journal and standard error is a terminal, the event is shown there
// too. Any thread. 0 with the last error.
COREKIT_API BOOL ReportEventA(HANDLE source, WORD type, WORD category, DWORD eventId, void* userSid,
                              WORD stringCount, DWORD dataSize, const char** strings, void* data);
