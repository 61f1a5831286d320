// CFileStream: a file behind a cache of one page.
//
// The file is seen through the aligned page of 65536 bytes that the position lies in, so many small reads and
// writes cost a copy each. A page that was written to goes to the file when the position leaves it, at every
// read, and at Flush. Nothing else writes it: Flush, then Close, or the last page is lost. Files reach up to
// 4 GiB less a byte.
//
// Failures throw CChainedException. When the file refuses a transfer, the position stays where the transfer
// had come to, and a page that could not be written or loaded is tried again by the next operation that needs
// it.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/stores/MemoryWindow.h"

#include <memory>

class COREKIT_API CFileStream : public CStream {
    DECLARE_DYNAMIC(CFileStream)

public:
    CFileStream() = default;
    ~CFileStream() override; // closes

    // Opens by the rules of CreateFileA; without FILE_FLAG_RANDOM_ACCESS it is told to expect sequential
    // access. 0 when the file cannot be opened; the last error tells why. What was open before is closed.
    BOOL Open(const char* name, DWORD access, DWORD share, DWORD disposition, DWORD flags);
    // Takes over an open file at position 0. Always 1.
    BOOL AttachFile(HANDLE file);
    void Close();          // without flushing
    HANDLE DetachHandle(); // the file goes to the caller, without flushing

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    const CString& GetFilename() const { return m_name; } // as given to Open
    bool IsEOF() const { return m_position == m_size; }

    void SeekToPos(DWORD position) override;
    DWORD GetSize() override;
    void Flush() override;
    void Skip(int count) override;
    DWORD GetCurrentPos() override;
    void SetEndOfStream() override;

protected:
    void InternalRead(void* buffer, DWORD count) override
    {
        if (IsInsidePage(count) && count <= m_size - m_position && !m_isDirty) [[likely]] {
            const BYTE* from = m_page.get() + (m_position - m_base);
            m_position += count;
            corekit::detail::CopyBytes(buffer, from, count);
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
            corekit::detail::CopyBytes(to, buffer, count);
        } else {
            WritePages(static_cast<const BYTE*>(buffer), count);
        }
    }

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
    void MoveFilePointer(DWORD position);

    HANDLE m_file = INVALID_HANDLE_VALUE;
    std::unique_ptr<BYTE[]> m_page;
    DWORDLONG m_base = noPage;
    DWORD m_position = 0;
    DWORD m_size = 0;
    BOOL m_isDirty = FALSE;
    CString m_name;
};
