#include "corekit/platform/posix/files/File.h"

#include <algorithm>
#include <cerrno>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corekit::detail {

std::string nativePath(const char* name)
{
    std::string path(name);
    std::ranges::replace(path, '\\', '/');
    return path;
}

File::File(Descriptor descriptor, const FileId& id, const FileUse& use, Flow flow)
    : IoObject(objectKind, std::move(descriptor), flow, use.access), m_id(id), m_use(use)
{
}

File::~File()
{
    struct stat now;
    if (!m_deletePath.empty() && ::stat(m_deletePath.c_str(), &now) == 0 &&
        FileId{now.st_dev, now.st_ino} == m_id)
        ::unlink(m_deletePath.c_str());
    // Not by closing alone: children that were forked meanwhile have the descriptor too.
    if (m_locker != 0 && m_locker == ::getpid()) ::flock(descriptor(), LOCK_UN);
    if (m_use.access != 0) releaseFile(m_id, m_use);
}

// An opening that shares nothing keeps other processes out, every other one only such openings.
bool File::lockTowardsOthers()
{
    int result;
    do result = ::flock(descriptor(), (m_use.share == 0 ? LOCK_EX : LOCK_SH) | LOCK_NB);
    while (result != 0 && errno == EINTR);
    if (result == 0) m_locker = ::getpid();
    return result == 0 || errno != EWOULDBLOCK; // a volume without locks has nobody to keep out
}

} // namespace corekit::detail
