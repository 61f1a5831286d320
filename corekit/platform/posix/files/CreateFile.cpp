// Opening and deleting files.
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/posix/devices/DeviceNames.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/files/FileViews.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace corekit::detail;

HANDLE fail(DWORD code)
{
    SetLastError(code);
    return INVALID_HANDLE_VALUE;
}

bool folderExists(const std::string& path)
{
    const std::size_t cut = path.find_last_of('/');
    if (cut == std::string::npos || cut == 0) return true;
    struct stat folder;
    return ::stat(path.substr(0, cut).c_str(), &folder) == 0 && S_ISDIR(folder.st_mode);
}

// errno after a failed use of the name; a missing file is told from a missing folder.
DWORD nameError(const std::string& path)
{
    const int why = errno;
    if (why == ENOENT && !folderExists(path)) return ERROR_PATH_NOT_FOUND;
    return errorFromErrno(why);
}

int accessMode(DWORD access)
{
    if (access == 0) return O_PATH; // looks at the file without any right to its content
    if ((access & GENERIC_WRITE) == 0) return O_RDONLY;
    return (access & GENERIC_READ) != 0 ? O_RDWR : O_WRONLY;
}

struct Opened {
    Descriptor descriptor;
    bool existed = false;
};

int openRetrying(const std::string& path, int flags, mode_t mode)
{
    int fd;
    do
        fd = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                    mode); // a pipe may have no other end
    while (fd < 0 && errno == EINTR);
    if (fd >= 0 && (flags & O_PATH) == 0) ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

// Opens by disposition without emptying anything: whether the file may be had is not known yet.
Opened openPath(const std::string& path, DWORD access, DWORD disposition, DWORD flags)
{
    const int mode = accessMode(access) | ((flags & FILE_FLAG_WRITE_THROUGH) != 0 ? O_SYNC : 0);
    const int makeMode = (access == 0 ? O_RDONLY : mode) | O_CREAT | O_EXCL;
    const mode_t rights = (flags & FILE_ATTRIBUTE_READONLY) != 0 ? 0444 : 0666;
    if (disposition == CREATE_NEW) return {Descriptor(openRetrying(path, makeMode, rights)), false};
    const bool mayMake = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    // Others may make or remove the file between the two attempts; each turn is their progress.
    for (int turn = 0;; ++turn) {
        Descriptor existing(openRetrying(path, mode, 0));
        if (existing || errno != ENOENT || !mayMake) return {std::move(existing), true};
        Descriptor made(openRetrying(path, makeMode, rights));
        if (made || errno != EEXIST || turn == 100) return {std::move(made), false};
    }
}

void giveHints(int fd, DWORD flags)
{
    if ((flags & FILE_FLAG_SEQUENTIAL_SCAN) != 0) ::posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
    if ((flags & FILE_FLAG_RANDOM_ACCESS) != 0) ::posix_fadvise(fd, 0, 0, POSIX_FADV_RANDOM);
}

std::string absolutePath(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> full(::realpath(path.c_str(), nullptr), &std::free);
    return full ? std::string(full.get()) : path;
}

HANDLE openFile(const std::string& path, const FileUse& use, DWORD disposition, DWORD flags)
{
    Opened opened = openPath(path, use.access, disposition, flags);
    if (!opened.descriptor) return fail(nameError(path));
    const int fd = opened.descriptor.get();
    struct stat facts;
    if (::fstat(fd, &facts) != 0) return fail(errorFromErrno(errno));
    if (S_ISDIR(facts.st_mode)) return fail(ERROR_ACCESS_DENIED);
    const FileId id{facts.st_dev, facts.st_ino};
    if (use.access != 0 && !claimFile(id, use)) return fail(ERROR_SHARING_VIOLATION);
    const Flow flow = S_ISREG(facts.st_mode) || S_ISBLK(facts.st_mode) ? Flow::placed : Flow::stream;
    auto file = std::make_unique<File>(std::move(opened.descriptor), id, use, flow);

    const bool empties = opened.existed && (disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING);
    if (use.access != 0) {
        if (S_ISREG(facts.st_mode) && !file->lockTowardsOthers()) return fail(ERROR_SHARING_VIOLATION);
        if (S_ISREG(facts.st_mode)) giveHints(fd, flags);
    }
    if (empties && S_ISREG(facts.st_mode)) {
        const Descriptor writer((use.access & GENERIC_WRITE) != 0 ? -1 : openRetrying(path, O_WRONLY, 0));
        if (const DWORD error = setFileSize(writer ? writer.get() : fd, 0)) return fail(error);
    }
    if ((flags & FILE_FLAG_DELETE_ON_CLOSE) != 0) file->deleteOnClose(absolutePath(path));
    const HANDLE handle = openHandle(std::move(file));
    if (handle == nullptr) return INVALID_HANDLE_VALUE;
    if (disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS)
        SetLastError(opened.existed ? ERROR_ALREADY_EXISTS : NO_ERROR);
    return handle;
}

} // namespace

HANDLE CreateFileA(const char* name, DWORD access, DWORD share, _SECURITY_ATTRIBUTES*, DWORD disposition,
                   DWORD flags, HANDLE)
try {
    if (name == nullptr || *name == 0) return fail(ERROR_PATH_NOT_FOUND);
    if (const std::string_view device = deviceNameIn(name); !device.empty())
        return openDevice(device, {access, share, disposition, flags});
    const bool emptiesBlindly = disposition == TRUNCATE_EXISTING && (access & GENERIC_WRITE) == 0;
    if (disposition < CREATE_NEW || disposition > TRUNCATE_EXISTING || emptiesBlindly ||
        (access & ~(GENERIC_READ | GENERIC_WRITE)) != 0)
        return fail(ERROR_INVALID_PARAMETER);
    return openFile(nativePath(name), {access, share}, disposition, flags);
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY);
}

BOOL DeleteFileA(const char* name)
try {
    if (name == nullptr || *name == 0) return fail(ERROR_PATH_NOT_FOUND), FALSE;
    const std::string path = nativePath(name);
    struct stat facts;
    if (::lstat(path.c_str(), &facts) != 0) return fail(nameError(path)), FALSE;
    const bool isReadOnly = S_ISREG(facts.st_mode) && (facts.st_mode & 0222) == 0;
    if (S_ISDIR(facts.st_mode) || isReadOnly) return fail(ERROR_ACCESS_DENIED), FALSE;
    if (!mayDeleteFile({facts.st_dev, facts.st_ino})) return fail(ERROR_SHARING_VIOLATION), FALSE;
    if (::unlink(path.c_str()) != 0) return fail(nameError(path)), FALSE;
    return TRUE;
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY), FALSE;
}
