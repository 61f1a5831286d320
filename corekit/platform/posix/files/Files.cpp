// Reading, writing and measuring open files.
#include "corekit/platform/Files.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/files/FileViews.h"
#include "corekit/platform/Waits.h"

#include <cerrno>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace corekit::detail;
using FileUser = HandleUser<File>;

// The transfer is done when this returns.
BOOL moveAtOnce(IoObject& object, Direction direction, Buffer buffer, DWORD* moved, OVERLAPPED* overlapped)
{
    Transfer transfer;
    if (object.flow() != Flow::placed) {
        transfer = moveNext(object.descriptor(), object.flow(), direction, buffer);
    } else {
        File& file = static_cast<File&>(object);
        const std::lock_guard lock(file.mutex);
        const std::int64_t place = overlapped != nullptr ? placeOf(*overlapped) : file.position;
        if (!isPlace(place, buffer.count)) return fail(ERROR_INVALID_PARAMETER, FALSE);
        transfer =
            (overlapped != nullptr ? moveOverlapped : moveAt)(file.descriptor(), direction, buffer, place);
        file.position = place + transfer.moved;
    }
    if (moved != nullptr) *moved = transfer.moved;
    if (overlapped != nullptr) {
        overlapped->Internal = transfer.error;
        overlapped->InternalHigh = transfer.moved;
        if (overlapped->hEvent != nullptr) SetEvent(overlapped->hEvent);
    }
    return transfer.error == NO_ERROR ? TRUE : fail(transfer.error, FALSE);
}

// The transfer is under way when this returns; always FALSE.
BOOL begin(IoObject& object, Direction direction, Buffer buffer, OVERLAPPED& overlapped)
try {
    const DWORD error = object.openChannel().start({direction, buffer, &overlapped});
    return fail(error != NO_ERROR ? error : ERROR_IO_PENDING, FALSE);
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
}

BOOL move(HANDLE handle, Direction direction, Buffer buffer, DWORD* moved, OVERLAPPED* overlapped)
{
    const HandleUser<IoObject> object(handle);
    if (moved != nullptr) *moved = 0;
    if (!object) return fail(ERROR_INVALID_HANDLE, FALSE);
    if (!object->allows(direction == Direction::read ? GENERIC_READ : GENERIC_WRITE))
        return fail(ERROR_ACCESS_DENIED, FALSE);
    if (buffer.bytes == nullptr && buffer.count > 0) return fail(ERROR_NOACCESS, FALSE);
    if (moved == nullptr && overlapped == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (overlapped == nullptr && object->kind() == ObjectKind::serialPort)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    const bool isBackground = object->channel() != nullptr || object->flow() == Flow::socket;
    if (overlapped != nullptr && isBackground) return begin(*object, direction, buffer, *overlapped);
    return moveAtOnce(*object, direction, buffer, moved, overlapped);
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
    return move(handle, Direction::read, {static_cast<char*>(buffer), count}, moved, overlapped);
}

BOOL WriteFile(HANDLE handle, const void* buffer, DWORD count, DWORD* moved, OVERLAPPED* overlapped)
{
    char* const bytes = const_cast<char*>(static_cast<const char*>(buffer)); // only read
    return move(handle, Direction::write, {bytes, count}, moved, overlapped);
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
    const DWORD error = setFileSize(file->descriptor(), file->position);
    return error == NO_ERROR ? TRUE : fail(error, FALSE);
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
