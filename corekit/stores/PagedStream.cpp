#include "corekit/stores/PagedStream.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"

#include <algorithm>
#include <climits>

namespace corekit::detail {

void PagedStream::StartPages(DWORD size)
{
    if (!m_page) m_page = std::make_unique<BYTE[]>(pageSize);
    m_size = size;
    m_position = 0;
    m_base = noPage;
    m_isDirty = FALSE;
    UpdateCache();
}

void PagedStream::DropPages()
{
    m_page.reset();
    m_base = noPage;
    m_isDirty = FALSE;
}

void PagedStream::ReadPages(BYTE* to, DWORD count)
{
    if (count > m_size - m_position) ThrowChainedException(nullptr, m_messages.readPastEnd);
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

void PagedStream::WritePages(const BYTE* from, DWORD count)
{
    if (count > UINT_MAX - m_position)
        ThrowChainedException(GetLastErrorException(ERROR_FILE_TOO_LARGE), m_messages.writeFailed);
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

void PagedStream::SeekToPos(DWORD position)
{
    if (position > m_size) ThrowChainedException(nullptr, m_messages.seekPastEnd);
    if (BaseOf(position) != m_base) {
        FlushCache();
        m_position = position;
        UpdateCache();
    }
    m_position = position;
}

void PagedStream::Skip(int count)
{
    const DWORD target = m_position + static_cast<DWORD>(count);
    if (target > m_size) ThrowChainedException(nullptr, m_messages.skipPastEnd);
    SeekToPos(target);
}

DWORD PagedStream::GetSize() { return m_size; }
DWORD PagedStream::GetCurrentPos() { return m_position; }
void PagedStream::Flush() { FlushCache(); }

// Makes the page of the position the one in the cache.
void PagedStream::UpdateCache()
{
    const DWORD base = BaseOf(m_position);
    if (m_base == base) return;
    FlushCache();
    if (!m_page)
        ThrowChainedException(GetLastErrorException(ERROR_INVALID_HANDLE), m_messages.setPositionFailed);
    m_base = noPage; // until the page is whole; what lies behind the end of the store is never looked at
    if (const DWORD n = std::min(m_size - base, pageSize)) LoadPage(base, m_page.get(), n);
    m_base = base;
}

void PagedStream::FlushCache()
{
    if (!m_isDirty) return;
    // Of a page that the end of the stream was moved in front of, nothing is left to write.
    const DWORD base = static_cast<DWORD>(m_base);
    if (const DWORD n = base < m_size ? std::min(m_size - base, pageSize) : 0)
        StorePage(base, m_page.get(), n);
    m_isDirty = FALSE;
}

} // namespace corekit::detail
