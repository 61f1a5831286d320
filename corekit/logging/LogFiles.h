// The files that a log leaves in its folder.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <string>
#include <string_view>
#include <vector>

namespace corekit::detail {

// What all files of one log are called.
class COREKIT_API LogFileNames {
public:
    LogFileNames() = default;
    LogFileNames(std::string_view baseName, std::string_view directory);

    // "<directory>\<base>.log"
    std::string Single() const { return m_stem + ".log"; }
    // "<directory>\<base>.<YYYY-MM-DD>.log" for the local day of that time.
    std::string OfDay(long utc) const;
    // The day files that are there, and whatever else is called "<base>.*.log", by their dates, the oldest
    // first. What has no date comes before them.
    std::vector<std::string> Existing() const;
    // Those of them whose date is whole.
    std::vector<std::string> Days() const;

private:
    std::string DateText(const std::string& path) const;
    int DateKey(const std::string& path) const;

    std::string m_stem; // directory, separator and base name
};

// The local day that a time falls on, counted from 1970.
long logDay(long utc);

} // namespace corekit::detail
