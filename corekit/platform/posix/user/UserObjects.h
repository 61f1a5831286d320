// The table behind windows, menus and accelerator tables.
//
// Their handles are numbers, not addresses, and a number is never used again: one that has been closed, or
// was never given out, is known for what it is.
#pragma once

#include "corekit/platform/Types.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace corekit::detail {

// All kinds count together, so that a handle of one kind means nothing to another. Numbers below 0x10000 are
// left to the ids that callers choose themselves.
inline constinit std::atomic<UINT_PTR> lastUserNumber = 0xFFFF;

// Any thread may ask; what an object holds is its owner's care.
template <class Handle, class T>
class UserTable {
public:
    // Lives to the end of the process: an object may be closed by a static object's destructor.
    static UserTable& Instance()
    {
        static auto* const table = new UserTable;
        return *table;
    }

    Handle Open(std::shared_ptr<T> object)
    {
        const std::lock_guard lock(m_lock);
        const auto handle = reinterpret_cast<Handle>(++lastUserNumber);
        m_objects.emplace(handle, std::move(object));
        return handle;
    }
    // Null for what is not open.
    std::shared_ptr<T> Find(Handle handle)
    {
        const std::lock_guard lock(m_lock);
        const auto found = m_objects.find(handle);
        return found == m_objects.end() ? nullptr : found->second;
    }
    // The object that was closed; null for what is not open.
    std::shared_ptr<T> Close(Handle handle)
    {
        const std::lock_guard lock(m_lock);
        const auto node = m_objects.extract(handle);
        return node ? node.mapped() : nullptr;
    }

private:
    std::mutex m_lock;
    std::unordered_map<Handle, std::shared_ptr<T>> m_objects;
};

} // namespace corekit::detail
