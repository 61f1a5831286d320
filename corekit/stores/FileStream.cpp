#include "corekit/stores/FileStream.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Handles.h"
#include "corekit/resources/Messages.h"

#include <utility>

IMPLEMENT_DYNAMIC(CFileStream, CStream)

namespace {

[[noreturn]] void throwLastError(UINT message) { ThrowChainedException(GetLastErrorException(), message); }

// A file whose end no position reaches is refused: cut to what one holds, its rest would go with the next
// SetEndOfStream.
DWORD sizeOf(HANDLE file)
{
    DWORD high = 0;
    SetLastError(NO_ERROR);
    const DWORD size = GetFileSize(file, &high);
    if (high != 0) SetLastError(ERROR_FILE_TOO_LARGE);
    if (high != 0 || (size == INVALID_FILE_SIZE && GetLastError() != NO_ERROR))
        throwLastError(message::fileSetPositionFailed);
    return size;
}

} // namespace

CFileStream::CFileStream()
    : PagedStream({.setPositionFailed = message::fileSetPositionFailed,
                   .writeFailed = message::fileWriteFailed,
                   .seekPastEnd = message::fileSeekPastEnd,
                   .readPastEnd = message::fileReadPastEnd,
                   .skipPastEnd = message::fileSkipPastEnd})
{
}

CFileStream::~CFileStream()
{
    if (IsOpen()) Close();
}

BOOL CFileStream::Open(const char* name, DWORD access, DWORD share, DWORD disposition, DWORD flags)
{
    if (!(flags & FILE_FLAG_RANDOM_ACCESS)) flags |= FILE_FLAG_SEQUENTIAL_SCAN;
    const HANDLE file = CreateFileA(name, access, share, nullptr, disposition, flags, nullptr);
    if (file == INVALID_HANDLE_VALUE) return FALSE;
    if (GetFileType(file) != FILE_TYPE_DISK) { // has no places to go to
        CloseHandle(file);
        SetLastError(ERROR_NOT_SUPPORTED);
        return FALSE;
    }
    try {
        sizeOf(file);
    } catch (...) {
        CloseHandle(file);
        throw;
    }
    m_name = name;
    return AttachFile(file);
}

BOOL CFileStream::AttachFile(HANDLE file)
{
    const DWORD size = sizeOf(file);
    if (IsOpen() && file != m_file) Close();
    m_file = file;
    StartPages(size);
    return TRUE;
}

void CFileStream::Close()
{
    CloseHandle(std::exchange(m_file, INVALID_HANDLE_VALUE));
    DropPages();
}

HANDLE CFileStream::DetachHandle() { return std::exchange(m_file, INVALID_HANDLE_VALUE); }

void CFileStream::SetEndOfStream()
{
    MoveFilePointer(m_position);
    if (!SetEndOfFile(m_file)) throwLastError(message::fileSetEndFailed);
    m_size = m_position;
}

void CFileStream::LoadPage(DWORD base, BYTE* page, DWORD count)
{
    MoveFilePointer(base);
    DWORD moved = 0;
    if (!ReadFile(m_file, page, count, &moved, nullptr) || moved != count)
        throwLastError(message::fileReadFailed);
}

void CFileStream::StorePage(DWORD base, const BYTE* page, DWORD count)
{
    MoveFilePointer(base);
    DWORD moved = 0;
    if (!WriteFile(m_file, page, count, &moved, nullptr) || moved != count)
        throwLastError(message::fileWriteFailed);
}

void CFileStream::MoveFilePointer(DWORD position)
{
    LONG high = 0;
    SetLastError(NO_ERROR);
    const DWORD reached = SetFilePointer(m_file, static_cast<LONG>(position), &high, FILE_BEGIN);
    if (reached == INVALID_SET_FILE_POINTER && GetLastError() != NO_ERROR)
        throwLastError(message::fileSetPositionFailed);
}
