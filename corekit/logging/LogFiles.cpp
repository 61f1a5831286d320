#include "corekit/logging/LogFiles.h"

#include "corekit/foundation/TimeFunctions.h"
#include "corekit/platform/FindFile.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>

namespace corekit::detail {
namespace {

constexpr std::size_t dateLength = 10;
constexpr int firstDate = 19700101;
constexpr long secondsPerDay = 86400;

bool isFile(const WIN32_FIND_DATAA& data)
{
    return !(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && std::strcmp(data.cFileName, ".") != 0 &&
           std::strcmp(data.cFileName, "..") != 0;
}

} // namespace

LogFileNames::LogFileNames(std::string_view baseName, std::string_view directory) : m_stem(directory)
{
    const bool hasSeparator = directory.ends_with('\\') || directory.ends_with('/');
    if (!hasSeparator) m_stem += '\\';
    m_stem += baseName;
}

std::string LogFileNames::OfDay(long utc) const
{
    CString day;
    time_FormatString(day, "%Y-%m-%d", utc, 1);
    return m_stem + "." + day.GetString() + ".log";
}

std::vector<std::string> LogFileNames::Existing() const
{
    const std::string folder = m_stem.substr(0, m_stem.find_last_of("/\\") + 1);
    std::vector<std::string> paths;
    WIN32_FIND_DATAA data;
    const HANDLE search = FindFirstFileA((m_stem + ".*.log").c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) return paths;
    do
        if (isFile(data)) paths.push_back(folder + data.cFileName);
    while (FindNextFileA(search, &data));
    FindClose(search);
    std::ranges::stable_sort(paths, {}, [this](const std::string& path) { return DateKey(path); });
    return paths;
}

std::vector<std::string> LogFileNames::Days() const
{
    std::vector<std::string> days = Existing();
    std::erase_if(days, [this](const std::string& path) {
        const std::string date = DateText(path);
        const bool isWhole = date.size() == dateLength && date[4] == '-' && date[7] == '-' &&
                             DateKey(path) >= firstDate && path.size() == m_stem.size() + dateLength + 5;
        return !isWhole;
    });
    return days;
}

std::string LogFileNames::DateText(const std::string& path) const
{
    return path.substr(std::min(m_stem.size() + 1, path.size()), dateLength);
}

// The date as one number, 20261114; whatever number stands in its place, 0 for none.
int LogFileNames::DateKey(const std::string& path) const
{
    std::string date = DateText(path);
    std::erase(date, '-');
    return static_cast<int>(std::clamp(std::strtol(date.c_str(), nullptr, 10), long{INT_MIN}, long{INT_MAX}));
}

long logDay(long utc) { return time_UTCToLocal(utc) / secondsPerDay; }

} // namespace corekit::detail
