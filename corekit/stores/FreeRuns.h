// Where a block file may have a run of free blocks: for each stretch of the map how many blocks are free at
// its start, at its end and in one run within, and the same for pairs of stretches up to the whole, so that
// the lowest run of any length is found without a look at the map. One thread at a time.
#pragma once

#include "corekit/platform/Types.h"

#include <span>
#include <vector>

namespace corekit::detail {

class FreeRuns {
public:
    static constexpr DWORD stretchWords = 8;
    static constexpr DWORD stretchBlocks = stretchWords * 64;
    using Bits = std::span<const std::uint64_t, stretchWords>; // set: in use

    DWORD Stretches() const { return m_stretches; }
    void Forget() { *this = FreeRuns(); }
    // For so many stretches, of which none has a free block yet.
    void Make(DWORD stretches);
    void Set(DWORD stretch, Bits bits);

    // No run of that many free blocks starts in front of this block; there is one in the stretch that it lies
    // in or across the end of that. 0xFFFFFFFF if there is none at all.
    DWORD First(DWORD count) const;

private:
    struct Node {
        DWORD length = 0; // of what it covers, in blocks
        DWORD atStart = 0;
        DWORD atEnd = 0;
        DWORD longest = 0;
    };
    static Node NodeOf(Bits bits);
    static Node Join(const Node& left, const Node& right);

    DWORD m_stretches = 0;     // a power of two
    std::vector<Node> m_nodes; // from 1 on; below node n lie 2 n and 2 n + 1, the stretches are the last
};

} // namespace corekit::detail
