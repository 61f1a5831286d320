// Reading, writing and measuring open files.
#include "corekit/platform/Files.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/File.h"
#include "corekit/platform/Waits.h"

#include <cerrno>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace corekit::detail;
using FileUser = HandleUser<File>;

struct Transfer {
    DWORD moved = 0;
    DWORD error = NO_ERROR;
};

enum class Stop { atFirstPart, whenAllMoved };

// Repeats one system call until all is moved, nothing more comes, or it fails; step(done, rest) moves a part.
template <typename Step>
Transfer moveAll(DWORD count, Stop stop, Step step)
{
    Transfer transfer;
    while (transfer.moved < count) {
        const ssize_t part = step(transfer.moved, count - transfer.moved);
        if (part < 0 && errno == EINTR) continue;
        if (part < 0) transfer.error = errorFromErrno(errno);
        if (part <= 0) break;
        transfer.moved += static_cast<DWORD>(part);
        if (stop == Stop::atFirstPart) break;
    }
    return transfer;
}

Transfer readAt(const File& file, char* buffer, DWORD count, std::int64_t place)
{
    return moveAll(count, Stop::whenAllMoved, [&](DWORD done, DWORD rest) {
        return ::pread(file.descriptor(), buffer + done, rest, place + done);
    });
}

Transfer writeAt(const File& file, const char* buffer, DWORD count, std::int64_t place)
{
    Transfer transfer = moveAll(count, Stop::whenAllMoved, [&](DWORD done, DWORD rest) {
        return ::pwrite(file.descriptor(), buffer + done, rest, place + done);
    });
    if (transfer.error == NO_ERROR && transfer.moved < count) transfer.error = ERROR_WRITE_FAULT;
    return transfer;
}

Transfer readNext(const File& file, char* buffer, DWORD count)
{
    return moveAll(count, Stop::atFirstPart,
                   [&](DWORD, DWORD rest) { return ::read(file.descriptor(), buffer, rest); });
}

Transfer writeNext(const File& file, const char* buffer, DWORD count)
{
    return moveAll(count, Stop::whenAllMoved,
                   [&](DWORD done, DWORD rest) { return ::write(file.descriptor(), buffer + done, rest); });
}

std::int64_t placeOf(const OVERLAPPED& overlapped)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(overlapped.OffsetHigh) << 32 |
                                     overlapped.Offset);
}

// Runs a transfer at the right place: atPlace(place) for files that have places, next() for all others.
template <typename AtPlace, typename Next>
BOOL run(File& file, DWORD count, DWORD* moved, OVERLAPPED* overlapped, bool endIsFailure, AtPlace atPlace,
         Next next)
{
    Transfer transfer;
    if (!file.hasPosition()) {
        transfer = next();
    } else {
        const std::lock_guard lock(file.mutex);
        const std::int64_t place = overlapped != nullptr ? placeOf(*overlapped) : file.position;
        if (place < 0 || place > std::numeric_limits<std::int64_t>::max() - count)
            return fail(ERROR_INVALID_PARAMETER, FALSE);
        transfer = atPlace(place);
        file.position = place + transfer.moved;
        if (endIsFailure && overlapped != nullptr && count > 0 && transfer.moved == 0 &&
            transfer.error == NO_ERROR)
            transfer.error = ERROR_HANDLE_EOF;
    }
    if (moved != nullptr) *moved = transfer.moved;
    if (overlapped != nullptr) {
        overlapped->Internal = transfer.error;
        overlapped->InternalHigh = transfer.moved;
        if (overlapped->hEvent != nullptr) SetEvent(overlapped->hEvent);
    }
    return transfer.error == NO_ERROR ? TRUE : fail(transfer.error, FALSE);
}

// What keeps a transfer from starting, or NO_ERROR.
DWORD objection(const FileUser& file, DWORD access, const void* buffer, DWORD count, const DWORD* moved,
                const OVERLAPPED* overlapped)
{
    if (!file) return ERROR_INVALID_HANDLE;
    if (!file->allows(access)) return ERROR_ACCESS_DENIED;
    if ((buffer == nullptr && count > 0)) return ERROR_NOACCESS;
    if (moved == nullptr && overlapped == nullptr) return ERROR_INVALID_PARAMETER;
    return NO_ERROR;
}

bool sizeOf(const File& file, std::int64_t& size)
{
    struct stat facts;
    if (::fstat(file.descriptor(), &facts) != 0) {
        setLastErrorFromErrno();
        return false;
    }
    size = S_ISBLK(facts.st_mode) ? ::lseek(file.descriptor(), 0, SEEK_END) : facts.st_size;
    if (size >= 0) return true;
    setLastErrorFromErrno();
    return false;
}

// The lower half as a result; where it looks like a failure, the last error says that it is none.
DWORD splitResult(std::int64_t value, DWORD* high)
{
    if (high != nullptr) *high = static_cast<DWORD>(static_cast<std::uint64_t>(value) >> 32);
    const auto low = static_cast<DWORD>(value);
    if (low == 0xFFFFFFFF) SetLastError(NO_ERROR);
    return low;
}

} // namespace

