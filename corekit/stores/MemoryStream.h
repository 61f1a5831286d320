// CMemoryStream: a stream over a block of heap memory.
//
// The block is either the stream's own (Create), grown by whole steps as writes need it and freed at the end,
// or somebody's (Attach), read and overwritten but never extended. Own blocks come from the safe allocation
// functions: what Detach gives away is freed with safe_free. Failures throw CChainedException and leave the
// stream as it was.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/stores/MemoryWindow.h"

class COREKIT_API CMemoryStream : public CStream {
    DECLARE_DYNAMIC(CMemoryStream)

public:
    CMemoryStream() = default; // Create or Attach must follow
    CMemoryStream(const void* data, int size) { Attach(data, size); }
    CMemoryStream(int initialSize, int growBy) { Create(initialSize, growBy); }
    ~CMemoryStream() override;

    // Starts over on the caller's block, all of it data, at position 0.
    void Attach(const void* data, int size);
    // Starts over with an own block without data. A growBy of 0 forbids to extend it.
    void Create(int initialSize, int growBy);
    // The block goes to the caller; sizes and position keep their values. Only Create or Attach make it
    // usable again.
    void* Detach();
    void Free();  // without a block, as after Detach, with size and position 0
    void Reset(); // drops the data and keeps the block
    void SetAutoDelete(int ownsBuffer) { m_ownsBuffer = ownsBuffer; }

    const void* GetMemoryBufferPointer() const { return m_window.bytes; }
    bool IsEOF() const { return m_window.position == m_window.size; }

    void SeekToPos(DWORD position) override;
    DWORD GetSize() override;
    void Flush() override; // does nothing
    void Skip(int count) override;
    DWORD GetCurrentPos() override;
    void SetEndOfStream() override;

protected:
    void InternalRead(void* buffer, DWORD count) override
    {
        if (m_window.CanRead(count)) [[likely]]
            m_window.Take(buffer, count);
        else if (count)
            m_window.ThrowReadPastEnd();
    }
    void InternalWrite(const void* buffer, DWORD count) override
    {
        if (!m_window.CanWrite(count)) [[unlikely]]
            Grow(count);
        m_window.Put(buffer, count);
    }

private:
    [[gnu::cold]] void Grow(DWORD count);

    BOOL m_ownsBuffer = FALSE;
    corekit::detail::MemoryWindow m_window;
};
