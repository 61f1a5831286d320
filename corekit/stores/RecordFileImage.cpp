#include "corekit/stores/RecordFileImage.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {

void throwRecordFileError(DWORD reason, UINT message)
{
    ThrowChainedException(GetLastErrorException(reason), message);
}

bool RecordFileImage::Create(const char* name)
{
    m_file = CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                         FILE_ATTRIBUTE_NORMAL | FILE_FLAG_RANDOM_ACCESS, nullptr);
    return IsOpen();
}

bool RecordFileImage::OpenExisting(const char* name)
{
    m_file = CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                         nullptr);
    if (!IsOpen()) return false;
    DWORD high = 0;
    const DWORD low = GetFileSize(m_file, &high);
    const bool hasSize = low != INVALID_FILE_SIZE || GetLastError() == ERROR_SUCCESS;
    m_bytesOnDisk = hasSize ? static_cast<std::uint64_t>(high) << 32 | low : 0;
    return true;
}

void RecordFileImage::Close() noexcept
{
    m_view.Release();
    if (IsOpen()) CloseHandle(m_file);
    m_file = INVALID_HANDLE_VALUE;
    m_bytesOnDisk = 0;
}

DWORD RecordFileImage::WholeSectors(DWORD size) const
{
    const DWORD mask = m_header.sectorSize - 1;
    return (size + mask) & ~mask;
}

DWORD RecordFileImage::SectorCount(DWORD size) const
{
    return size / m_header.sectorSize + (size % m_header.sectorSize != 0);
}

void RecordFileImage::ReadHeader()
{
    m_header = {};
    Read(0, &m_header, sizeof m_header);
}

void RecordFileImage::Read(DWORD offset, void* data, DWORD size)
{
    if (size == 0) return;
    if (static_cast<std::uint64_t>(offset) + size > m_bytesOnDisk)
        throwRecordFileError(ERROR_HANDLE_EOF, message::recordFileReadFailed);
    if (const BYTE* const from = m_view.Find(m_file, m_bytesOnDisk, offset, size))
        std::memcpy(data, from, size);
    else
        ReadOnce(offset, data, size);
}

void RecordFileImage::ReadOnce(DWORD offset, void* data, DWORD size)
{
    if (size == 0) return;
    OVERLAPPED place;
    place.Offset = offset;
    DWORD moved = 0;
    if (!ReadFile(m_file, data, size, &moved, &place) || moved != size)
        ThrowChainedException(GetLastErrorException(), message::recordFileReadFailed);
}

void RecordFileImage::Write(DWORD offset, const void* data, DWORD size)
{
    if (size == 0) return;
    // Nothing lies outside of the file; an entry that says so is damaged.
    if (static_cast<std::uint64_t>(offset) + size > m_header.fileSize)
        throwRecordFileError(ERROR_HANDLE_EOF, message::recordFileWriteFailed);
    OVERLAPPED place;
    place.Offset = offset;
    DWORD moved = 0;
    if (!WriteFile(m_file, data, size, &moved, &place) || moved != size)
        ThrowChainedException(GetLastErrorException(), message::recordFileWriteFailed);
    m_bytesOnDisk = std::max(m_bytesOnDisk, static_cast<std::uint64_t>(offset) + size);
}

void RecordFileImage::SetSize(DWORD size)
{
    m_view.ReleaseBeyond(size);
    if (SetFilePointer(m_file, static_cast<LONG>(size), nullptr, FILE_BEGIN) != size)
        ThrowChainedException(GetLastErrorException(), message::recordFileSeekFailed);
    if (!SetEndOfFile(m_file))
        ThrowChainedException(GetLastErrorException(), message::recordFileSetLengthFailed);
    m_bytesOnDisk = size;
}

void RecordFileImage::FlushToDevice()
{
    if (!FlushFileBuffers(m_file))
        ThrowChainedException(GetLastErrorException(), message::recordFileWriteFailed);
}

} // namespace corekit::detail
