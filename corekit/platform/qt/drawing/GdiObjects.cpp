#include "corekit/platform/qt/drawing/GdiObjects.h"

#include "corekit/platform/Errors.h"

#include <utility>

namespace corekit::detail {

constinit SlotTable<GdiTable::ObjectSlot, 1u << 16> GdiTable::table;

void* GdiTable::add(std::shared_ptr<GdiObject> object)
{
    GdiObject& added = *object;
    const auto kind = static_cast<HandleKind>(added.kind);
    const HandleNumber number = table.open(kind, [&](ObjectSlot& slot) { slot.object = std::move(object); });
    if (number == 0) SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    if (number != 0) added.handle = reinterpret_cast<void*>(number);
    return reinterpret_cast<void*>(number);
}

GdiTable::ObjectSlot* GdiTable::enter(const void* handle)
{
    const auto number = reinterpret_cast<HandleNumber>(handle);
    const bool isOurs = kindOf(number) >= HandleKind::gdiObject;
    ObjectSlot* const slot = isOurs ? table.enter(number) : nullptr;
    if (slot == nullptr) refuse();
    return slot;
}

std::shared_ptr<GdiObject> GdiTable::share(const void* handle)
{
    ObjectSlot* const slot = enter(handle);
    if (slot == nullptr) return nullptr;
    std::shared_ptr<GdiObject> shared = slot->object;
    table.leave(*slot);
    return shared;
}

std::shared_ptr<GdiObject> GdiTable::remove(const void* handle)
{
    ObjectSlot* const slot = enter(handle);
    if (slot == nullptr) return nullptr;
    std::shared_ptr<GdiObject> shared = slot->object;
    const bool closed = slot->close();
    table.leave(*slot);
    if (!closed) refuse();
    return closed ? shared : nullptr;
}

void GdiTable::refuse() { SetLastError(ERROR_INVALID_HANDLE); }

} // namespace corekit::detail
