#include "corekit/platform/Memory.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>

namespace {

using corekit::detail::fail;

struct FreeMemory {
    void operator()(std::byte* memory) const { std::free(memory); }
};

struct Block {
    std::unique_ptr<std::byte, FreeMemory> memory;
    SIZE_T size = 0;
    UINT locks = 0;
    bool moveable = false;
};

// Every live block by its handle: what is not in here is no block, whatever it looks like.
class Blocks {
public:
    std::mutex mutex;
    std::unordered_map<HGLOBAL, std::unique_ptr<Block>> byHandle;

    Block* find(HGLOBAL handle) const
    {
        const auto entry = byHandle.find(handle);
        return entry != byHandle.end() ? entry->second.get() : nullptr;
    }
};

Blocks& blocks()
{
    static auto* const all = new Blocks; // outlives every static object that may still hold a block
    return *all;
}

// Grown or shrunk memory with the old content in front, or null with the old memory kept.
bool resize(Block& block, SIZE_T bytes, bool clear)
{
    auto* const grown = static_cast<std::byte*>(std::realloc(block.memory.get(), std::max<SIZE_T>(bytes, 1)));
    if (grown == nullptr) return false;
    static_cast<void>(block.memory.release()); // realloc has freed or moved it
    block.memory.reset(grown);
    if (clear && bytes > block.size) std::memset(grown + block.size, 0, bytes - block.size);
    block.size = bytes;
    return true;
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes)
try {
    auto block = std::make_unique<Block>();
    const SIZE_T taken = std::max<SIZE_T>(bytes, 1);
    block->memory.reset(
        static_cast<std::byte*>((flags & GMEM_ZEROINIT) != 0 ? std::calloc(taken, 1) : std::malloc(taken)));
    if (!block->memory) return fail<HGLOBAL>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
    block->size = bytes;
    block->moveable = (flags & GMEM_MOVEABLE) != 0;
    const HGLOBAL handle = block->moveable ? static_cast<HGLOBAL>(block.get()) : block->memory.get();
    const std::lock_guard lock(blocks().mutex);
    blocks().byHandle.emplace(handle, std::move(block));
    return handle;
} catch (const std::bad_alloc&) {
    return fail<HGLOBAL>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
}

HGLOBAL GlobalReAlloc(HGLOBAL handle, SIZE_T bytes, UINT flags)
{
    Blocks& all = blocks();
    const std::lock_guard lock(all.mutex);
    const auto entry = all.byHandle.find(handle);
    if (entry == all.byHandle.end()) return fail<HGLOBAL>(ERROR_INVALID_HANDLE, nullptr);
    Block& block = *entry->second;
    const bool mayMove = (block.moveable && block.locks == 0) || (flags & GMEM_MOVEABLE) != 0;
    if (!mayMove) {
        if (bytes > block.size) return fail<HGLOBAL>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
        block.size = bytes;
        return handle;
    }
    if (!resize(block, bytes, (flags & GMEM_ZEROINIT) != 0))
        return fail<HGLOBAL>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
    if (block.moveable || block.memory.get() == handle) return handle;
    auto node = all.byHandle.extract(entry);
    node.key() = block.memory.get();
    return all.byHandle.insert(std::move(node)).position->first;
}

void* GlobalLock(HGLOBAL handle)
{
    const std::lock_guard lock(blocks().mutex);
    Block* const block = blocks().find(handle);
    if (block == nullptr) return fail<void*>(ERROR_INVALID_HANDLE, nullptr);
    if (!block->moveable) return block->memory.get();
    if (block->size == 0) return nullptr;
    ++block->locks;
    return block->memory.get();
}

BOOL GlobalUnlock(HGLOBAL handle)
{
    const std::lock_guard lock(blocks().mutex);
    Block* const block = blocks().find(handle);
    if (block == nullptr) return fail(ERROR_INVALID_HANDLE, FALSE);
    if (!block->moveable) return TRUE;
    if (block->locks == 0) return fail(ERROR_NOT_LOCKED, FALSE);
    if (--block->locks > 0) return TRUE;
    return fail(NO_ERROR, FALSE);
}

SIZE_T GlobalSize(HGLOBAL handle)
{
    const std::lock_guard lock(blocks().mutex);
    const Block* const block = blocks().find(handle);
    return block != nullptr ? block->size : fail<SIZE_T>(ERROR_INVALID_HANDLE, 0);
}

HGLOBAL GlobalFree(HGLOBAL handle)
{
    if (handle == nullptr) return nullptr;
    const std::lock_guard lock(blocks().mutex);
    return blocks().byHandle.erase(handle) != 0 ? nullptr : fail<HGLOBAL>(ERROR_INVALID_HANDLE, handle);
}
