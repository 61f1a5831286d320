// A set of record numbers that gives its lowest at once: bits, and above them bits that tell which words of
// the level below hold any.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace corekit::detail {

class FreeSlots {
public:
    void Add(std::size_t number);
    void Remove(std::size_t number);
    // The lowest number in the set, or -1.
    std::ptrdiff_t Lowest() const;

private:
    static constexpr std::size_t levels = 3;
    std::array<std::vector<std::uint64_t>, levels> m_words;
};

} // namespace corekit::detail
