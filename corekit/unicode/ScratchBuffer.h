// Working memory for a line: on the stack for lines of ordinary length, else from the heap.
#pragma once

#include <cstddef>
#include <memory>

namespace corekit::detail {

template <class T, std::size_t Ordinary>
class ScratchBuffer {
public:
    explicit ScratchBuffer(std::size_t count)
        : m_heap(count > Ordinary ? std::make_unique_for_overwrite<T[]>(count) : nullptr)
    {
    }
    T* Get() { return m_heap ? m_heap.get() : m_local; }

private:
    std::unique_ptr<T[]> m_heap;
    T m_local[Ordinary];
};

} // namespace corekit::detail
