#include "corekit/stores/FileStream.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Handles.h"

#include <algorithm>
#include <climits>
#include <utility>

IMPLEMENT_DYNAMIC(CFileStream, CStream)

namespace {

constexpr UINT setEndFailed = 4101;
constexpr UINT setPositionFailed = 4103;
constexpr UINT readFailed = 4104;
constexpr UINT writeFailed = 4105;
constexpr UINT seekPastEnd = 4117;
constexpr UINT readPastEnd = 4118;
constexpr UINT skipPastEnd = 4119;

[[noreturn]] void ThrowLastError(UINT message) { ThrowChainedException(GetLastErrorException(), message); }

} // namespace

CFileStream::~CFileStream()
{
    if (IsOpen()) Close();
}

BOOL CFileStream::Open(const char* name, DWORD access, DWORD share, DWORD disposition, DWORD flags)
{
    if (!(flags & FILE_FLAG_RANDOM_ACCESS)) flags |= FILE_FLAG_SEQUENTIAL_SCAN;
    const HANDLE file = CreateFileA(name, access, share, nullptr, disposition, flags, nullptr);
    if (file == INVALID_HANDLE_VALUE) return FALSE;
    m_name = name;
    return AttachFile(file);
}

BOOL CFileStream::AttachFile(HANDLE file)
{
    if (IsOpen() && file != m_file) Close();
    m_file = file;
    if (!m_page) m_page = std::make_unique<BYTE[]>(pageSize);
    m_size = GetFileSize(file, nullptr);
    m_position = 0;
    m_base = noPage;
    m_isDirty = FALSE;
    UpdateCache();
    return TRUE;
}

void CFileStream::Close()
{
    CloseHandle(std::exchange(m_file, INVALID_HANDLE_VALUE));
    m_page.reset();
    m_base = noPage;
    m_isDirty = FALSE;
}

HANDLE CFileStream::DetachHandle() { return std::exchange(m_file, INVALID_HANDLE_VALUE); }

void CFileStream::ReadPages(BYTE* to, DWORD count)
{
    if (count > m_size - m_position) ThrowChainedException(nullptr, readPastEnd);
    do {
        UpdateCache();
        const DWORD offset = m_position & (pageSize - 1);
        const DWORD n = std::min(count, pageSize - offset);
        std::copy_n(m_page.get() + offset, n, to);
        to += n;
        count -= n;
        m_position += n;
        FlushCache();
        UpdateCache();
    } while (count);
}

void CFileStream::WritePages(const BYTE* from, DWORD count)
{
    if (count > UINT_MAX - m_position) {
        ThrowChainedException(GetLastErrorException(ERROR_FILE_TOO_LARGE), writeFailed);
    }
    while (count) {
        UpdateCache();
        const DWORD offset = m_position & (pageSize - 1);
        const DWORD n = std::min(count, pageSize - offset);
        std::copy_n(from, n, m_page.get() + offset);
        from += n;
        count -= n;
        m_isDirty = TRUE;
        m_position += n;
        m_size = std::max(m_size, m_position);
        UpdateCache();
    }
}

void CFileStream::SeekToPos(DWORD position)
{
    if (position > m_size) ThrowChainedException(nullptr, seekPastEnd);
    if (BaseOf(position) != m_base) {
        FlushCache();
        m_position = position;
        UpdateCache();
    }
    m_position = position;
}

void CFileStream::Skip(int count)
{
    const DWORD target = m_position + static_cast<DWORD>(count);
    if (target > m_size) ThrowChainedException(nullptr, skipPastEnd);
    SeekToPos(target);
}

DWORD CFileStream::GetSize() { return m_size; }
DWORD CFileStream::GetCurrentPos() { return m_position; }
void CFileStream::Flush() { FlushCache(); }

void CFileStream::SetEndOfStream()
{
    m_size = m_position;
    MoveFilePointer(m_position);
    if (!SetEndOfFile(m_file)) ThrowLastError(setEndFailed);
}

// Makes the page of the position the one in the cache.
void CFileStream::UpdateCache()
{
    const DWORD base = BaseOf(m_position);
    if (m_base == base) return;
    FlushCache();
    if (!m_page) {
        SetLastError(ERROR_INVALID_HANDLE);
        ThrowLastError(setPositionFailed);
    }
    m_base = noPage; // until the page is whole; what lies behind the end of the file is never looked at
    const DWORD n = std::min(m_size - base, pageSize);
    if (n) {
        MoveFilePointer(base);
        DWORD moved = 0;
        if (!ReadFile(m_file, m_page.get(), n, &moved, nullptr) || moved != n) ThrowLastError(readFailed);
    }
    m_base = base;
}

void CFileStream::FlushCache()
{
    if (!m_isDirty) return;
    // Of a page that the end of the stream was moved in front of, nothing is left to write.
    const DWORD base = static_cast<DWORD>(m_base);
    if (const DWORD n = base < m_size ? std::min(m_size - base, pageSize) : 0) {
        MoveFilePointer(base);
        DWORD moved = 0;
        if (!WriteFile(m_file, m_page.get(), n, &moved, nullptr) || moved != n) ThrowLastError(writeFailed);
    }
    m_isDirty = FALSE;
}

void CFileStream::MoveFilePointer(DWORD position)
{
    LONG high = 0;
    SetLastError(NO_ERROR);
    const DWORD reached = SetFilePointer(m_file, static_cast<LONG>(position), &high, FILE_BEGIN);
    if (reached == INVALID_SET_FILE_POINTER && GetLastError() != NO_ERROR) ThrowLastError(setPositionFailed);
}
