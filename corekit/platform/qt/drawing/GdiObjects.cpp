#include "corekit/platform/qt/drawing/GdiObjects.h"

#include "corekit/platform/Errors.h"

#include <mutex>
#include <utility>

namespace corekit::detail {

namespace {

std::mutex tableLock; // makes and frees slots; lookups do without
std::array<WORD, 0x10000> freeSlots;
std::size_t freeCount = 0;
std::size_t neverUsed = 0;

} // namespace

constinit GdiTable::Slots GdiTable::slots;

void* GdiTable::add(std::shared_ptr<GdiObject> object)
{
    const std::lock_guard guard(tableLock);
    if (freeCount == 0 && neverUsed > slotMask) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    const std::size_t index = freeCount ? freeSlots[--freeCount] : neverUsed++;
    Slot& slot = slots.at[index];
    const auto value = ++slot.generation << (slotBits + kindBits) |
                       static_cast<std::uintptr_t>(object->kind) << slotBits | index;
    object->handle = reinterpret_cast<void*>(value);
    slot.object = std::move(object);
    slot.handle.store(value, std::memory_order_release);
    return reinterpret_cast<void*>(value);
}

std::shared_ptr<GdiObject> GdiTable::share(const void* handle)
{
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    const Slot& slot = slots.at[value & slotMask];
    if (value == 0 || slot.handle.load(std::memory_order_acquire) != value) {
        refuse();
        return nullptr;
    }
    return slot.object;
}

std::shared_ptr<GdiObject> GdiTable::remove(const void* handle)
{
    const std::lock_guard guard(tableLock);
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    Slot& slot = slots.at[value & slotMask];
    if (value == 0 || slot.handle.load(std::memory_order_acquire) != value) {
        refuse();
        return nullptr;
    }
    slot.handle.store(0, std::memory_order_release);
    freeSlots[freeCount++] = static_cast<WORD>(value & slotMask);
    return std::exchange(slot.object, nullptr);
}

void GdiTable::refuse() { SetLastError(ERROR_INVALID_HANDLE); }

} // namespace corekit::detail
