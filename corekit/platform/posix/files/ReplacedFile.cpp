#include "corekit/platform/posix/files/ReplacedFile.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {
std::string Resolved(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : path;
}

// A name that no other thread or process is using.
std::string NewName(const std::string& target)
{
    static std::atomic<unsigned> count = 0;
    return target + "." + std::to_string(getpid()) + "-" + std::to_string(++count) + ".new";
}
} // namespace

namespace corekit::detail {

ReplacedFile::ReplacedFile(const std::string& target) : m_target(Resolved(target))
{
    struct stat old;
    m_exists = stat(m_target.c_str(), &old) == 0;
    m_mode = m_exists ? old.st_mode & 07777 : 0666;
    const std::string path = NewName(m_target);
    for (int turn = 0; turn < 2 && !m_descriptor; ++turn) {
        if (turn > 0) unlink(path.c_str()); // one that a killed process left
        m_descriptor = detail::Descriptor(
            open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, m_exists ? 0600 : m_mode));
        if (!m_descriptor && errno != EEXIST) return;
    }
    if (!m_descriptor) return;
    m_path = path;
    // The owner can be kept by root only; anyone else's files become those of the one who changed them.
    if (m_exists) static_cast<void>(!fchown(m_descriptor.get(), old.st_uid, old.st_gid));
}

ReplacedFile::~ReplacedFile()
{
    if (!m_path.empty()) unlink(m_path.c_str());
}

bool ReplacedFile::Write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(m_descriptor.get(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool ReplacedFile::Commit()
{
    if (m_exists && fchmod(m_descriptor.get(), m_mode) != 0) return false;
    if (fsync(m_descriptor.get()) != 0 || rename(m_path.c_str(), m_target.c_str()) != 0) return false;
    m_path.clear();
    const std::string folder = m_target.substr(0, m_target.rfind('/') + 1);
    const detail::Descriptor directory(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory) fsync(directory.get());
    return true;
}

} // namespace corekit::detail
