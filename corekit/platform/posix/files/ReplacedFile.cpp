#include "corekit/platform/ReplacedFile.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {
using corekit::detail::Descriptor;

constexpr int slots = 16;                // writers of one target at the same time
constexpr std::size_t longestStem = 200; // of the 255 bytes of a name
constexpr const char* accessList = "system.posix_acl_access";

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// Where the name leads, also if nothing is there yet; empty with errno for links that lead round.
std::string followed(std::string path)
{
    for (int links = 0; links < 40; ++links) {
        std::array<char, PATH_MAX> to;
        const ssize_t length = ::readlink(path.c_str(), to.data(), to.size());
        if (length < 0) return path;
        const std::string next(to.data(), static_cast<std::size_t>(length));
        path = next.starts_with('/') ? next : folderOf(path) + next;
    }
    errno = ELOOP;
    return {};
}

std::string nameBeside(const std::string& target, int slot)
{
    const std::string folder = folderOf(target);
    return folder + "." + target.substr(folder.size(), longestStem) + ".corekit-" + std::to_string(slot);
}

// A writer holds this lock on its file for as long as it lives.
bool lockAlone(int fd)
{
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    return ::fcntl(fd, F_OFD_SETLK, &whole) == 0;
}

bool isNamed(const std::string& path, int fd)
{
    struct stat named, open;
    return ::lstat(path.c_str(), &named) == 0 && ::fstat(fd, &open) == 0 && named.st_ino == open.st_ino &&
           named.st_dev == open.st_dev;
}

// A plain file of this name that nobody holds was left by a writer that is gone.
void removeLeftover(const std::string& path)
{
    struct stat facts;
    if (::lstat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return;
    const Descriptor file(::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file && lockAlone(file.get()) && isNamed(path, file.get())) ::unlink(path.c_str());
}

Descriptor openFolderOf(const std::string& target)
{
    const std::string folder = folderOf(target);
    return Descriptor(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}
} // namespace

namespace corekit {

using detail::errorFromErrno;
using detail::nativePath;
using detail::setLastErrorFromErrno;

ReplacedFile::ReplacedFile(const std::string& target) : m_target(followed(nativePath(target.c_str())))
{
    Open();
}

void ReplacedFile::Open()
{
    struct stat old;
    if (m_target.empty()) return setLastErrorFromErrno();
    m_exists = ::stat(m_target.c_str(), &old) == 0;
    if (m_exists && S_ISDIR(old.st_mode)) return SetLastError(ERROR_ACCESS_DENIED);
    if (m_exists && !S_ISREG(old.st_mode)) return WriteThrough();
    if (m_exists && ::access(m_target.c_str(), W_OK) != 0) return setLastErrorFromErrno();
    bool isTried = false;
    for (int slot = 0; slot < slots; ++slot) {
        removeLeftover(nameBeside(m_target, slot));
        if (!isTried) isTried = MakeBeside(slot);
    }
    if (!isTried) SetLastError(ERROR_BUSY);
}

ReplacedFile::~ReplacedFile()
{
    if (m_isBeside) ::unlink(m_path.c_str());
    if (m_descriptor >= 0) ::close(m_descriptor);
}

void ReplacedFile::WriteThrough()
{
    m_descriptor = ::open(m_target.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (m_descriptor < 0) return setLastErrorFromErrno();
    ::fcntl(m_descriptor, F_SETFL, O_WRONLY);
    m_path = m_target;
}

// False if the name is taken.
bool ReplacedFile::MakeBeside(int slot)
{
    const std::string path = nameBeside(m_target, slot);
    Descriptor file(
        ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, m_exists ? 0600 : 0666));
    if (!file && errno == EEXIST) return false;
    if (!file) return SetLastError(errno == ENOENT ? ERROR_PATH_NOT_FOUND : errorFromErrno(errno)), true;
    // Before it was locked, somebody may have taken it for a leftover.
    const bool isLocked = lockAlone(file.get()) || (errno != EAGAIN && errno != EACCES);
    if (!isLocked || !isNamed(path, file.get())) return false;
    m_path = path;
    m_isBeside = true;
    m_descriptor = ::fcntl(file.get(), F_DUPFD_CLOEXEC, 0);
    if (m_descriptor < 0) setLastErrorFromErrno();
    return true;
}

bool ReplacedFile::Write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(m_descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return setLastErrorFromErrno(), false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// The owner can be kept by root only; anyone else's files become those of the one who changed them. A group
// that cannot be kept hands its rights to no other.
bool ReplacedFile::KeepRights()
{
    struct stat old, now;
    if (::stat(m_target.c_str(), &old) != 0) return true; // removed meanwhile
    if (::fchown(m_descriptor, old.st_uid, old.st_gid) != 0)
        static_cast<void>(!::fchown(m_descriptor, static_cast<uid_t>(-1), old.st_gid));
    const bool isSameGroup = ::fstat(m_descriptor, &now) == 0 && now.st_gid == old.st_gid;
    if (::fchmod(m_descriptor, old.st_mode & (isSameGroup ? 07777 : 07707)) != 0) return false;
    std::array<char, 4096> list;
    const ssize_t size = ::getxattr(m_target.c_str(), accessList, list.data(), list.size());
    return size <= 0 || !isSameGroup ||
           ::fsetxattr(m_descriptor, accessList, list.data(), static_cast<std::size_t>(size), 0) == 0;
}

bool ReplacedFile::Commit(Sync sync)
{
    if (!m_isBeside) return m_descriptor >= 0;
    if ((m_exists && !KeepRights()) || (sync == Sync::toDevice && ::fsync(m_descriptor) != 0) ||
        ::rename(m_path.c_str(), m_target.c_str()) != 0)
        return setLastErrorFromErrno(), false;
    m_isBeside = false;
    m_path = m_target;
    if (sync == Sync::none) return true;
    const Descriptor folder = openFolderOf(m_target);
    if (!folder || ::fsync(folder.get()) == 0 || errno == EINVAL)
        return true; // some volumes have no such call
    return setLastErrorFromErrno(), false;
}

FileTurn::FileTurn(const std::string& target)
{
    const Descriptor folder = openFolderOf(followed(nativePath(target.c_str())));
    m_folder = folder ? ::fcntl(folder.get(), F_DUPFD_CLOEXEC, 0) : -1;
    if (m_folder >= 0)
        while (::flock(m_folder, LOCK_EX) != 0 && errno == EINTR) {
        }
}

FileTurn::~FileTurn()
{
    if (m_folder < 0) return;
    ::flock(m_folder, LOCK_UN); // a forked child may hold the descriptor too
    ::close(m_folder);
}

} // namespace corekit
