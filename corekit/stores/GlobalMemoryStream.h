// CGlobalMemoryStream: a stream over a moveable global memory block, for blocks that are passed on by handle.
//
// The stream keeps its block locked. Create makes one that the stream frees; Attach takes one that stays the
// caller's unless SetAutoDelete says otherwise. Both kinds grow by whole steps. Failures throw
// CChainedException and leave the stream as it was.
#pragma once

#include "corekit/foundation/Stream.h"
#include "corekit/stores/MemoryWindow.h"

class COREKIT_API CGlobalMemoryStream : public CStream {
    DECLARE_DYNAMIC(CGlobalMemoryStream)

public:
    CGlobalMemoryStream() = default; // Create or Attach must follow
    ~CGlobalMemoryStream() override;

    // Starts over on a block, all of it data, at position 0. A growBy of 0 forbids to extend it.
    void Attach(HGLOBAL handle, int growBy);
    // Starts over with a cleared block of its own without data.
    void Create(int initialSize, int growBy);
    HGLOBAL Detach(); // unlocked, to the caller; sizes and position keep their values
    void Empty();     // frees the block, whoever it belongs to
    bool NotCreated() const { return m_handle == nullptr; }
    void SetAutoDelete(int autoDelete) { m_autoDelete = autoDelete; }

    const void* GetMemoryBufferPointer() const { return m_window.bytes; }

    void SeekToPos(DWORD position) override;
    DWORD GetSize() override;
    void Flush() override; // does nothing
    void Skip(int count) override;
    DWORD GetCurrentPos() override;
    void SetEndOfStream() override;

protected:
    void InternalRead(void* buffer, DWORD count) override;
    void InternalWrite(const void* buffer, DWORD count) override;

private:
    void Drop();
    [[gnu::cold]] void Grow(DWORD count);

    HGLOBAL m_handle = nullptr;
    BOOL m_autoDelete = FALSE;
    corekit::detail::MemoryWindow m_window;
};
