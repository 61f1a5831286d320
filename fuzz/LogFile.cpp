// Any bytes as a log: the lines that are read are those of the file, and their parts lie in them.
#include "FuzzFile.h"

#include "corekit/logging/LogFollower.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FuzzFile file("Server.log", data, size);
    CLogFollower log("Server", FuzzFolder().c_str());
    std::string all;
    for (std::string line; log.Next(line); all += line + '\n') {
        const LogLine parts = ParseLogLine(line);
        if (parts.time.size() + parts.text.size() > line.size() || (parts.level && parts.time.empty()))
            std::abort();
    }
    const std::string_view whole(reinterpret_cast<const char*>(data), size);
    if (all != whole.substr(0, whole.rfind('\n') + 1)) std::abort();
    return 0;
}
