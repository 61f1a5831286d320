// A process-wide object whose destructor never runs, for what rests on the toolkit: the order in which
// libraries end at exit is not ours to choose.
#pragma once

#include <new>
#include <utility>

namespace corekit::detail {

template <typename T>
class NeverDestroyed {
public:
    template <typename... Args>
    explicit NeverDestroyed(Args&&... args)
    {
        new (m_storage) T(std::forward<Args>(args)...);
    }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& get() { return *std::launder(reinterpret_cast<T*>(m_storage)); }

private:
    alignas(T) unsigned char m_storage[sizeof(T)];
};

} // namespace corekit::detail
