#include "corekit/platform/DataFolder.h"

#include "corekit/platform/posix/processor/Account.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
const char* variable(const char* name)
{
    const char* value = std::getenv(name);
    return value && *value ? value : nullptr;
}

std::string homeFolder()
{
    if (const char* home = variable("HOME")) return home;
    return corekit::detail::currentAccount().home;
}

std::string folderAbove(const std::string& path)
{
    const auto end = path.find_last_not_of('/');
    const auto slash = end == std::string::npos ? end : path.rfind('/', end);
    if (slash == std::string::npos) return path.starts_with('/') ? "/" : ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}
} // namespace

namespace corekit {

std::string DataFolder()
{
    if (const char* home = variable("COREKIT_HOME")) return home;
    std::string machine = "/var/lib/corekit";
    if (MayWrite(machine)) return machine;
    const char* data = variable("XDG_DATA_HOME");
    return (data ? std::string(data) : homeFolder() + "/.local/share") + "/corekit";
}

bool MayWrite(const std::string& path)
{
    std::string place = path;
    while (faccessat(AT_FDCWD, place.c_str(), F_OK, AT_EACCESS) != 0) {
        if (errno != ENOENT || place == "/" || place == ".") return false;
        place = folderAbove(place);
    }
    return faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) == 0;
}

namespace detail {

bool makeFolder(const std::string& path)
{
    struct stat status;
    if (stat(path.c_str(), &status) == 0) {
        errno = ENOTDIR;
        return S_ISDIR(status.st_mode);
    }
    if (errno != ENOENT || path.empty()) return false;
    if (const std::string above = folderAbove(path); above != path && !makeFolder(above)) return false;
    return mkdir(path.c_str(), isOfSystem(path) ? 0755 : 0700) == 0 || errno == EEXIST;
}

bool isOfSystem(const std::string& path) { return path.starts_with("/var/"); }

} // namespace detail
} // namespace corekit
