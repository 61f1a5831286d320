#include "corekit/platform/FileMapping.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/files/FileViews.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace corekit::detail;

class FileMapping : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::fileMapping;

    FileMapping(Descriptor own, const FileId& file, std::uint64_t bytes, bool mayWrite)
        : Object(objectKind), descriptor(std::move(own)), id(file), size(bytes), writable(mayWrite)
    {
    }

    const Descriptor descriptor; // of its own: the mapping outlives the file's handle
    const FileId id;
    const std::uint64_t size;
    const bool writable;
};

struct View {
    std::size_t size;
    std::size_t addresses; // that it has, some of them perhaps behind the file's end
    FileId file;
    std::uint64_t fileEnd; // of what it shows
};

// The views of this process.
struct Views {
    std::mutex mutex;
    std::map<std::uintptr_t, View> byAddress;
};

Views& views()
{
    static Views& all = *new Views; // for the life of the process, also for those who unmap at its end
    return all;
}

// A hole that finds the volume full when somebody writes to it ends the process, so the room is taken now
// where the file system can do so. 0, or why not.
int takeRoom(int fd, std::uint64_t from, std::uint64_t to)
{
    int done;
    do done = ::fallocate(fd, 0, static_cast<off_t>(from), static_cast<off_t>(to - from));
    while (done != 0 && errno == EINTR);
    return done == 0 ? 0 : errno;
}

bool isUnsupported(int reason) { return reason == EOPNOTSUPP || reason == ENOSYS; }

bool extend(int fd, std::uint64_t from, std::uint64_t to)
{
    if (to > INT64_MAX) return fail(ERROR_INVALID_PARAMETER, false);
    const int reason = takeRoom(fd, from, to);
    if (reason == 0) return true;
    if (isUnsupported(reason)) {
        if (::ftruncate(fd, static_cast<off_t>(to)) == 0) return true;
        return fail(errorFromErrno(errno), false);
    }
    // What was reserved before the volume was full.
    if (::ftruncate(fd, static_cast<off_t>(from)) != 0) return fail(errorFromErrno(errno), false);
    return fail(errorFromErrno(reason), false);
}

// A file may come with holes, as some copies have them.
bool fillHoles(int fd, const struct stat& facts, std::uint64_t size)
{
    constexpr std::uint64_t blockUnit = 512; // of st_blocks
    if (static_cast<std::uint64_t>(facts.st_blocks) * blockUnit >= static_cast<std::uint64_t>(facts.st_size))
        return true;
    const int reason = takeRoom(fd, 0, size);
    return reason == 0 || isUnsupported(reason) || fail(errorFromErrno(reason), false);
}

// The size that a mapping gets, after the file was extended if that is asked for; 0 on failure.
std::uint64_t sizeToMap(int fd, const struct stat& facts, std::uint64_t asked, bool writable)
{
    const auto present = static_cast<std::uint64_t>(facts.st_size);
    if (asked == 0 && present == 0) return fail(ERROR_FILE_INVALID, std::uint64_t{0});
    const std::uint64_t size = asked == 0 ? present : asked;
    if (!writable) return size <= present ? size : fail(ERROR_NOT_ENOUGH_MEMORY, std::uint64_t{0});
    if (present > 0 && !fillHoles(fd, facts, std::min(size, present))) return 0;
    return size <= present || extend(fd, present, size) ? size : 0;
}

} // namespace

DWORD corekit::detail::setFileSize(int descriptor, std::int64_t size)
{
    const std::lock_guard lock(views().mutex); // no view appears between the look and the cut
    struct stat facts;
    if (!views().byAddress.empty() && ::fstat(descriptor, &facts) == 0) {
        const FileId file{facts.st_dev, facts.st_ino};
        for (const auto& [address, view] : views().byAddress)
            if (view.file == file && static_cast<std::uint64_t>(size) < view.fileEnd)
                return ERROR_USER_MAPPED_FILE;
    }
    int result;
    do result = ::ftruncate(descriptor, size);
    while (result != 0 && errno == EINTR);
    return result == 0 ? NO_ERROR : errorFromErrno(errno);
}

HANDLE CreateFileMappingA(HANDLE handle, _SECURITY_ATTRIBUTES*, DWORD protection, DWORD sizeHigh,
                          DWORD sizeLow, const char* name)
{
    const HandleUser<File> file(handle);
    if (name != nullptr) return fail(ERROR_CALL_NOT_IMPLEMENTED, nullptr);
    if (!file) return fail(ERROR_INVALID_HANDLE, nullptr);
    if (protection != PAGE_READONLY && protection != PAGE_READWRITE)
        return fail(ERROR_INVALID_PARAMETER, nullptr);
    const bool writable = protection == PAGE_READWRITE;
    if (!file->allows(GENERIC_READ) || (writable && !file->allows(GENERIC_WRITE)))
        return fail(ERROR_ACCESS_DENIED, nullptr);

    Descriptor own(::fcntl(file->descriptor(), F_DUPFD_CLOEXEC, 0));
    if (!own) return fail(errorFromErrno(errno), nullptr);
    struct stat facts;
    if (::fstat(own.get(), &facts) != 0) return fail(errorFromErrno(errno), nullptr);
    const std::uint64_t size =
        sizeToMap(own.get(), facts, static_cast<std::uint64_t>(sizeHigh) << 32 | sizeLow, writable);
    if (size == 0) return nullptr;
    try {
        return openHandle(std::make_unique<FileMapping>(std::move(own), FileId{facts.st_dev, facts.st_ino},
                                                        size, writable));
    } catch (const std::bad_alloc&) {
        return fail(ERROR_NOT_ENOUGH_MEMORY, nullptr);
    }
}

