// Objects behind the handles of windows, menus, accelerator tables and image lists.
#pragma once

#include "corekit/platform/posix/handles/SlotTable.h"

#include <memory>
#include <new>
#include <utility>

namespace corekit::detail {

// Any thread may ask; what an object holds is its owner's care.
template <class Handle, class T, HandleKind kind>
class UserTable {
    struct ObjectSlot : Slot {
        void clear() { delete std::exchange(object, nullptr); }

        T* object = nullptr;
    };

public:
    // A user of an object, which stays as long as this does, whatever becomes of its handle.
    class User {
    public:
        User() = default;
        User(const User& other) : m_slot(other.m_slot)
        {
            if (m_slot != nullptr) m_slot->addUser();
        }
        User(User&& other) noexcept : m_slot(std::exchange(other.m_slot, nullptr)) {}
        User& operator=(User other) noexcept
        {
            std::swap(m_slot, other.m_slot);
            return *this;
        }
        ~User()
        {
            if (m_slot != nullptr) table.leave(*m_slot);
        }

        explicit operator bool() const { return m_slot != nullptr; }
        T* operator->() const { return m_slot->object; }
        T& operator*() const { return *m_slot->object; }

    private:
        friend UserTable;
        explicit User(ObjectSlot* slot) : m_slot(slot) {}

        ObjectSlot* m_slot = nullptr;
    };

    // Throws std::bad_alloc when the table is full.
    static Handle Open(std::unique_ptr<T> object)
    {
        const HandleNumber number =
            table.open(kind, [&](ObjectSlot& slot) { slot.object = object.release(); });
        if (number == 0) throw std::bad_alloc();
        return reinterpret_cast<Handle>(number);
    }
    // Empty for what is not open.
    static User Find(Handle handle) { return User(table.enter(reinterpret_cast<HandleNumber>(handle))); }
    // The object that was closed; empty for what is not open.
    static User Close(Handle handle)
    {
        User closed = Find(handle);
        return closed && closed.m_slot->close() ? closed : User();
    }

private:
    static constinit inline SlotTable<ObjectSlot, 1u << 16> table;
};

} // namespace corekit::detail
