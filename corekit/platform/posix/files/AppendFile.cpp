#include "corekit/platform/AppendFile.h"

#include "corekit/platform/Files.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace corekit::detail {
namespace {

constexpr FileUse loneWriter{GENERIC_WRITE, FILE_SHARE_READ};

// Keeps out every other holder of these locks, in whatever process. A volume without locks has none.
bool lockTowardsOthers(int fd)
{
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (::fcntl(fd, F_OFD_SETLK, &whole) != 0 && (errno == EAGAIN || errno == EACCES)) return false;
    return ::flock(fd, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// Children that were forked meanwhile have the descriptor too, so that closing it would not do.
void unlockTowardsOthers(int fd)
{
    struct flock whole = {};
    whole.l_type = F_UNLCK;
    whole.l_whence = SEEK_SET;
    ::fcntl(fd, F_OFD_SETLK, &whole);
    ::flock(fd, LOCK_UN);
}

// As ::write, without the bookkeeping that lets a thread be cancelled in it.
ssize_t writeOut(int fd, std::string_view bytes)
{
    return ::syscall(SYS_write, fd, bytes.data(), bytes.size());
}

// Whether the file ends within a line, which its writer did not live to finish.
bool endsWithinLine(const std::string& path, off_t size)
{
    const Descriptor reader(size > 0 ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1);
    char last = '\n';
    return reader && ::pread(reader.get(), &last, 1, size - 1) == 1 && last != '\n';
}

} // namespace

class AppendFile::Writer {
public:
    Writer(Descriptor descriptor, const FileId& id)
        : m_descriptor(std::move(descriptor)), m_id(id), m_isAlone(claimFile(id, loneWriter))
    {
    }
    ~Writer()
    {
        if (m_locker != 0 && m_locker == ::getpid()) unlockTowardsOthers(get());
        if (m_isAlone) releaseFile(m_id, loneWriter);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    int get() const { return m_descriptor.get(); }
    bool isAlone()
    {
        if (!m_isAlone || !lockTowardsOthers(get())) return false;
        m_locker = ::getpid();
        return true;
    }

private:
    Descriptor m_descriptor;
    FileId m_id;
    bool m_isAlone;
    int m_locker = 0; // the process that has the locks
};

AppendFile::AppendFile() = default;
AppendFile::AppendFile(AppendFile&&) noexcept = default;
AppendFile& AppendFile::operator=(AppendFile&&) noexcept = default;
AppendFile::~AppendFile() = default;

bool AppendFile::Open(const char* name)
{
    const std::string path = nativePath(name);
    Descriptor opened(::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, 0666));
    struct stat facts;
    if (!opened && errno == ENOENT) return fail(ERROR_PATH_NOT_FOUND, false); // a missing file would be made
    if (!opened || ::fstat(opened.get(), &facts) != 0) return setLastErrorFromErrno(), false;
    auto writer = std::make_unique<Writer>(std::move(opened), FileId{facts.st_dev, facts.st_ino});
    if (!writer->isAlone()) return fail(ERROR_SHARING_VIOLATION, false);
    m_file = std::move(writer);
    if (::fstat(m_file->get(), &facts) == 0 && endsWithinLine(path, facts.st_size)) Append("\n");
    return true;
}

void AppendFile::Close() { m_file.reset(); }

bool AppendFile::Append(std::string_view bytes)
{
    const int fd = m_file->get();
    std::size_t taken = 0;
    while (taken < bytes.size()) {
        const ssize_t now = writeOut(fd, bytes.substr(taken));
        if (now < 0 && errno == EINTR) continue;
        if (now <= 0) break;
        taken += static_cast<std::size_t>(now);
    }
    if (taken == bytes.size()) return true;
    setLastErrorFromErrno();
    struct stat facts;
    if (taken > 0 && ::fstat(fd, &facts) == 0)
        static_cast<void>(::ftruncate(fd, facts.st_size - static_cast<off_t>(taken)));
    return false;
}

} // namespace corekit::detail
