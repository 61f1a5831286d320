// The two blocks of a bitmap while they are being filled, and what its rows may be short of.
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
    explicit Block(void* bytes) : m_bytes(bytes) {}
    Block(Block&& other) noexcept : m_bytes(std::exchange(other.m_bytes, nullptr)) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() { safe_free(m_bytes); }

    void* get() const { return m_bytes; }
    template <typename T>
    T* as() const
    {
        return static_cast<T*>(m_bytes);
    }
    template <typename T>
    T* release()
    {
        return static_cast<T*>(std::exchange(m_bytes, nullptr));
    }

private:
    void* m_bytes;
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

// Rows may lack their padding, or their end be missing, which then reads as 0; a header cannot claim much
// more than there is.
constexpr bool isInProportion(std::uint64_t claimed, std::uint64_t present)
{
    constexpr std::uint64_t mostMissing = 0x10000; // bytes, beside as many as there are
    return claimed <= present * 2 + mostMissing;
}

} // namespace corekit::detail
