// The part that both memory streams share: a block of bytes with a size, room to grow in and a position.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstring>
#include <new>
#include <utility>

namespace corekit::detail {

// A copy of any length, of which the blocks do not overlap. Out of line, to keep the small copies short.
COREKIT_API void copyLong(void* to, const void* from, DWORD count);

// Values of the typed layer have 1, 2, 4 or 8 bytes, which are worth a move of their own. The blocks are
// laundered, because where a copy is inlined on one of known size the compiler warns of the moves that the
// count rules out.
inline void copyBytes(void* toBlock, const void* fromBlock, DWORD count)
{
    BYTE* const to = std::launder(static_cast<BYTE*>(toBlock));
    const BYTE* const from = std::launder(static_cast<const BYTE*>(fromBlock));
    if (count == 4)
        std::memcpy(to, from, 4);
    else if (count == 2)
        std::memcpy(to, from, 2);
    else if (count == 1)
        std::memcpy(to, from, 1);
    else if (count == 8)
        std::memcpy(to, from, 8);
    else if (count)
        copyLong(to, from, count);
}

// Owns nothing: the stream does, and moves the window to a new block when the old one is too small. All
// sizes are in bytes.
struct COREKIT_API MemoryWindow {
    BYTE* bytes = nullptr; // null when the block is given away
    DWORD size = 0;        // the data
    DWORD room = 0;        // of the block, at least the size
    int growBy = 0;        // the step of growth; none at 0 and below
    DWORD position = 0;    // at most the size

    // A window that gave its block away keeps size and position; it has no room and reads nothing.
    bool CanRead(DWORD count) const { return count <= size - position && bytes; }
    bool CanWrite(DWORD count) const { return position + DWORDLONG{count} <= room || !count; }

    // The block, of which the window knows nothing more.
    BYTE* GiveAway()
    {
        room = 0;
        return std::exchange(bytes, nullptr);
    }
    // Copy and move the position, without a look whether that is possible: ask CanRead and CanWrite.
    void Take(void* buffer, DWORD count)
    {
        const BYTE* from = bytes + position;
        position += count;
        copyBytes(buffer, from, count);
    }
    void Put(const void* buffer, DWORD count)
    {
        if (!count) return;
        BYTE* to = bytes + position;
        position += count;
        if (position > size) size = position;
        copyBytes(to, buffer, count);
    }

    // The room in bytes that a write of `count` bytes beyond it needs, in whole grow steps. Throws
    // message::memoryExtensionDisabled when there is no step.
    DWORDLONG GrownRoom(DWORD count) const;
    // Throws message::memorySeekInvalid above the size.
    void CheckSeek(DWORD target) const;
    // The position `count` bytes on, or back; message::memorySkipPastEnd outside the data.
    DWORD SkipTarget(int count) const;
    // message::memoryReadPastEnd, memoryExtensionDisabled, and memoryExtensionFailed over the reason of
    // that code.
    [[noreturn]] static void ThrowReadPastEnd();
    [[noreturn]] static void ThrowMayNotGrow();
    [[noreturn]] static void ThrowCannotGrow(DWORD error);
};

} // namespace corekit::detail
