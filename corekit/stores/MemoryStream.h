// CMemoryStream: a stream over a block of heap memory.
//
// The block is either the stream's own (Create), grown by whole steps as writes need it and freed at the end,
// or somebody's (Attach), read and overwritten but never extended. Own blocks come from the safe allocation
// functions: what Detach gives away is freed with safe_free. Failures throw CChainedException and leave the
// stream as it was.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/stores/MemoryWindow.h"

// One thread at a time. Sizes and positions are in bytes, below 2 GiB.
class COREKIT_API CMemoryStream : public CStream {
    DECLARE_DYNAMIC(CMemoryStream)

public:
    CMemoryStream() = default; // Create or Attach must follow
    // As Attach, and as Create.
    CMemoryStream(const void* data, int size) { Attach(data, size); }
    CMemoryStream(int initialSize, int growBy) { Create(initialSize, growBy); }

    ~CMemoryStream() override;

    // Starts over on the caller's block, all of it data, at position 0. The block must outlive its use; it
    // is written to although it is passed as const, by writes only. A size below 0 counts as 0.
    void Attach(const void* data, int size);
    // Starts over with an own block without data and room for `initialSize` bytes. growBy is the number of
    // bytes by which the block grows, in whole steps; 0 or less forbids to extend it. No memory, or a
    // negative size, throws the memory exception.
    void Create(int initialSize, int growBy);
    // The block goes to the caller; sizes and position keep their values. Only Create or Attach make it
    // usable again.
    void* Detach();
    void Free();  // without a block, as after Detach, with size and position 0
    void Reset(); // drops the data and keeps the block
    // Whether the stream frees its block: of an attached one, which must then come from the safe allocation
    // functions, or of its own, which somebody else frees if not.
    void SetAutoDelete(int ownsBuffer) { m_ownsBuffer = ownsBuffer; }

    // The bytes from position 0; good until a write makes the block grow. Null without a block.
    const void* GetMemoryBufferPointer() const { return m_window.bytes; }

    bool IsEOF() const { return m_window.position == m_window.size; } // nothing left to read

    void SeekToPos(DWORD position) override; // above the size message::memorySeekInvalid
    DWORD GetSize() override;
    void Flush() override;         // does nothing
    void Skip(int count) override; // outside the data message::memorySkipPastEnd
    DWORD GetCurrentPos() override;
    void SetEndOfStream() override; // the block keeps its room

protected:
    // Past the end message::memoryReadPastEnd, with nothing read.
    void InternalRead(void* buffer, DWORD count) override
    {
        if (m_window.CanRead(count)) [[likely]]
            m_window.Take(buffer, count);
        else if (count)
            m_window.ThrowReadPastEnd();
    }
    // Where the block may not grow message::memoryExtensionDisabled; the memory exception where there is no
    // memory or the block would pass 2 GiB.
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
