#include "corekit/platform/posix/devices/DeviceNames.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/Runtime.h"

#include <charconv>

namespace corekit::detail {

std::string_view deviceNameIn(const char* name)
{
    const std::string_view text(name);
    const auto separates = [&](std::size_t at) { return text[at] == '\\' || text[at] == '/'; };
    const bool isDevice = text.size() > 4 && text.starts_with("\\\\") && text[2] == '.' && separates(3);
    return isDevice ? text.substr(4) : std::string_view();
}

int numberIn(std::string_view name, std::string_view prefix, std::string_view suffix)
{
    const bool fits = name.size() > prefix.size() + suffix.size() && name.ends_with(suffix) &&
                      _strnicmp(name.data(), prefix.data(), prefix.size()) == 0;
    if (!fits) return -1;
    const char* const end = name.data() + name.size() - suffix.size();
    int number = -1;
    const auto read = std::from_chars(name.data() + prefix.size(), end, number);
    return read.ec == std::errc() && read.ptr == end && number >= 0 ? number : -1;
}

HANDLE openDevice(std::string_view name, const DeviceUse& use)
{
    if (const int port = numberIn(name, "COM"); port >= 0) return openSerialPort(port, use);
    if (const int adaptor = numberIn(name, "Scsi", ":"); adaptor >= 0) return openScsiPort(adaptor, use);
    return fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
}

} // namespace corekit::detail
