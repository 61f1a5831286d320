// The two blocks of a bitmap while they are being filled.
#pragma once

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/framework/Exception.h"

#include <climits>
#include <cstdint>
#include <cstring>
#include <utility>

namespace corekit::detail {

// Freed with safe_free unless it is released.
class Block {
public:
    explicit Block(void* bytes) : bytes_(bytes) {}
    Block(Block&& other) noexcept : bytes_(std::exchange(other.bytes_, nullptr)) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() { safe_free(bytes_); }

    void* get() const { return bytes_; }
    template <typename T>
    T* as() const
    {
        return static_cast<T*>(bytes_);
    }
    template <typename T>
    T* release()
    {
        return static_cast<T*>(std::exchange(bytes_, nullptr));
    }

private:
    void* bytes_;
};

// The framework's memory exception if there is no block to be had.
inline Block newBlock(std::uint64_t size)
{
    if (size > INT_MAX) AfxThrowMemoryException();
    return Block(__safe_malloc(static_cast<int>(size), __FILE__, __LINE__));
}

inline Block zeroedBlock(std::uint64_t size)
{
    Block block = newBlock(size);
    std::memset(block.get(), 0, size);
    return block;
}

inline Block duplicateBlock(const void* source, std::uint64_t size)
{
    Block block = newBlock(size);
    std::memcpy(block.get(), source, size);
    return block;
}

} // namespace corekit::detail
