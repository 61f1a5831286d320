// CGlobalMemoryStream: a stream over a moveable global memory block, for blocks that are passed on by handle.
//
// The stream keeps its block locked. Create makes one that the stream frees; Attach takes one that stays the
// caller's unless SetAutoDelete says otherwise. Both kinds grow by whole steps. Failures throw
// CChainedException and leave the stream as it was.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/stores/MemoryWindow.h"

// One thread at a time. Sizes and positions are in bytes, below 4 GiB.
class COREKIT_API CGlobalMemoryStream : public CStream {
    DECLARE_DYNAMIC(CGlobalMemoryStream)

public:
    CGlobalMemoryStream() = default; // Create or Attach must follow
    ~CGlobalMemoryStream() override;

    // Starts over on a block, all of it data, at position 0, and locks it; SetAutoDelete is off then. The
    // stream's block so far is freed if it was to be. growBy is the number of bytes by which the block
    // grows, in whole steps; 0 or less forbids to extend it.
    void Attach(HGLOBAL handle, int growBy);
    // Starts over with a cleared block of its own without data, with room for `initialSize` bytes. Throws
    // message::memoryExtensionFailed when there is none, as for a negative size.
    void Create(int initialSize, int growBy);
    // The block, unlocked, to the caller; sizes and position keep their values. Null if there was none.
    HGLOBAL Detach();

    void Empty(); // frees the block, whoever it belongs to
    bool NotCreated() const { return m_handle == nullptr; }
    // Whether the destructor, and the next Attach or Create, free the block.
    void SetAutoDelete(int autoDelete) { m_autoDelete = autoDelete; }

    // The bytes of the locked block, from position 0; good until a write makes the block grow. Null without
    // one.
    const void* GetMemoryBufferPointer() const { return m_window.bytes; }

    void SeekToPos(DWORD position) override; // above the size message::memorySeekInvalid
    DWORD GetSize() override;
    void Flush() override;         // does nothing
    void Skip(int count) override; // outside the data message::memorySkipPastEnd
    DWORD GetCurrentPos() override;
    void SetEndOfStream() override; // the block keeps its room

protected:
    // Past the end message::memoryReadPastEnd, with nothing read.
    void InternalRead(void* buffer, DWORD count) override;
    // Where the block may not grow message::memoryExtensionDisabled, where it cannot
    // message::memoryExtensionFailed.
    void InternalWrite(const void* buffer, DWORD count) override;

private:
    void Drop(); // frees the block if the stream is to
    [[gnu::cold]] void Grow(DWORD count);

    HGLOBAL m_handle = nullptr;
    BOOL m_autoDelete = FALSE;
    corekit::detail::MemoryWindow m_window;
};
