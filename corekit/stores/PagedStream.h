// What the streams over a file and over a part of a compound file have in common: a cache of one page.
//
// The stream is seen through the aligned page of 65536 bytes that the position lies in, so many small reads
// and writes cost a copy each. A page that was written to goes to the store when the position leaves it, at
// every read, and at Flush; nothing else writes it. When the store refuses a transfer, the position stays
// where the transfer had come to, and the page is tried again by the next operation that needs it.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/stores/MemoryWindow.h"

#include <memory>

namespace corekit::detail {

class COREKIT_API PagedStream : public CStream {
public:
    void SeekToPos(DWORD position) override;
    DWORD GetSize() override;
    void Flush() override;
    void Skip(int count) override;
    DWORD GetCurrentPos() override;

protected:
    // Message numbers of the derived stream.
    struct Messages {
        UINT setPositionFailed, writeFailed, seekPastEnd, readPastEnd, skipPastEnd;
    };

    explicit PagedStream(const Messages& messages) : m_messages(messages) {}

    void InternalRead(void* buffer, DWORD count) override
    {
        if (IsInsidePage(count) && count <= m_size - m_position && !m_isDirty) [[likely]] {
            const BYTE* from = m_page.get() + (m_position - m_base);
            m_position += count;
            CopyBytes(buffer, from, count);
        } else {
            ReadPages(static_cast<BYTE*>(buffer), count);
        }
    }
    void InternalWrite(const void* buffer, DWORD count) override
    {
        if (IsInsidePage(count) && count) [[likely]] {
            BYTE* to = m_page.get() + (m_position - m_base);
            m_isDirty = TRUE;
            m_position += count;
            if (m_position > m_size) m_size = m_position;
            CopyBytes(to, buffer, count);
        } else {
            WritePages(static_cast<const BYTE*>(buffer), count);
        }
    }

    // Move whole pages, or up to the size, between the store and the cache; throw where that fails.
    virtual void LoadPage(DWORD base, BYTE* page, DWORD count) = 0;
    virtual void StorePage(DWORD base, const BYTE* page, DWORD count) = 0;

    // From position 0 of a store of that size, whose first page is loaded.
    void StartPages(DWORD size);
    void DropPages(); // without storing

    DWORD m_position = 0;
    DWORD m_size = 0;

private:
    static constexpr DWORD pageSize = 65536;
    static constexpr DWORDLONG noPage = DWORDLONG{1} << 63; // a base that no position is near

    static constexpr DWORD BaseOf(DWORD position) { return position & ~(pageSize - 1); }
    // Whether the loaded page holds the position and count bytes there, and goes on behind them.
    bool IsInsidePage(DWORD count) const { return m_position - m_base + count < pageSize; }
    void ReadPages(BYTE* to, DWORD count);
    void WritePages(const BYTE* from, DWORD count);
    void UpdateCache();
    void FlushCache();

    const Messages m_messages;
    std::unique_ptr<BYTE[]> m_page;
    DWORDLONG m_base = noPage;
    BOOL m_isDirty = FALSE;
};

} // namespace corekit::detail
