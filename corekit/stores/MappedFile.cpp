#include "corekit/stores/MappedFile.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/FileMapping.h"

#include <algorithm>
#include <cstring>

IMPLEMENT_DYNAMIC(CMappedFile, CObject)

namespace {

constexpr DWORD alone = 0; // the share mode

// The file's size in bytes, if it can be mapped whole.
bool mappableSize(HANDLE file, DWORD& size)
{
    DWORD high = 0;
    SetLastError(0);
    size = GetFileSize(file, &high);
    if (size == INVALID_FILE_SIZE && GetLastError() != 0) return false;
    if (high == 0) return true;
    SetLastError(ERROR_FILE_TOO_LARGE);
    return false;
}

void closeKeepingError(HANDLE file)
{
    const DWORD reason = GetLastError();
    CloseHandle(file);
    SetLastError(reason);
}

} // namespace

CMappedFile::~CMappedFile() { EnsureClosed(); }

int CMappedFile::CreateFileA(const char* name, DWORD size)
{
    EnsureClosed();
    m_writable = true;
    const HANDLE file = ::CreateFileA(name, GENERIC_READ | GENERIC_WRITE, alone, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 0;
    if (!MakeView(file, true, size)) {
        closeKeepingError(file);
        const DWORD reason = GetLastError();
        DeleteFileA(name);
        SetLastError(reason);
        return 0;
    }
    m_file = file;
    return 1;
}

int CMappedFile::OpenFile(const char* name, int bWrite)
{
    EnsureClosed();
    const DWORD access = bWrite ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
    const HANDLE file =
        ::CreateFileA(name, access, alone, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 0;
    if (AttachOpenFile(file, bWrite)) return 1;
    closeKeepingError(file);
    return 0;
}

int CMappedFile::AttachOpenFile(HANDLE file, int bWrite)
{
    DWORD size;
    if (!mappableSize(file, size) || !MakeView(file, bWrite != 0, size)) return 0;
    m_file = file;
    m_writable = bWrite != 0;
    return 1;
}

// A new view, or more of the one that there is. A mapping of no size is one of the whole file, which is not
// what is meant here.
int CMappedFile::MakeView(HANDLE file, bool writable, DWORD size)
{
    if (size == 0) {
        SetLastError(ERROR_FILE_INVALID);
        return 0;
    }
    const HANDLE mapping =
        CreateFileMappingA(file, nullptr, writable ? PAGE_READWRITE : PAGE_READONLY, 0, size, nullptr);
    if (!mapping) return 0;
    void* const base = m_base ? ExtendViewOfFile(m_base, mapping, size)
                              : MapViewOfFile(mapping, writable ? FILE_MAP_WRITE : FILE_MAP_READ, 0, 0, size);
    closeKeepingError(mapping);
    if (!base) return 0;
    m_base = base;
    m_size = size;
    return 1;
}

void CMappedFile::Close()
{
    Flush();
    if (m_base) UnmapViewOfFile(m_base);
    if (IsOpen()) CloseHandle(m_file);
    m_base = nullptr;
    m_file = INVALID_HANDLE_VALUE;
    m_size = 0;
}

int CMappedFile::ExtendFile(DWORD newSize)
{
    if (newSize <= m_size && m_base) return 1;
    const DWORD oldSize = m_size;
    DWORD sizeOnDisk;
    if (!IsOpen() || !m_writable || !mappableSize(m_file, sizeOnDisk) ||
        !MakeView(m_file, true, std::max(newSize, oldSize))) {
        if (m_base) UnmapViewOfFile(m_base);
        m_base = nullptr;
        return 0;
    }
    // What the file had not before is zeros already.
    const DWORD stale = std::min(newSize, sizeOnDisk);
    if (stale > oldSize) std::memset(GetViewOffset(oldSize), 0, stale - oldSize);
    return 1;
}

int CMappedFile::RestoreView() { return m_base || (IsOpen() && MakeView(m_file, m_writable, m_size)); }

int CMappedFile::Flush() { return m_base && FlushViewOfFile(m_base, 0); }
