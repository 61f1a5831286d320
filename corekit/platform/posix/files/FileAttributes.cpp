#include "corekit/platform/FileAttributes.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/files/FileFacts.h"
#include "corekit/platform/posix/files/FileTime.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {
using namespace corekit::detail;

DWORD attributesOf(mode_t mode, const std::string& path)
{
    DWORD attributes = 0;
    std::string_view name = path;
    name = name.substr(0, name.find_last_not_of('/') + 1);
    name.remove_prefix(name.find_last_of('/') + 1);
    if (name.starts_with('.') && name.find_first_not_of('.') != name.npos)
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    if (S_ISLNK(mode)) return attributes | FILE_ATTRIBUTE_REPARSE_POINT;
    if (S_ISDIR(mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    else if (!S_ISREG(mode))
        attributes |= FILE_ATTRIBUTE_DEVICE;
    else if ((mode & 0222) == 0)
        attributes |= FILE_ATTRIBUTE_READONLY;
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

BOOL refuse(const std::string& path)
{
    SetLastError(pathError(path));
    return FALSE;
}

DWORD cutToDword(fsblkcnt_t count) { return static_cast<DWORD>(std::min<fsblkcnt_t>(count, 0xFFFFFFFF)); }
} // namespace

namespace corekit::detail {

DWORD pathError(const std::string& path)
{
    const int why = errno;
    const std::size_t end = path.find_last_not_of('/');
    const std::size_t cut = end == std::string::npos ? end : path.find_last_of('/', end);
    struct stat folder;
    if (why == ENOENT && cut != std::string::npos && cut != 0 &&
        (::stat(path.substr(0, cut).c_str(), &folder) != 0 || !S_ISDIR(folder.st_mode)))
        return ERROR_PATH_NOT_FOUND;
    return errorFromErrno(why);
}

bool factsOf(int folder, const std::string& path, WIN32_FILE_ATTRIBUTE_DATA& data)
{
    struct statx facts;
    if (::statx(folder, path.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_BASIC_STATS | STATX_BTIME,
                &facts) != 0)
        return false;
    const auto timeOf = [](const statx_timestamp& t) { return fileTimeOf(t.tv_sec, t.tv_nsec); };
    data.dwFileAttributes = attributesOf(facts.stx_mode, path);
    data.ftCreationTime = timeOf(facts.stx_mask & STATX_BTIME ? facts.stx_btime : facts.stx_mtime);
    data.ftLastAccessTime = timeOf(facts.stx_atime);
    data.ftLastWriteTime = timeOf(facts.stx_mtime);
    const std::uint64_t size = S_ISREG(facts.stx_mode) ? facts.stx_size : 0;
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(size);
    return true;
}

} // namespace corekit::detail

DWORD GetFileAttributesA(const char* name)
{
    if (!name || !*name) return fail(ERROR_PATH_NOT_FOUND, INVALID_FILE_ATTRIBUTES);
    const std::string path = nativePath(name);
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!factsOf(AT_FDCWD, path, data)) return refuse(path), INVALID_FILE_ATTRIBUTES;
    return data.dwFileAttributes;
}

int _chmod(const char* name, int mode)
{
    if (!name || !*name) return fail(ERROR_PATH_NOT_FOUND, -1);
    const std::string path = nativePath(name);
    struct stat facts;
    if (::lstat(path.c_str(), &facts) != 0) return refuse(path), -1;
    if (S_ISLNK(facts.st_mode)) return fail(ERROR_ACCESS_DENIED, -1);
    const mode_t owner = static_cast<mode_t>(mode) & (_S_IREAD | _S_IWRITE);
    const mode_t others = mode & _S_IWRITE ? facts.st_mode & 077 : facts.st_mode & 055;
    if (::chmod(path.c_str(), (facts.st_mode & 07100) | owner | others) != 0) return refuse(path), -1;
    return 0;
}

BOOL CreateDirectoryA(const char* name, _SECURITY_ATTRIBUTES*)
{
    if (!name || !*name) return fail(ERROR_PATH_NOT_FOUND, FALSE);
    const std::string path = nativePath(name);
    if (::mkdir(path.c_str(), 0777) == 0) return TRUE;
    if (errno == EEXIST) return fail(ERROR_ALREADY_EXISTS, FALSE);
    if (errno == ENOENT) return fail(ERROR_PATH_NOT_FOUND, FALSE);
    return refuse(path);
}

BOOL RemoveDirectoryA(const char* name)
{
    if (!name || !*name) return fail(ERROR_PATH_NOT_FOUND, FALSE);
    const std::string path = nativePath(name);
    if (::rmdir(path.c_str()) == 0) return TRUE;
    struct stat link, target;
    if (errno == ENOTDIR && ::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode) &&
        ::stat(path.c_str(), &target) == 0 && S_ISDIR(target.st_mode))
        return ::unlink(path.c_str()) == 0 ? TRUE : refuse(path);
    errno = errno == EEXIST ? ENOTEMPTY : errno;
    return refuse(path);
}

BOOL GetDiskFreeSpaceA(const char* root, DWORD* sectorsPerCluster, DWORD* bytesPerSector, DWORD* freeClusters,
                       DWORD* clusters)
{
    const std::string path = root && *root ? nativePath(root) : ".";
    struct statvfs volume;
    if (::statvfs(path.c_str(), &volume) != 0) return refuse(path);
    constexpr DWORD sector = 512;
    const bool whole = volume.f_frsize >= sector && volume.f_frsize % sector == 0;
    if (sectorsPerCluster) *sectorsPerCluster = whole ? static_cast<DWORD>(volume.f_frsize / sector) : 1;
    if (bytesPerSector) *bytesPerSector = whole ? sector : static_cast<DWORD>(volume.f_frsize);
    if (freeClusters) *freeClusters = cutToDword(volume.f_bavail);
    if (clusters) *clusters = cutToDword(volume.f_blocks);
    return TRUE;
}