BOOL ReadFile(HANDLE handle, void* buffer, DWORD count, DWORD* moved, OVERLAPPED* overlapped)
{
    const FileUser file(handle);
    if (moved != nullptr) *moved = 0;
    if (const DWORD no = objection(file, GENERIC_READ, buffer, count, moved, overlapped); no != NO_ERROR)
        return fail(no, FALSE);
    char* const to = static_cast<char*>(buffer);
    return run(
        *file, count, moved, overlapped, true,
        [&](std::int64_t place) { return readAt(*file, to, count, place); },
        [&] { return readNext(*file, to, count); });
}

BOOL WriteFile(HANDLE handle, const void* buffer, DWORD count, DWORD* moved, OVERLAPPED* overlapped)
{
    const FileUser file(handle);
    if (moved != nullptr) *moved = 0;
    if (const DWORD no = objection(file, GENERIC_WRITE, buffer, count, moved, overlapped); no != NO_ERROR)
        return fail(no, FALSE);
    const char* const from = static_cast<const char*>(buffer);
    return run(
        *file, count, moved, overlapped, false,
        [&](std::int64_t place) { return writeAt(*file, from, count, place); },
        [&] { return writeNext(*file, from, count); });
}

DWORD SetFilePointer(HANDLE handle, LONG distance, LONG* high, DWORD method)
{
    const FileUser file(handle);
    if (!file) return fail(ERROR_INVALID_HANDLE, INVALID_SET_FILE_POINTER);
    if (!file->hasPosition()) return fail(ERROR_SEEK_ON_DEVICE, INVALID_SET_FILE_POINTER);
    if (method > FILE_END) return fail(ERROR_INVALID_PARAMETER, INVALID_SET_FILE_POINTER);
    std::int64_t far = distance;
    if (high != nullptr)
        far =
            static_cast<std::int64_t>(static_cast<std::uint64_t>(*high) << 32 | static_cast<DWORD>(distance));
    else if (method == FILE_BEGIN)
        far = static_cast<DWORD>(distance);

    const std::lock_guard lock(file->mutex);
    std::int64_t base = 0;
    if (method == FILE_CURRENT) base = file->position;
    if (method == FILE_END && !sizeOf(*file, base)) return INVALID_SET_FILE_POINTER;
    std::int64_t place;
    if (__builtin_add_overflow(base, far, &place))
        return fail(ERROR_INVALID_PARAMETER, INVALID_SET_FILE_POINTER);
    if (place < 0) return fail(ERROR_NEGATIVE_SEEK, INVALID_SET_FILE_POINTER);
    if (high == nullptr && place > 0xFFFFFFFFLL)
        return fail(ERROR_INVALID_PARAMETER, INVALID_SET_FILE_POINTER);
    file->position = place;
    DWORD upper;
    const DWORD lower = splitResult(place, &upper);
    if (high != nullptr) *high = static_cast<LONG>(upper);
    return lower;
}

BOOL SetEndOfFile(HANDLE handle)
{
    const FileUser file(handle);
    if (!file) return fail(ERROR_INVALID_HANDLE, FALSE);
    if (!file->allows(GENERIC_WRITE)) return fail(ERROR_ACCESS_DENIED, FALSE);
    const std::lock_guard lock(file->mutex);
    int result;
    do result = ::ftruncate(file->descriptor(), file->position);
    while (result != 0 && errno == EINTR);
    return result == 0 ? TRUE : fail(errorFromErrno(errno), FALSE);
}

DWORD GetFileSize(HANDLE handle, DWORD* high)
{
    const FileUser file(handle);
    if (!file) return fail(ERROR_INVALID_HANDLE, INVALID_FILE_SIZE);
    if (!file->hasPosition()) return fail(ERROR_INVALID_FUNCTION, INVALID_FILE_SIZE);
    std::int64_t size;
    return sizeOf(*file, size) ? splitResult(size, high) : INVALID_FILE_SIZE;
}

BOOL FlushFileBuffers(HANDLE handle)
{
    const FileUser file(handle);
    if (!file) return fail(ERROR_INVALID_HANDLE, FALSE);
    if (!file->allows(GENERIC_WRITE)) return fail(ERROR_ACCESS_DENIED, FALSE);
    int result;
    do result = ::fsync(file->descriptor());
    while (result != 0 && errno == EINTR);
    // A pipe or a terminal has nothing to flush.
    return result == 0 || errno == EINVAL ? TRUE : fail(errorFromErrno(errno), FALSE);
}

DWORD GetFileType(HANDLE handle)
{
    const FileUser file(handle);
    struct stat facts;
    if (!file || ::fstat(file->descriptor(), &facts) != 0)
        return fail(ERROR_INVALID_HANDLE, FILE_TYPE_UNKNOWN);
    if (S_ISREG(facts.st_mode) || S_ISBLK(facts.st_mode)) return FILE_TYPE_DISK;
    return S_ISCHR(facts.st_mode) ? FILE_TYPE_CHAR : FILE_TYPE_PIPE;
}
