#include "corekit/platform/EventLog.h"

#include "corekit/platform/Handles.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/handles/HandleTable.h"

#include <cstdio>
#include <string>
#include <sys/syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

namespace {

using namespace corekit::detail;

class EventSource final : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::eventSource;
    explicit EventSource(const char* eventName) : Object(objectKind), name(eventName) {}

    const std::string name;
};

int priorityOf(WORD type)
{
    if (type == EVENTLOG_ERROR_TYPE) return LOG_ERR;
    return type == EVENTLOG_WARNING_TYPE ? LOG_WARNING : LOG_INFO;
}

bool journalIsThere() { return ::access("/run/systemd/journal/socket", W_OK) == 0; }

BOOL toJournal(const std::string& source, int priority, DWORD eventId, const std::string& text)
{
    const int result =
        sd_journal_send("MESSAGE=%s", text.c_str(), "PRIORITY=%d", priority, "SYSLOG_IDENTIFIER=%s",
                        source.c_str(), "EVENT_ID=%u", eventId, nullptr);
    return result >= 0 ? TRUE : fail(errorFromErrno(-result), FALSE);
}

// How the program has set up its own lines (openlog) stays as it is.
void toSyslog(const std::string& source, int priority, const std::string& text)
{
    ::syslog(LOG_DAEMON | priority, "%s: %s", source.c_str(), text.c_str());
    if (::isatty(STDERR_FILENO)) std::fprintf(stderr, "%s: %s\n", source.c_str(), text.c_str());
}

} // namespace

HANDLE RegisterEventSourceA(const char* server, const char* source)
{
    if (server != nullptr || source == nullptr) return fail(ERROR_INVALID_PARAMETER, HANDLE{});
    return openHandle(std::make_unique<EventSource>(source));
}

BOOL DeregisterEventSource(HANDLE source)
{
    if (!HandleUser<EventSource>(source)) return fail(ERROR_INVALID_HANDLE, FALSE);
    return CloseHandle(source);
}

BOOL ReportEventA(HANDLE source, WORD type, WORD, DWORD eventId, void*, WORD stringCount, DWORD,
                  const char** strings, void*)
{
    const HandleUser<EventSource> user(source);
    if (!user) return fail(ERROR_INVALID_HANDLE, FALSE);
    std::string text;
    for (WORD i = 0; i < stringCount; ++i) {
        if (i > 0) text += '\n';
        if (strings[i]) text += strings[i];
    }
    if (journalIsThere()) return toJournal(user->name, priorityOf(type), eventId, text);
    toSyslog(user->name, priorityOf(type), text);
    return TRUE;
}
