#include "corekit/platform/posix/handles/HandleTable.h"

#include "corekit/platform/Errors.h"

namespace corekit::detail {
namespace {

constinit SlotTable<HandleSlot, mostSlots> table;

HANDLE openSlotFor(Object& object)
{
    const HandleNumber number = table.open(HandleKind::kernelObject, [&](HandleSlot& slot) {
        slot.object = &object;
        slot.kind.store(object.kind(), std::memory_order_release);
    });
    if (number == 0) SetLastError(ERROR_TOO_MANY_OPEN_FILES);
    return reinterpret_cast<HANDLE>(number);
}

} // namespace

void HandleSlot::leave() { table.leave(*this); }

void HandleSlot::clear()
{
    Object* const last = std::exchange(object, nullptr);
    if (last->dropHandle()) delete last;
}

HANDLE openHandle(std::unique_ptr<Object> object)
{
    const HANDLE handle = openSlotFor(*object);
    if (handle != nullptr) static_cast<void>(object.release());
    return handle;
}

HANDLE openAnother(Object& object)
{
    object.addHandle();
    return openCounted(object);
}

HANDLE openCounted(Object& object)
{
    const HANDLE handle = openSlotFor(object);
    if (handle == nullptr && object.dropHandle()) delete &object;
    return handle;
}

HandleSlot* slotOf(HANDLE handle)
{
    const auto number = reinterpret_cast<HandleNumber>(handle);
    HandleSlot* const slot = table.at(number);
    if (number >= mostSlots) return slot;
    return slot->kind.load(std::memory_order_acquire) == ObjectKind::socket ? slot : nullptr;
}

std::uint32_t slotNumber(HANDLE handle) { return table.numberOf(*slotOf(handle)); }

} // namespace corekit::detail
