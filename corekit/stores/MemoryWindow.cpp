#include "corekit/stores/MemoryWindow.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"

namespace corekit::detail {
namespace {
} // namespace

// Texts of the typed layer mostly have 16 to 128 bytes: those are moved in eight blocks that overlap as the
// length demands, since a jump by the length costs more than the bytes.
void copyLong(void* to, const void* from, DWORD count)
{
    if (count < 16 || count > 128) {
        std::memcpy(to, from, count);
        return;
    }
    struct Block {
        DWORDLONG halves[2];
    };
    const DWORD last = count - sizeof(Block);
#pragma GCC unroll 8
    for (DWORD at = 0; at < 128; at += sizeof(Block)) {
        const DWORD offset = at < last ? at : last;
        Block block;
        std::memcpy(&block, static_cast<const BYTE*>(from) + offset, sizeof block);
        std::memcpy(static_cast<BYTE*>(to) + offset, &block, sizeof block);
    }
}

DWORDLONG MemoryWindow::GrownRoom(DWORD count) const
{
    if (growBy <= 0) ThrowMayNotGrow();
    const DWORDLONG step = static_cast<DWORDLONG>(growBy);
    const DWORDLONG missing = DWORDLONG{position} + count - room;
    return room + (missing + step - 1) / step * step;
}

void MemoryWindow::CheckSeek(DWORD target) const
{
    if (target > size) ThrowChainedException(nullptr, message::memorySeekInvalid);
}

DWORD MemoryWindow::SkipTarget(int count) const
{
    const DWORD target = position + static_cast<DWORD>(count);
    if (target > size) ThrowChainedException(nullptr, message::memorySkipPastEnd);
    return target;
}

void MemoryWindow::ThrowReadPastEnd() { ThrowChainedException(nullptr, message::memoryReadPastEnd); }

void MemoryWindow::ThrowMayNotGrow() { ThrowChainedException(nullptr, message::memoryExtensionDisabled); }

void MemoryWindow::ThrowCannotGrow(DWORD error)
{
    ThrowChainedException(GetLastErrorException(error), message::memoryExtensionFailed);
}

} // namespace corekit::detail
