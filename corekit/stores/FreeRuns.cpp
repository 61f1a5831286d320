#include "corekit/stores/FreeRuns.h"

#include <algorithm>
#include <bit>

namespace corekit::detail {

void FreeRuns::Make(DWORD stretches)
{
    m_stretches = std::bit_ceil(std::max(stretches, DWORD{1}));
    m_nodes.assign(std::size_t{m_stretches} * 2, Node{});
    for (DWORD node = m_stretches * 2 - 1; node > 0; --node)
        m_nodes[node].length = stretchBlocks * (m_stretches / std::bit_floor(node));
}

FreeRuns::Node FreeRuns::NodeOf(Bits bits)
{
    Node node{.length = stretchBlocks};
    DWORD run = 0;
    const auto end = [&](DWORD at) {
        if (run == at) node.atStart = run;
        node.longest = std::max(node.longest, run);
        run = 0;
    };
    for (DWORD word = 0; word < stretchWords; ++word) {
        for (DWORD at = 0; at < 64;) {
            const std::uint64_t rest = bits[word] >> at;
            const DWORD free = std::min(static_cast<DWORD>(std::countr_zero(rest)), 64 - at);
            run += free;
            at += free;
            if (at == 64) break;
            end(word * 64 + at);
            at += static_cast<DWORD>(std::countr_one(bits[word] >> at));
        }
    }
    node.atEnd = run;
    end(stretchBlocks);
    return node;
}

FreeRuns::Node FreeRuns::Join(const Node& left, const Node& right)
{
    return {.length = left.length + right.length,
            .atStart = left.atStart == left.length ? left.length + right.atStart : left.atStart,
            .atEnd = right.atEnd == right.length ? right.length + left.atEnd : right.atEnd,
            .longest = std::max({left.longest, right.longest, left.atEnd + right.atStart})};
}

void FreeRuns::Set(DWORD stretch, Bits bits)
{
    DWORD node = m_stretches + stretch;
    m_nodes[node] = NodeOf(bits);
    while (node /= 2) m_nodes[node] = Join(m_nodes[2 * node], m_nodes[2 * node + 1]);
}

DWORD FreeRuns::First(DWORD count) const
{
    if (m_nodes[1].longest < count) return 0xFFFFFFFF;
    DWORD node = 1, begin = 0;
    while (node < m_stretches) {
        const Node &left = m_nodes[2 * node], &right = m_nodes[2 * node + 1];
        node *= 2;
        if (left.longest >= count) continue;
        begin += left.length;
        if (left.atEnd + right.atStart >= count) return begin - left.atEnd;
        ++node;
    }
    return begin;
}

} // namespace corekit::detail
