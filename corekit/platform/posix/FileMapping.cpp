#include "corekit/platform/FileMapping.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/File.h"

#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace corekit::detail;

constexpr std::uint64_t granularity = 65536;

class FileMapping : public Object {
public:
    static constexpr ObjectKind kKind = ObjectKind::fileMapping;

    FileMapping(Descriptor own, std::uint64_t bytes, bool mayWrite)
        : Object(kKind), descriptor(std::move(own)), size(bytes), writable(mayWrite)
    {
    }

    const Descriptor descriptor; // of its own: the mapping outlives the file's handle
    const std::uint64_t size;
    const bool writable;
};

// The views of this process, by address.
struct Views {
    std::mutex mutex;
    std::map<std::uintptr_t, std::size_t> sizes;
};

Views& views()
{
    static Views& all = *new Views; // for the life of the process, also for those who unmap at its end
    return all;
}

// The size that a mapping gets, after the file was extended if that is asked for; 0 on failure.
std::uint64_t sizeToMap(int fd, std::uint64_t asked, bool writable)
{
    struct stat facts;
    if (::fstat(fd, &facts) != 0) return fail(errorFromErrno(errno), std::uint64_t{0});
    const auto present = static_cast<std::uint64_t>(facts.st_size);
    if (asked == 0 && present == 0) return fail(ERROR_FILE_INVALID, std::uint64_t{0});
    if (asked == 0 || asked <= present) return asked == 0 ? present : asked;
    if (!writable) return fail(ERROR_NOT_ENOUGH_MEMORY, std::uint64_t{0});
    if (asked > INT64_MAX || ::ftruncate(fd, static_cast<off_t>(asked)) != 0)
        return fail(asked > INT64_MAX ? ERROR_INVALID_PARAMETER : errorFromErrno(errno), std::uint64_t{0});
    return asked;
}

} // namespace

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
    const std::uint64_t size =
        sizeToMap(own.get(), static_cast<std::uint64_t>(sizeHigh) << 32 | sizeLow, writable);
    if (size == 0) return nullptr;
    try {
        return openHandle(std::make_unique<FileMapping>(std::move(own), size, writable));
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
    if (offset % granularity != 0) return fail(ERROR_MAPPED_ALIGNMENT, nullptr);
    if (offset >= mapping->size || bytes > mapping->size - offset) return fail(ERROR_ACCESS_DENIED, nullptr);
    if (bytes == 0) bytes = mapping->size - offset;

    void* const view = ::mmap(nullptr, bytes, writes ? PROT_READ | PROT_WRITE : PROT_READ, MAP_SHARED,
                              mapping->descriptor.get(), static_cast<off_t>(offset));
    if (view == MAP_FAILED) return fail(errorFromErrno(errno), nullptr);
    try {
        const std::lock_guard lock(views().mutex);
        views().sizes.emplace(reinterpret_cast<std::uintptr_t>(view), bytes);
        return view;
    } catch (const std::bad_alloc&) {
        ::munmap(view, bytes);
        return fail(ERROR_NOT_ENOUGH_MEMORY, nullptr);
    }
}

BOOL UnmapViewOfFile(const void* view)
{
    const auto address = reinterpret_cast<std::uintptr_t>(view);
    const std::lock_guard lock(views().mutex);
    const auto found = views().sizes.find(address);
    if (found == views().sizes.end()) return fail(ERROR_INVALID_ADDRESS, FALSE);
    ::munmap(reinterpret_cast<void*>(address), found->second);
    views().sizes.erase(found);
    return TRUE;
}
