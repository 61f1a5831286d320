// Reading a log while it is written.
//
//     CLogFollower log("Server", "/var/log/prompter");
//     std::string line;
//     for (;;) {
//         while (log.Next(line)) show(ParseLogLine(line));
//         Sleep(200);
//     }
//
// It begins with the newest day file, or with "Server.log" where there is none, and goes on to the next day's
// when that is there and the old one is at its end. The log need not exist yet. One thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <fstream>
#include <memory>
#include <string>
#include <string_view>

namespace corekit::detail {
class LogFileNames;
}

// A line in its parts, which lie in the line. Where an entry's text has line ends, the lines behind the first
// have no time and level 0.
struct LogLine {
    std::string_view time; // "14:11:2026 18:30:05"
    DWORD level = 0;       // 0x80000000 for a name that is no level's
    std::string_view text;
};
COREKIT_API LogLine ParseLogLine(std::string_view line);

class COREKIT_API CLogFollower {
public:
    // Names as they were given to CLogTarget::CreateLogFile. Nothing is opened before the first Next.
    CLogFollower(const char* baseName, const char* directory);

    ~CLogFollower();

    // The next whole line, without its end. False if there is none yet.
    bool Next(std::string& line);
    // The file that the last line came from; empty before the first.
    const std::string& CurrentFile() const { return m_path; }

private:
    // The path of the file to go on with; empty while there is none.
    std::string NextFile() const;
    bool ReadLine(std::string& line);

    std::unique_ptr<corekit::detail::LogFileNames> m_names;
    std::string m_path;    // of the file that is read
    std::ifstream m_file;  // behind the last whole line, or in one that has no end yet
    std::string m_started; // a line whose end is not there yet
};
