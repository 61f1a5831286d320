#include "corekit/platform/posix/handles/HandleTable.h"

#include "corekit/platform/Errors.h"

#include <array>

namespace corekit::detail {
namespace {

// Untouched slots cost no memory: the table lies in pages that the system supplies on first use.
constexpr std::uint32_t slotCount = 1u << 18;
constinit std::array<HandleSlot, slotCount> slots;

// Slots are handed out oldest first, so that a stale handle stays recognisable for as long as possible.
class FreeSlots {
public:
    HandleSlot* take()
    {
        const std::lock_guard lock(m_mutex);
        // Untouched slots first while there are few, then those that have rested longest.
        if (m_fresh < slotCount && (m_resting < rest || m_first == 0)) return &slots[m_fresh++];
        if (m_first == 0) return nullptr;
        HandleSlot& slot = slots[m_first];
        m_first = slot.next;
        --m_resting;
        return &slot;
    }
    void giveBack(HandleSlot& slot)
    {
        const auto index = static_cast<std::uint32_t>(&slot - slots.data());
        const std::lock_guard lock(m_mutex);
        slot.next = 0;
        (m_first == 0 ? m_first : slots[m_last].next) = index;
        m_last = index;
        ++m_resting;
    }

private:
    static constexpr std::uint32_t rest = 64;
    std::mutex m_mutex;
    std::uint32_t m_fresh = 1; // slot 0 is never used: 0 ends the list
    std::uint32_t m_first = 0;
    std::uint32_t m_last = 0;
    std::uint32_t m_resting = 0;
};

constinit FreeSlots freeSlots;

void freeSlot(HandleSlot& slot)
{
    Object* const object = std::exchange(slot.object, nullptr);
    if (object->dropHandle()) delete object;
    freeSlots.giveBack(slot);
}

} // namespace

bool HandleSlot::enter()
{
    std::uint32_t seen = state.load(std::memory_order_relaxed);
    while ((seen & openBit) != 0)
        if (state.compare_exchange_weak(seen, seen + 2, std::memory_order_acquire, std::memory_order_relaxed))
            return true;
    return false;
}

void HandleSlot::leave()
{
    if (state.fetch_sub(2, std::memory_order_acq_rel) == 2) freeSlot(*this);
}

namespace {
HandleSlot* openSlotFor(Object& object)
{
    HandleSlot* const slot = freeSlots.take();
    if (slot == nullptr) {
        SetLastError(ERROR_TOO_MANY_OPEN_FILES);
        return nullptr;
    }
    slot->object = &object;
    slot->kind.store(object.kind(), std::memory_order_release);
    slot->turn.store(slot->turn.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    slot->state.store(HandleSlot::openBit, std::memory_order_release);
    return slot;
}
} // namespace

HANDLE openHandle(std::unique_ptr<Object> object)
{
    HandleSlot* const slot = openSlotFor(*object);
    if (slot != nullptr) static_cast<void>(object.release());
    return slot;
}

HANDLE openAnother(Object& object)
{
    object.addHandle();
    return openCounted(object);
}

HANDLE openCounted(Object& object)
{
    HandleSlot* const slot = openSlotFor(object);
    if (slot == nullptr && object.dropHandle()) delete &object;
    return slot;
}

HandleSlot* slotOf(HANDLE handle)
{
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    if (value < slotCount) {
        HandleSlot& slot = slots[value];
        return slot.kind.load(std::memory_order_acquire) == ObjectKind::socket ? &slot : nullptr;
    }
    const auto offset = value - reinterpret_cast<std::uintptr_t>(slots.data());
    if (offset >= sizeof slots || offset % sizeof(HandleSlot) != 0) return nullptr;
    return &slots[offset / sizeof(HandleSlot)];
}

std::uint32_t slotNumber(HANDLE handle)
{
    return static_cast<std::uint32_t>(static_cast<HandleSlot*>(handle) - slots.data());
}

} // namespace corekit::detail
