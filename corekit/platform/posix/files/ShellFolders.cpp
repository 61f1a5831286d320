#include "corekit/platform/ShellFolders.h"

#include "corekit/platform/DataFolder.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/processor/Account.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {
using namespace corekit::detail;

enum class Base { home, config, data, cache, userDirs, root };

struct FolderRow {
    int number;
    Base base;
    const char* name;     // below the base, or the key in user-dirs.dirs
    const char* fallback; // below the home, for user directories that nothing names
};

constexpr FolderRow folders[] = {
    {CSIDL_DESKTOP, Base::userDirs, "XDG_DESKTOP_DIR", "Desktop"},
    {CSIDL_DESKTOPDIRECTORY, Base::userDirs, "XDG_DESKTOP_DIR", "Desktop"},
    {CSIDL_PERSONAL, Base::userDirs, "XDG_DOCUMENTS_DIR", "Documents"},
    {CSIDL_MYMUSIC, Base::userDirs, "XDG_MUSIC_DIR", "Music"},
    {CSIDL_MYVIDEO, Base::userDirs, "XDG_VIDEOS_DIR", "Videos"},
    {CSIDL_MYPICTURES, Base::userDirs, "XDG_PICTURES_DIR", "Pictures"},
    {CSIDL_TEMPLATES, Base::userDirs, "XDG_TEMPLATES_DIR", "Templates"},
    {CSIDL_PROGRAMS, Base::data, "/applications", ""},
    {CSIDL_STARTMENU, Base::data, "/applications", ""},
    {CSIDL_STARTUP, Base::config, "/autostart", ""},
    {CSIDL_FONTS, Base::data, "/fonts", ""},
    {CSIDL_APPDATA, Base::config, "", ""},
    {CSIDL_LOCAL_APPDATA, Base::data, "", ""},
    {CSIDL_INTERNET_CACHE, Base::cache, "", ""},
    {CSIDL_PROFILE, Base::home, "", ""},
    {CSIDL_COMMON_PROGRAMS, Base::root, "/usr/share/applications", ""},
    {CSIDL_COMMON_STARTUP, Base::root, "/etc/xdg/autostart", ""},
    {CSIDL_COMMON_APPDATA, Base::root, "/etc/xdg", ""},
    {CSIDL_WINDOWS, Base::root, "/etc", ""},
    {CSIDL_SYSTEM, Base::root, "/usr/lib", ""},
    {CSIDL_PROGRAM_FILES, Base::root, "/opt", ""},
};

// A variable that names a folder; relative ones do not count.
std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value && *value == '/' ? value : "";
}

std::string home()
{
    if (std::string set = variable("HOME"); !set.empty()) return set;
    const corekit::detail::Account own = corekit::detail::currentAccount();
    return *own.home.c_str() == '/' ? own.home : "";
}

std::string base(const char* name, const char* below)
{
    if (std::string set = variable(name); !set.empty()) return set;
    const std::string own = home();
    return own.empty() ? "" : own + below;
}

// The value of KEY="$HOME/..." or KEY="/..." in a line; empty for any other line.
std::string userDir(const std::string& line, const std::string& key)
{
    const std::string start = key + "=\"", homeMark = "$HOME";
    if (!line.starts_with(start)) return "";
    const std::string value = line.substr(start.size(), line.find('"', start.size()) - start.size());
    if (value.starts_with(homeMark + "/") || value == homeMark) return home() + value.substr(homeMark.size());
    return value.starts_with("/") ? value : "";
}

std::string userFolder(const FolderRow& row)
{
    if (std::string set = variable(row.name); !set.empty()) return set;
    std::ifstream file(base("XDG_CONFIG_HOME", "/.config") + "/user-dirs.dirs");
    for (std::string line; std::getline(file, line);)
        if (std::string named = userDir(line, row.name); !named.empty()) return named;
    const std::string own = home();
    return own.empty() ? "" : own + "/" + row.fallback;
}

std::string folderOf(const FolderRow& row)
{
    const auto below = [&row](const std::string& place) { return place.empty() ? place : place + row.name; };
    switch (row.base) {
    case Base::home:
        return below(home());
    case Base::config:
        return below(base("XDG_CONFIG_HOME", "/.config"));
    case Base::data:
        return below(base("XDG_DATA_HOME", "/.local/share"));
    case Base::cache:
        return below(base("XDG_CACHE_HOME", "/.cache"));
    case Base::userDirs:
        return userFolder(row);
    case Base::root:
        break;
    }
    return row.name;
}
} // namespace

BOOL SHGetSpecialFolderPathA(HWND, char* path, int folder, BOOL create)
{
    for (const FolderRow& row : folders) {
        if (row.number != folder) continue;
        const std::string place = folderOf(row);
        if (place.empty()) return fail(ERROR_PATH_NOT_FOUND, FALSE);
        if (place.size() >= MAX_PATH) return fail(ERROR_FILENAME_EXCED_RANGE, FALSE);
        if (create && !makeFolder(place)) return setLastErrorFromErrno(), FALSE;
        std::memcpy(path, place.c_str(), place.size() + 1);
        return TRUE;
    }
    return fail(ERROR_INVALID_PARAMETER, FALSE);
}

DWORD_PTR SHGetFileInfoA(const char* path, DWORD, SHFILEINFOA* info, UINT size, UINT flags)
{
    if (!path || !*path || !info || size < sizeof *info || flags != SHGFI_DISPLAYNAME)
        return fail<DWORD_PTR>(ERROR_INVALID_PARAMETER, 0);
    const std::string native = nativePath(path);
    struct stat facts;
    if (::lstat(native.c_str(), &facts) != 0) return setLastErrorFromErrno(), DWORD_PTR{0};
    const std::size_t end = native.find_last_not_of('/');
    if (end == std::string::npos) return fail<DWORD_PTR>(ERROR_INVALID_NAME, 0);
    const std::size_t slash = native.find_last_of('/', end),
                      start = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t length = end + 1 - start;
    if (length >= sizeof info->szDisplayName) return fail<DWORD_PTR>(ERROR_FILENAME_EXCED_RANGE, 0);
    *info = {};
    native.copy(info->szDisplayName, length, start);
    return 1;
}
