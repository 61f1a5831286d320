// What must be true of a compound file before a reader that trusts it may have it.
#pragma once

#include <cstdint>

namespace corekit::detail {

enum class CompoundState { sound, damaged, other, unreadable };

// The most elements that may hang together in a chain; the reader goes down such a chain by recursion.
inline constexpr std::uint32_t kLongestCompoundChain = 8192;
// The most elements of a file; each takes memory out of proportion to its entry.
inline constexpr std::uint32_t kMostCompoundElements = 16384;

// Whether the file begins as a compound file does.
bool HasCompoundHeader(int descriptor);
// Sizes in the header lie within the file, the directory's chain ends, no entry is reached twice, and the
// tree is not too deep. Memory is an eighth of the file at most. Contents of streams are not looked at.
CompoundState CheckCompoundFile(int descriptor);

} // namespace corekit::detail
