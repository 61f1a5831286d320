#include "corekit/stores/MemoryStream.h"

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/framework/Exception.h"

#include <algorithm>
#include <climits>

IMPLEMENT_DYNAMIC(CMemoryStream, CStream)

CMemoryStream::~CMemoryStream()
{
    if (m_ownsBuffer) safe_free(m_window.bytes);
}

void CMemoryStream::Attach(const void* data, int size)
{
    if (data != m_window.bytes) Free();
    const DWORD bytes = static_cast<DWORD>(std::max(size, 0));
    m_ownsBuffer = FALSE;
    m_window = {static_cast<BYTE*>(const_cast<void*>(data)), bytes, bytes, 0, 0};
}

void CMemoryStream::Create(int initialSize, int growBy)
{
    void* block = __safe_malloc(initialSize, __FILE__, __LINE__);
    Free();
    m_ownsBuffer = TRUE;
    m_window = {static_cast<BYTE*>(block), 0, static_cast<DWORD>(initialSize), growBy, 0};
}

void* CMemoryStream::Detach() { return m_window.GiveAway(); }

void CMemoryStream::Free()
{
    BYTE* block = m_window.GiveAway();
    if (m_ownsBuffer) safe_free(block);
    Reset();
}

void CMemoryStream::Reset() { m_window.size = m_window.position = 0; }

void CMemoryStream::Grow(DWORD count)
{
    if (!m_window.bytes) m_window.ThrowMayNotGrow();
    const DWORDLONG room = m_window.GrownRoom(count);
    if (room > INT_MAX) AfxThrowMemoryException();
    m_window.bytes =
        static_cast<BYTE*>(__safe_realloc(m_window.bytes, static_cast<int>(room), __FILE__, __LINE__));
    m_window.room = static_cast<DWORD>(room);
}

void CMemoryStream::SeekToPos(DWORD position)
{
    m_window.CheckSeek(position);
    m_window.position = position;
}

DWORD CMemoryStream::GetSize() { return m_window.size; }
void CMemoryStream::Flush() {}
void CMemoryStream::Skip(int count) { SeekToPos(m_window.SkipTarget(count)); }
DWORD CMemoryStream::GetCurrentPos() { return m_window.position; }
void CMemoryStream::SetEndOfStream() { m_window.size = m_window.position; }
