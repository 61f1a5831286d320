#include "corekit/logging/LogFollower.h"

#include "corekit/logging/LogFiles.h"
#include "corekit/logging/LogLevel.h"
#include "corekit/platform/FileAttributes.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t timeLength = 19, levelAt = 21, levelLength = 16, textAt = 39;
constexpr DWORD someLevel = 0x80000000;

// "14:11:2026 18:30:05", digits and what is between them.
bool isTime(std::string_view text)
{
    constexpr std::string_view form = "00:00:0000 00:00:00";
    return std::ranges::equal(text, form, [](char c, char pattern) {
        return pattern == '0' ? c >= '0' && c <= '9' : c == pattern;
    });
}

// The machine's form of a path.
std::string onDisk(std::string path)
{
    std::ranges::replace(path, '\\', '/');
    return path;
}

} // namespace

LogLine ParseLogLine(std::string_view line)
{
    if (line.size() < textAt || !isTime(line.substr(0, timeLength))) return {{}, 0, line};
    std::string_view name = line.substr(levelAt, levelLength);
    name = name.substr(0, name.find(' '));
    const DWORD level = corekit::LogLevelOfName(name);
    return {line.substr(0, timeLength), level ? level : someLevel, line.substr(textAt)};
}

CLogFollower::CLogFollower(const char* baseName, const char* directory)
    : m_names(std::make_unique<corekit::detail::LogFileNames>(baseName, directory))
{
}
CLogFollower::~CLogFollower() = default;

// The file after the current one; empty if there is none.
std::string CLogFollower::NextFile() const
{
    const std::vector<std::string> days = m_names->Days();
    if (m_path.empty()) {
        if (!days.empty()) return days.back();
        return GetFileAttributesA(m_names->Single().c_str()) != INVALID_FILE_ATTRIBUTES ? m_names->Single()
                                                                                        : "";
    }
    const auto later = std::ranges::upper_bound(days, m_path); // dates sort as text
    return m_path == m_names->Single() || later == days.end() ? "" : *later;
}

bool CLogFollower::ReadLine(std::string& line)
{
    std::string piece;
    m_file.clear();
    std::getline(m_file, piece);
    m_started += piece;
    if (m_file.eof() || m_file.fail()) return false;
    line = std::exchange(m_started, {});
    return true;
}

bool CLogFollower::Next(std::string& line)
{
    for (;;) {
        if (m_file.is_open() && ReadLine(line)) return true;
        const std::string next = NextFile();
        // Nothing is added to a file once the next one is there.
        if (m_file.is_open() && !next.empty() && ReadLine(line)) return true;
        if (next.empty()) return false;
        m_file.close();
        m_file.clear();
        m_file.open(onDisk(next), std::ios::binary);
        if (!m_file.is_open()) return false;
        m_path = next;
        m_started.clear();
    }
}
