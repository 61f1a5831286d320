// Objects for handles that nobody wraps: what FromHandle gives.
#pragma once

#include "corekit/platform/Export.h"

#include <memory>
#include <unordered_map>
#include <utility>

namespace corekit::detail {

// The objects are reused for their handle, and all forgotten once there are many: a caller uses one at once.
// They never delete what they hold.
template <typename Object, typename Handle, auto member>
class TemporaryObjects {
public:
    Object* of(Handle handle)
    {
        if (!handle) return nullptr;
        auto found = m_objects.find(handle);
        if (found == m_objects.end()) {
            if (m_objects.size() >= most) forget();
            found = m_objects.emplace(handle, std::make_unique<Object>()).first;
            (*found->second).*member = handle;
        }
        return found->second.get();
    }

    TemporaryObjects() = default;
    ~TemporaryObjects() { forget(); }
    TemporaryObjects(const TemporaryObjects&) = delete;
    TemporaryObjects& operator=(const TemporaryObjects&) = delete;

private:
    static constexpr std::size_t most = 256;

    void forget()
    {
        for (auto& [handle, object] : m_objects) (*object).*member = nullptr;
        m_objects.clear();
    }

    std::unordered_map<Handle, std::unique_ptr<Object>> m_objects;
};

} // namespace corekit::detail
