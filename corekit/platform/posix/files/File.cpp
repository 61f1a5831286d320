#include "corekit/platform/posix/files/File.h"

#include <algorithm>
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
    : IoObject(kKind, std::move(descriptor), flow, use.access), m_id(id), m_use(use)
{
}

File::~File()
{
    struct stat now;
    if (!m_deletePath.empty() && ::stat(m_deletePath.c_str(), &now) == 0 &&
        FileId{now.st_dev, now.st_ino} == m_id)
        ::unlink(m_deletePath.c_str());
    if (m_use.access != 0) releaseFile(m_id, m_use);
}

} // namespace corekit::detail
