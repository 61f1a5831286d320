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
    // At most the size, else the derived stream's message. Stores a changed page and loads another where
    // the position goes to another page.
    void SeekToPos(DWORD position) override;

    DWORD GetSize() override;      // bytes, those that only the page has included
    void Flush() override;         // stores the page if it was changed
    void Skip(int count) override; // outside the data the derived stream's message
    DWORD GetCurrentPos() override;

protected:
    // Message numbers of the derived stream.
    struct Messages {
        UINT setPositionFailed, writeFailed, seekPastEnd, readPastEnd, skipPastEnd;
    };

    // The messages are copied. Nothing can be read before StartPages.
    explicit PagedStream(const Messages& messages) : m_messages(messages) {}

    // Inline what lies in the loaded page. More than there is throws the message for reading past the end,
    // with nothing read.
    void InternalRead(void* buffer, DWORD count) override
    {
        if (IsInsidePage(count) && count <= m_size - m_position && !m_isDirty) [[likely]] {
            const BYTE* from = m_page.get() + (m_position - m_base);
            m_position += count;
            copyBytes(buffer, from, count);
        } else {
            ReadPages(static_cast<BYTE*>(buffer), count);
        }
    }
    // Beyond 4 GiB throws the message for a failed write, with nothing written.
    void InternalWrite(const void* buffer, DWORD count) override
    {
        if (IsInsidePage(count) && count) [[likely]] {
            BYTE* to = m_page.get() + (m_position - m_base);
            m_isDirty = TRUE;
            m_position += count;
            if (m_position > m_size) m_size = m_position;
            copyBytes(to, buffer, count);
        } else {
            WritePages(static_cast<const BYTE*>(buffer), count);
        }
    }

    // Move whole pages, or up to the size, between the store and the cache; throw where that fails. `base`
    // is the place in the store and a multiple of the page size; `count` is at most the page size and never
    // 0.
    virtual void LoadPage(DWORD base, BYTE* page, DWORD count) = 0;
    virtual void StorePage(DWORD base, const BYTE* page, DWORD count) = 0;

    // From position 0 of a store of that size, whose first page is loaded.
    void StartPages(DWORD size);
    void DropPages(); // without storing

    DWORD m_position = 0; // bytes from the start, at most m_size
    DWORD m_size = 0;     // bytes

private:
    static constexpr DWORD pageSize = 65536;                // bytes; also the alignment of pages
    static constexpr DWORDLONG noPage = DWORDLONG{1} << 63; // a base that no position is near

    static constexpr DWORD BaseOf(DWORD position) { return position & ~(pageSize - 1); }
    // Whether the loaded page holds the position and count bytes there, and goes on behind them.
    bool IsInsidePage(DWORD count) const { return m_position - m_base + count < pageSize; }
    void ReadPages(BYTE* to, DWORD count);
    void WritePages(const BYTE* from, DWORD count);
    void UpdateCache(); // loads the page of the position
    void FlushCache();  // stores a changed page

    const Messages m_messages;
    std::unique_ptr<BYTE[]> m_page; // none before StartPages
    DWORDLONG m_base = noPage;      // where the loaded page begins
    BOOL m_isDirty = FALSE;         // changed since it was stored
};

} // namespace corekit::detail
