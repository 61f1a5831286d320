// CLogTarget: the log file of a program that runs unattended.
//
//     CLogTarget log;
//     log.SetLogMask(logInformation | logWarning | logMajorError);
//     if (!log.CreateLogFile("Server", "/var/log/prompter", 1)) ...
//     log.LogInfoMsg("Listening");
//
// A message is one line, "14:11:2026 18:30:05  Information       Listening": the local time, the level in 16
// columns, the text, with two blanks between. Of a longer text every 1024 bytes are a line of their own; a
// line end in a text stays, so what follows it starts a line without time and level. Each message is in the
// file when the call returns, so that any viewer may look on. To follow a log, see LogFollower.h and "corekit
// log".
//
// A daily log has a file for each day, "Server.2026-11-14.log", any other is "Server.log" and grows without
// end. The first message of a new day closes the old file and opens the next; then the oldest files go, until
// as many as SetOldLogFileDays tells are left beside today's. If the next file cannot be opened, the old one
// stays in use, says so, and every further message tries again.
//
// While the file is open no other CLogTarget opens it, in this process or another; everybody may read it.
// Messages that the disk does not take are counted, and the count is the first line that it takes again.
// Any thread may log; lines neither mix nor tear.
#pragma once

#include "corekit/foundation/CriticalObject.h"
#include "corekit/foundation/StringA.h"
#include "corekit/logging/LogLevel.h"

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CPropertySheet;

namespace corekit::detail {
class AppendFile;
class LogFileNames;
} // namespace corekit::detail

class COREKIT_API CLogTarget : public CCriticalObject {
    DECLARE_DYNAMIC(CLogTarget)
public:
    CLogTarget();           // no log is open: messages go nowhere until CreateLogFile
    ~CLogTarget() override; // closes the file

    // Opens or makes the log in a folder that exists, and writes a line that says so. `daily` other than 0
    // makes a file for each day. 0 if a log is open, or the file cannot be opened; the last error tells
    // why. Old files stay until the next day begins.
    int CreateLogFile(const char* baseName, const char* directory, int daily);
    // Writes a line that says so. Nothing happens if no log is open; another one may be opened then.
    void CloseLogFile(); // any number of times
    // Why messages have been lost since the file last took one; 0 when none has.
    DWORD GetLossReason();

    // The levels that are written, or-ed together; all at first.
    void SetLogMask(unsigned long mask) { m_mask.store(static_cast<DWORD>(mask), std::memory_order_relaxed); }
    // Day files that are kept beside today's; 20 at first, negative values become 0.
    void SetOldLogFileDays(int days) { m_oldDays.store(days < 0 ? 0 : days, std::memory_order_relaxed); }

    // Writes if the mask has the level and a log is open. The first message of a day throws what the registry
    // throws, where the start of each day's file is noted, and is then not written.
    void LogMessage(unsigned long level, const char* text)
    {
        if (Takes(level)) WriteMessage(static_cast<DWORD>(level), text);
    }
    void LogMessage(unsigned long level, unsigned int stringId);
    void LogMessage(unsigned long level, const WCHAR* text); // in the active code page

    // One level each. A text is bytes as they are to stand in the file, the number of one in the string
    // table, or wide text; null is empty.
    void LogDebugMsg(const char* text) { LogMessage(logDebug, text); }
    void LogDebugMsg(unsigned int stringId) { LogMessage(logDebug, stringId); }
    void LogDebugMsg(const WCHAR* text) { LogMessage(logDebug, text); }
    void LogTraceMsg(const char* text) { LogMessage(logTrace, text); }
    void LogTraceMsg(unsigned int stringId) { LogMessage(logTrace, stringId); }
    void LogTraceMsg(const WCHAR* text) { LogMessage(logTrace, text); }
    void LogInfoMsg(const char* text) { LogMessage(logInformation, text); }
    void LogInfoMsg(unsigned int stringId) { LogMessage(logInformation, stringId); }
    void LogInfoMsg(const WCHAR* text) { LogMessage(logInformation, text); }
    void LogWarningMsg(const char* text) { LogMessage(logWarning, text); }
    void LogWarningMsg(unsigned int stringId) { LogMessage(logWarning, stringId); }
    void LogWarningMsg(const WCHAR* text) { LogMessage(logWarning, text); }
    void LogMinorErrorMsg(const char* text) { LogMessage(logMinorError, text); }
    void LogMinorErrorMsg(unsigned int stringId) { LogMessage(logMinorError, stringId); }
    void LogMinorErrorMsg(const WCHAR* text) { LogMessage(logMinorError, text); }
    void LogMajorErrorMsg(const char* text) { LogMessage(logMajorError, text); }
    void LogMajorErrorMsg(unsigned int stringId) { LogMessage(logMajorError, stringId); }
    void LogMajorErrorMsg(const WCHAR* text) { LogMessage(logMajorError, text); }
    void LogCriticalErrorMsg(const char* text) { LogMessage(logCriticalError, text); }
    void LogCriticalErrorMsg(unsigned int stringId) { LogMessage(logCriticalError, stringId); }
    void LogCriticalErrorMsg(const WCHAR* text) { LogMessage(logCriticalError, text); }

    // The name as it stands in a line, without blanks; "*Unknown*" for what is not one level.
    static StringA GetLevelName(unsigned long level);

    // Adds a page, made with new, on which the user edits the three values, which must outlive it; `enabled`
    // may be null. The title is that of the string, 0 "Logging". In the window library.
    static void AddPropertyPage(CPropertySheet& sheet, unsigned int captionId, int* enabled,
                                unsigned long* mask, int* days);

private:
    // Without the lock: whether a message has to be looked at more closely.
    bool Takes(unsigned long level) const
    {
        return (m_mask.load(std::memory_order_relaxed) & level) != 0 &&
               m_isOpen.load(std::memory_order_relaxed);
    }
    std::string PathAt(long now) const;               // of the file for that time
    void WriteMessage(DWORD level, const char* text); // takes the lock, looks at the day
    // The following hold the lock and work for the time `now`.
    void WriteLogEntry(long now, DWORD level, std::string_view text);
    void AppendLine(DWORD level, std::string_view text); // to what goes out next
    void Stamp(long now);                                // the time as it begins a line
    void RollOver(long now);                             // to the file of a new day
    void NoteStart(long now);                            // in the registry, for the next day's log
    void DeleteOldFiles(long now);                       // of a daily log

    std::unique_ptr<corekit::detail::AppendFile> m_file;    // the open file, if any
    std::unique_ptr<corekit::detail::LogFileNames> m_names; // of this log's files
    bool m_isDaily = false;
    long m_fileDay = 0; // the day that the open file is for
    std::atomic<bool> m_isOpen = false;
    std::atomic<DWORD> m_mask = 0xFFFFFFFF;
    std::atomic<int> m_oldDays = 20;

    long m_stampTime = -1; // what m_stamp tells
    long m_stampDay = 0;
    std::string m_stamp;
    std::vector<char> m_lines; // what goes out in one write, and how much of it there is
    std::size_t m_used = 0;
    DWORD m_lost = 0; // messages that the file did not take, and why
    DWORD m_lostError = 0;
};