void* MapViewOfFile(HANDLE handle, DWORD access, DWORD offsetHigh, DWORD offsetLow, std::size_t bytes)
{
    const HandleUser<FileMapping> mapping(handle);
    if (!mapping) return fail(ERROR_INVALID_HANDLE, nullptr);
    const bool writes = (access & FILE_MAP_WRITE) != 0;
    if ((access & ~(FILE_MAP_READ | FILE_MAP_WRITE)) != 0 || access == 0)
        return fail(ERROR_INVALID_PARAMETER, nullptr);
    if (writes && !mapping->writable) return fail(ERROR_ACCESS_DENIED, nullptr);
    const std::uint64_t offset = static_cast<std::uint64_t>(offsetHigh) << 32 | offsetLow;
    if (offset % allocationGranularity != 0) return fail(ERROR_MAPPED_ALIGNMENT, nullptr);
    if (offset >= mapping->size || bytes > mapping->size - offset) return fail(ERROR_ACCESS_DENIED, nullptr);
    if (bytes == 0) bytes = mapping->size - offset;

    void* const view = ::mmap(nullptr, bytes, writes ? PROT_READ | PROT_WRITE : PROT_READ, MAP_SHARED,
                              mapping->descriptor.get(), static_cast<off_t>(offset));
    if (view == MAP_FAILED) return fail(errorFromErrno(errno), nullptr);
    try {
        const std::lock_guard lock(views().mutex);
        views().byAddress.emplace(reinterpret_cast<std::uintptr_t>(view),
                                  View{bytes, bytes, mapping->id, offset + bytes});
        return view;
    } catch (const std::bad_alloc&) {
        ::munmap(view, bytes);
        return fail(ERROR_NOT_ENOUGH_MEMORY, nullptr);
    }
}

void* ExtendViewOfFile(const void* view, HANDLE handle, std::size_t bytes)
{
    const HandleUser<FileMapping> mapping(handle);
    if (!mapping) return fail(ERROR_INVALID_HANDLE, nullptr);
    const std::lock_guard lock(views().mutex);
    auto& all = views().byAddress;
    const auto found = all.find(reinterpret_cast<std::uintptr_t>(view));
    if (found == all.end()) return fail(ERROR_INVALID_ADDRESS, nullptr);
    View& old = found->second;
    if (!(old.file == mapping->id) || old.fileEnd != old.size || bytes < old.size)
        return fail(ERROR_INVALID_PARAMETER, nullptr);
    if (bytes > mapping->size) return fail(ERROR_ACCESS_DENIED, nullptr);

    std::uintptr_t address = found->first;
    if (bytes > old.addresses) {
        const std::size_t ample = bytes + bytes / 2;
        void* moved = ::mremap(reinterpret_cast<void*>(address), old.addresses, ample, MREMAP_MAYMOVE);
        if (moved == MAP_FAILED) return fail(errorFromErrno(errno), nullptr);
        old.addresses = ample;
        address = reinterpret_cast<std::uintptr_t>(moved);
    }
    old.size = bytes;
    old.fileEnd = bytes;
    auto node = all.extract(found);
    node.key() = address;
    all.insert(std::move(node));
    return reinterpret_cast<void*>(address);
}

BOOL UnmapViewOfFile(const void* view)
{
    const auto address = reinterpret_cast<std::uintptr_t>(view);
    const std::lock_guard lock(views().mutex);
    const auto found = views().byAddress.find(address);
    if (found == views().byAddress.end()) return fail(ERROR_INVALID_ADDRESS, FALSE);
    ::munmap(reinterpret_cast<void*>(address), found->second.addresses);
    views().byAddress.erase(found);
    return TRUE;
}

BOOL FlushViewOfFile(const void* address, std::size_t bytes)
{
    const auto first = reinterpret_cast<std::uintptr_t>(address);
    std::uintptr_t end = 0;
    {
        const std::lock_guard lock(views().mutex);
        const auto behind = views().byAddress.upper_bound(first);
        if (behind != views().byAddress.begin())
            end = std::prev(behind)->first + std::prev(behind)->second.size;
    }
    if (first >= end || bytes > end - first) return fail(ERROR_INVALID_ADDRESS, FALSE);
    const std::uintptr_t last = bytes == 0 ? end : first + bytes;
    const std::uintptr_t page = first - first % static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    if (::msync(reinterpret_cast<void*>(page), last - page, MS_SYNC) == 0) return TRUE;
    return fail(errorFromErrno(errno), FALSE);
}
