#include "corekit/stores/GlobalMemoryStream.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Memory.h"

#include <algorithm>
#include <climits>
#include <utility>

IMPLEMENT_DYNAMIC(CGlobalMemoryStream, CStream)

CGlobalMemoryStream::~CGlobalMemoryStream() { Drop(); }

// What the destructor does, and what a stream does with its block before it takes another.
void CGlobalMemoryStream::Drop()
{
    if (m_handle && m_autoDelete) Empty();
}

void CGlobalMemoryStream::Attach(HGLOBAL handle, int growBy)
{
    if (handle != m_handle) {
        Drop();
    } else {
        GlobalUnlock(handle);
    }
    m_handle = handle;
    m_autoDelete = FALSE;
    const DWORD size = static_cast<DWORD>(std::min<SIZE_T>(GlobalSize(handle), UINT_MAX));
    m_window = {static_cast<BYTE*>(GlobalLock(handle)), size, size, growBy, 0};
}

void CGlobalMemoryStream::Create(int initialSize, int growBy)
{
    if (initialSize < 0) m_window.ThrowCannotGrow(ERROR_NOT_ENOUGH_MEMORY);
    const DWORD room = static_cast<DWORD>(initialSize);
    const HGLOBAL handle = GlobalAlloc(GMEM_SHARE | GMEM_MOVEABLE | GMEM_ZEROINIT, room);
    if (!handle) m_window.ThrowCannotGrow(GetLastError());
    Drop();
    m_handle = handle;
    m_autoDelete = TRUE;
    m_window = {static_cast<BYTE*>(GlobalLock(handle)), 0, room, growBy, 0};
}

HGLOBAL CGlobalMemoryStream::Detach()
{
    GlobalUnlock(m_handle);
    m_window.GiveAway();
    return std::exchange(m_handle, nullptr);
}

void CGlobalMemoryStream::Empty()
{
    if (m_handle) GlobalFree(Detach());
}

void CGlobalMemoryStream::InternalRead(void* buffer, DWORD count)
{
    if (m_window.CanRead(count)) [[likely]]
        m_window.Take(buffer, count);
    else if (count)
        m_window.ThrowReadPastEnd();
}

void CGlobalMemoryStream::InternalWrite(const void* buffer, DWORD count)
{
    if (!m_window.CanWrite(count)) [[unlikely]]
        Grow(count);
    m_window.Put(buffer, count);
}

void CGlobalMemoryStream::Grow(DWORD count)
{
    if (!m_handle) m_window.ThrowMayNotGrow();
    const DWORDLONG room = m_window.GrownRoom(count);
    if (room > UINT_MAX) m_window.ThrowCannotGrow(ERROR_NOT_ENOUGH_MEMORY);
    GlobalUnlock(m_handle);
    const HGLOBAL grown = GlobalReAlloc(m_handle, room, GMEM_ZEROINIT);
    const DWORD error = GetLastError();
    if (grown) m_handle = grown;
    m_window.bytes = static_cast<BYTE*>(GlobalLock(m_handle));
    if (!grown) m_window.ThrowCannotGrow(error);
    m_window.room = static_cast<DWORD>(room);
}

void CGlobalMemoryStream::SeekToPos(DWORD position)
{
    m_window.CheckSeek(position);
    m_window.position = position;
}

DWORD CGlobalMemoryStream::GetSize() { return m_window.size; }
void CGlobalMemoryStream::Flush() {}
void CGlobalMemoryStream::Skip(int count) { SeekToPos(m_window.SkipTarget(count)); }
DWORD CGlobalMemoryStream::GetCurrentPos() { return m_window.position; }
void CGlobalMemoryStream::SetEndOfStream() { m_window.size = m_window.position; }
