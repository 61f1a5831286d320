#include "corekit/stores/OleStream.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Storage.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <climits>

IMPLEMENT_DYNAMIC(COleStream, CStream)

namespace {

void check(HRESULT result, UINT message)
{
    if (result < 0) ThrowChainedException(GetLastErrorException(static_cast<DWORD>(result)), message);
}

// A transfer may come short without a failure of its own.
void checkWhole(HRESULT result, bool whole, HRESULT fault, UINT message)
{
    check(result < 0 || whole ? result : fault, message);
}
} // namespace

COleStream::COleStream()
    : PagedStream({.setPositionFailed = message::oleStreamSetPositionFailed,
                   .writeFailed = message::oleStreamWriteFailed,
                   .seekPastEnd = message::oleStreamSeekPastEnd,
                   .readPastEnd = message::oleStreamReadPastEnd,
                   .skipPastEnd = message::oleStreamSkipPastEnd})
{
}

COleStream::~COleStream()
{
    if (m_pStream) m_pStream->Release();
}

void COleStream::AttachStream(IStream* stream)
{
    DWORDLONG size = 0;
    check(stream->Seek(0, STREAM_SEEK_END, &size), message::oleStreamSetPositionFailed);
    m_pStream = stream;
    try {
        StartPages(static_cast<DWORD>(std::min<DWORDLONG>(size, UINT_MAX)));
    } catch (...) {
        m_pStream = nullptr;
        throw;
    }
}

void COleStream::InternalRead(void* buffer, DWORD count) { PagedStream::InternalRead(buffer, count); }
void COleStream::InternalWrite(const void* buffer, DWORD count) { PagedStream::InternalWrite(buffer, count); }

void COleStream::SetEndOfStream()
{
    check(m_pStream->SetSize(m_position), message::oleStreamSetSizeFailed);
    m_size = m_position;
}

void COleStream::LoadPage(DWORD base, BYTE* page, DWORD count)
{
    MoveCursor(base);
    DWORD moved = 0;
    const HRESULT result = m_pStream->Read(page, count, &moved);
    checkWhole(result, moved == count, STG_E_READFAULT, message::oleStreamReadFailed);
}

void COleStream::StorePage(DWORD base, const BYTE* page, DWORD count)
{
    MoveCursor(base);
    DWORD moved = 0;
    const HRESULT result = m_pStream->Write(page, count, &moved);
    checkWhole(result, moved == count, STG_E_WRITEFAULT, message::oleStreamWriteFailed);
}

void COleStream::MoveCursor(DWORD position)
{
    check(m_pStream->Seek(position, STREAM_SEEK_SET, nullptr), message::oleStreamSetPositionFailed);
}
