#include "corekit/stores/OleStream.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Storage.h"

#include <algorithm>
#include <climits>

IMPLEMENT_DYNAMIC(COleStream, CStream)

namespace {
constexpr UINT setPositionFailed = 4120;
constexpr UINT readFailed = 4121;
constexpr UINT writeFailed = 4122;
constexpr UINT seekPastEnd = 4123;
constexpr UINT readPastEnd = 4124;
constexpr UINT skipPastEnd = 4125;
constexpr UINT setSizeFailed = 4132;

void Check(HRESULT result, UINT message)
{
    if (result < 0) ThrowChainedException(GetLastErrorException(static_cast<DWORD>(result)), message);
}

// A transfer that came short without a failure of its own.
void CheckWhole(HRESULT result, bool whole, UINT message)
{
    Check(result < 0 || whole ? result : STG_E_READFAULT, message);
}
} // namespace

COleStream::~COleStream()
{
    if (m_pStream) m_pStream->Release();
}

void COleStream::AttachStream(IStream* stream)
{
    m_page = std::make_unique<BYTE[]>(pageSize);
    DWORDLONG size = 0;
    Check(stream->Seek(0, STREAM_SEEK_END, &size), setPositionFailed);
    m_pStream = stream;
    m_size = static_cast<DWORD>(std::min<DWORDLONG>(size, UINT_MAX));
    m_position = 0;
    m_base = noPage;
    try {
        UpdateCache();
    } catch (...) {
        m_pStream = nullptr;
        throw;
    }
}

void COleStream::InternalRead(void* buffer, DWORD count)
{
    if (count > m_size - m_position) ThrowChainedException(nullptr, readPastEnd);
    auto* to = static_cast<BYTE*>(buffer);
    do {
        UpdateCache();
        const DWORD offset = m_position - m_base;
        const DWORD n = std::min(count, pageSize - offset);
        std::copy_n(m_page.get() + offset, n, to);
        to += n;
        count -= n;
        m_position += n;
        FlushCache();
        UpdateCache();
    } while (count);
}

void COleStream::InternalWrite(const void* buffer, DWORD count)
{
    if (count > UINT_MAX - m_position)
        ThrowChainedException(GetLastErrorException(ERROR_FILE_TOO_LARGE), writeFailed);
    const auto* from = static_cast<const BYTE*>(buffer);
    while (count) {
        UpdateCache();
        const DWORD offset = m_position - m_base;
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

void COleStream::SeekToPos(DWORD position)
{
    if (position > m_size) ThrowChainedException(nullptr, seekPastEnd);
    if (BaseOf(position) != m_base) {
        FlushCache();
        m_position = position;
        UpdateCache();
    }
    m_position = position;
}

void COleStream::Skip(int count)
{
    const DWORD target = m_position + static_cast<DWORD>(count);
    if (target > m_size) ThrowChainedException(nullptr, skipPastEnd);
    SeekToPos(target);
}

DWORD COleStream::GetSize() { return m_size; }
DWORD COleStream::GetCurrentPos() { return m_position; }
void COleStream::Flush() { FlushCache(); }

void COleStream::SetEndOfStream()
{
    m_size = m_position;
    Check(m_pStream->SetSize(m_size), setSizeFailed);
}

// Makes the page of the position the one in the cache.
void COleStream::UpdateCache()
{
    const DWORD base = BaseOf(m_position);
    if (m_base == base) return;
    FlushCache();
    m_base = noPage; // until the page is whole
    const DWORD n = std::min(m_size - base, pageSize);
    if (n) {
        MoveCursor(base);
        DWORD moved = 0;
        const HRESULT result = m_pStream->Read(m_page.get(), n, &moved);
        CheckWhole(result, moved == n, readFailed);
    }
    std::fill_n(m_page.get() + n, pageSize - n, BYTE{0});
    m_base = base;
}

void COleStream::FlushCache()
{
    if (!m_isDirty) return;
    // Of a page that the end of the stream was moved in front of, nothing is left to write.
    if (const DWORD n = m_base < m_size ? std::min(m_size - m_base, pageSize) : 0) {
        MoveCursor(m_base);
        DWORD moved = 0;
        const HRESULT result = m_pStream->Write(m_page.get(), n, &moved);
        CheckWhole(result, moved == n, writeFailed);
    }
    m_isDirty = FALSE;
}

void COleStream::MoveCursor(DWORD position)
{
    Check(m_pStream->Seek(position, STREAM_SEEK_SET, nullptr), setPositionFailed);
}
