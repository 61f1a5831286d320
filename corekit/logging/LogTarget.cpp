#include "corekit/logging/LogTarget.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/TimeFunctions.h"
#include "corekit/logging/LogFiles.h"
#include "corekit/platform/AppendFile.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/Version.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CLogTarget, CCriticalObject)

namespace {

using corekit::LogLevelField;
using corekit::LogLevelName;
using corekit::detail::AppendFile;
using corekit::detail::Hold;
using corekit::detail::logDay;
using corekit::detail::LogFileNames;

constexpr std::size_t longestPiece = 1024;
constexpr std::size_t keptRoom = 64 * 1024; // of the line buffer, from one message to the next

std::string lastErrorText() { return GetLastErrorString().GetString(); }

std::string lossText(DWORD count, DWORD error)
{
    CString why = GetSystemErrorString(error);
    why.TrimRight();
    return std::string("Write log entries failed, ") + why.GetString() + ", " + std::to_string(count) +
           " lost";
}

} // namespace

CLogTarget::CLogTarget() : m_file(std::make_unique<AppendFile>()), m_names(std::make_unique<LogFileNames>())
{
}
CLogTarget::~CLogTarget() { CloseLogFile(); }

StringA CLogTarget::GetLevelName(unsigned long level)
{
    const std::string_view name = LogLevelName(static_cast<DWORD>(level));
    return {name.data(), static_cast<int>(name.size())};
}

std::string CLogTarget::PathAt(long now) const { return m_isDaily ? m_names->OfDay(now) : m_names->Single(); }

int CLogTarget::CreateLogFile(const char* baseName, const char* directory, int daily)
{
    const Hold hold(*this);
    if (m_file->IsOpen()) return 0;
    const long now = time_GetCurrentTime(0);
    *m_names = LogFileNames(baseName ? baseName : "", directory ? directory : "");
    m_isDaily = daily != 0;
    m_fileDay = logDay(now);
    if (!m_file->Open(PathAt(now).c_str())) return 0;
    m_lost = 0;
    m_isOpen = true;
    WriteLogEntry(now, logInformation, "Log file opened");
    return 1;
}

void CLogTarget::CloseLogFile()
{
    const Hold hold(*this);
    if (!m_file->IsOpen()) return;
    WriteLogEntry(time_GetCurrentTime(0), logInformation, "Log file closed");
    m_isOpen = false;
    m_file->Close();
}

DWORD CLogTarget::GetLossReason()
{
    const Hold hold(*this);
    return m_lost ? m_lostError : 0;
}

void CLogTarget::LogMessage(unsigned long level, unsigned int stringId)
{
    if (Takes(level)) WriteMessage(static_cast<DWORD>(level), LoadResourceString(stringId));
}

void CLogTarget::LogMessage(unsigned long level, const WCHAR* text)
{
    if (Takes(level)) WriteMessage(static_cast<DWORD>(level), StringA(text));
}

void CLogTarget::WriteMessage(DWORD level, const char* text)
{
    const Hold hold(*this);
    if (!m_file->IsOpen()) return; // closed in the meantime
    const long now = time_GetCurrentTime(0);
    if (m_isDaily && (now == m_stampTime ? m_stampDay : logDay(now)) != m_fileDay) RollOver(now);
    WriteLogEntry(now, level, text ? text : "");
}

void CLogTarget::AppendLine(DWORD level, std::string_view text)
{
    const std::string_view field = LogLevelField(level);
    const std::size_t size = m_stamp.size() + field.size() + text.size() + 1;
    if (m_lines.size() < m_used + size) m_lines.resize(std::max(m_used + size, 2 * m_lines.size()));
    char* to = m_lines.data() + m_used;
    to = std::copy(m_stamp.begin(), m_stamp.end(), to);
    to = std::copy(field.begin(), field.end(), to);
    to = std::copy(text.begin(), text.end(), to);
    *to = '\n';
    m_used += size;
}

void CLogTarget::Stamp(long now)
{
    CString stamp;
    time_FormatString(stamp, "%d:%m:%Y %H:%M:%S  ", now, 1);
    m_stamp = stamp;
    m_stampDay = logDay(now);
    m_stampTime = now;
}

void CLogTarget::WriteLogEntry(long now, DWORD level, std::string_view text)
{
    if (now != m_stampTime) Stamp(now);
    m_used = 0;
    if (m_lost) AppendLine(logMajorError, lossText(m_lost, m_lostError));
    for (; text.size() > longestPiece; text.remove_prefix(longestPiece))
        AppendLine(level, text.substr(0, longestPiece));
    AppendLine(level, text);

    if (m_file->Append({m_lines.data(), m_used})) {
        m_lost = 0;
    } else {
        ++m_lost;
        m_lostError = GetLastError();
    }
    if (m_lines.size() > keptRoom) std::vector<char>().swap(m_lines);
}

void CLogTarget::RollOver(long now)
{
    AppendFile next;
    if (next.Open(PathAt(now).c_str())) {
        WriteLogEntry(now, logInformation, "Date rollover detected, log file closed.");
        *m_file = std::move(next);
        m_fileDay = logDay(now);
        WriteLogEntry(now, logInformation, "Log file opened after date rollover");
        LogInfoMsg(CoreKitVersionText());
        try {
            NoteStart(now);
        } catch (...) {
            DeleteOldFiles(now); // today's turn does not come again
            throw;
        }
    } else {
        WriteLogEntry(now, logMajorError, "Open next day's log file failed, " + lastErrorText());
    }
    DeleteOldFiles(now);
}

// The value is a line for the log of the day after.
void CLogTarget::NoteStart(long now)
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, "Software\\Corvane\\Tavrix\\Network");
    CString line;
    if (key.GetValue("Last Start Time", line)) LogInfoMsg(line.GetString());
    time_FormatString(line, "Last start: %d/%m/%Y\t%H:%M:%S", now, 1);
    key.SetValue("Last Start Time", line);
}

void CLogTarget::DeleteOldFiles(long now)
{
    const std::vector<std::string> files = m_names->Existing();
    const auto kept = static_cast<std::size_t>(m_oldDays.load(std::memory_order_relaxed)) + 1;
    for (std::size_t i = 0; i + kept < files.size(); ++i)
        if (!DeleteFileA(files[i].c_str()))
            WriteLogEntry(now, logMajorError,
                          "Delete old log file failed, " + lastErrorText() + ", " + files[i]);
}
