#include "corekit/stores/SortedKeys.h"

#include <algorithm>

namespace corekit::detail {
namespace {
std::uint32_t lowOf(std::uint64_t key) { return static_cast<std::uint32_t>(key); }

// How many of the ascending keys are below the given one, found without a branch to guess.
std::size_t countBelow(const std::uint64_t* keys, std::size_t count, std::uint64_t key)
{
    const std::uint64_t* from = keys;
    while (count > 1) {
        const std::size_t half = count / 2;
        from += from[half - 1] < key ? half : 0;
        count -= half;
    }
    return static_cast<std::size_t>(from - keys) + (count == 1 && *from < key);
}
} // namespace

void SortedKeys::Assign(std::span<const std::uint64_t> ascending)
{
    *this = {};
    constexpr std::size_t fill = blockRoom * 3 / 4;
    for (std::size_t from = 0; from < ascending.size(); from += fill) {
        const auto part = ascending.subspan(from, std::min(fill, ascending.size() - from));
        auto block = std::make_unique<Block>();
        std::ranges::copy(part, block->keys.begin());
        block->count = part.size();
        m_blocks.push_back(std::move(block));
    }
    m_count = ascending.size();
    m_first.resize(m_blocks.size());
    m_maxLow.resize(m_blocks.size());
    for (std::size_t i = 0; i < m_blocks.size(); ++i) Summarise(i);
    SummariseGroupsFrom(0);
}

SortedKeys::Place SortedKeys::LowerBound(std::uint64_t key) const
{
    // The key, or the gap where it would stand, is in the last block that starts below it.
    const std::size_t starting = countBelow(m_first.data(), m_first.size(), key);
    if (starting == 0) return Begin();
    const std::size_t block = starting - 1;
    const Block& in = *m_blocks[block];
    const std::size_t index = countBelow(in.keys.data(), in.count, key);
    return index < in.count ? Place{block, index} : Place{block + 1, 0};
}

SortedKeys::Place SortedKeys::FirstWithLow(std::uint32_t low) const
{
    const auto enough = [low](std::uint32_t most) { return most >= low; };
    const auto group = std::ranges::find_if(m_groupMax, enough);
    if (group == m_groupMax.end()) return {m_blocks.size(), 0};
    const auto from =
        m_maxLow.begin() + (group - m_groupMax.begin()) * static_cast<std::ptrdiff_t>(groupRoom);
    const auto block =
        static_cast<std::size_t>(std::find_if(from, m_maxLow.end(), enough) - m_maxLow.begin());
    std::size_t index = 0;
    while (lowOf(m_blocks[block]->keys[index]) < low) ++index;
    return {block, index};
}

SortedKeys::Place SortedKeys::Next(Place place) const
{
    return place.index + 1 < m_blocks[place.block]->count ? Place{place.block, place.index + 1}
                                                          : Place{place.block + 1, 0};
}

SortedKeys::Place SortedKeys::Previous(Place place) const
{
    if (place.index > 0) return {place.block, place.index - 1};
    return {place.block - 1, m_blocks[place.block - 1]->count - 1};
}

std::size_t SortedKeys::RankOf(Place place) const
{
    std::size_t rank = place.index;
    for (std::size_t block = 0; block < place.block; ++block) rank += m_blocks[block]->count;
    return rank;
}

SortedKeys::Place SortedKeys::AtRank(std::size_t rank) const
{
    std::size_t block = 0;
    while (block < m_blocks.size() && rank >= m_blocks[block]->count) rank -= m_blocks[block++]->count;
    return {block, rank};
}

void SortedKeys::Insert(std::uint64_t key)
{
    if (m_blocks.empty()) InsertBlock(0);
    Place place = LowerBound(key);
    // A gap between two blocks belongs to the end of the one before.
    if (place.index == 0 && place.block > 0) place = {place.block - 1, m_blocks[place.block - 1]->count};
    if (m_blocks[place.block]->count == blockRoom) {
        Split(place.block);
        if (place.index > blockRoom / 2) place = {place.block + 1, place.index - blockRoom / 2};
    }
    Block& in = *m_blocks[place.block];
    const auto at = in.keys.begin() + static_cast<std::ptrdiff_t>(place.index);
    std::move_backward(at, in.keys.begin() + static_cast<std::ptrdiff_t>(in.count),
                       in.keys.begin() + static_cast<std::ptrdiff_t>(in.count) + 1);
    *at = key;
    ++in.count;
    ++m_count;
    m_first[place.block] = in.keys[0];
    Raise(place.block, lowOf(key));
}

void SortedKeys::Erase(Place place)
{
    Block& in = *m_blocks[place.block];
    const auto at = in.keys.begin() + static_cast<std::ptrdiff_t>(place.index);
    const std::uint32_t low = lowOf(*at);
    std::move(at + 1, in.keys.begin() + static_cast<std::ptrdiff_t>(in.count), at);
    --in.count;
    --m_count;
    if (in.count == 0) return RemoveBlock(place.block);
    m_first[place.block] = in.keys[0];
    if (low == m_maxLow[place.block]) {
        Summarise(place.block);
        SummariseGroup(place.block / groupRoom);
    }
    if (in.count < blockRoom / 4) JoinIfSparse(place.block);
}

void SortedKeys::Replace(Place place, std::uint64_t key)
{
    const Place next = Next(place);
    const bool inOrder = (IsBegin(place) || At(Previous(place)) <= key) && (IsEnd(next) || key <= At(next));
    if (!inOrder) {
        Erase(place);
        return Insert(key);
    }
    std::uint64_t& held = m_blocks[place.block]->keys[place.index];
    const std::uint32_t low = lowOf(held);
    held = key;
    if (place.index == 0) m_first[place.block] = key;
    if (lowOf(key) < low && low == m_maxLow[place.block]) {
        Summarise(place.block);
        SummariseGroup(place.block / groupRoom);
    } else {
        Raise(place.block, lowOf(key));
    }
}

void SortedKeys::InsertBlock(std::size_t at)
{
    const auto place = static_cast<std::ptrdiff_t>(at);
    m_blocks.insert(m_blocks.begin() + place, std::make_unique<Block>());
    m_first.insert(m_first.begin() + place, 0);
    m_maxLow.insert(m_maxLow.begin() + place, 0);
    SummariseGroupsFrom(at);
}

void SortedKeys::RemoveBlock(std::size_t at)
{
    const auto place = static_cast<std::ptrdiff_t>(at);
    m_blocks.erase(m_blocks.begin() + place);
    m_first.erase(m_first.begin() + place);
    m_maxLow.erase(m_maxLow.begin() + place);
    SummariseGroupsFrom(at);
}

void SortedKeys::Split(std::size_t block)
{
    InsertBlock(block + 1);
    Block &lower = *m_blocks[block], &upper = *m_blocks[block + 1];
    std::copy(lower.keys.begin() + blockRoom / 2, lower.keys.end(), upper.keys.begin());
    lower.count = upper.count = blockRoom / 2;
    Summarise(block);
    Summarise(block + 1);
    SummariseGroupsFrom(block);
}

void SortedKeys::JoinIfSparse(std::size_t block)
{
    if (block + 1 == m_blocks.size()) {
        if (block == 0) return;
        --block;
    }
    Block &lower = *m_blocks[block], &upper = *m_blocks[block + 1];
    if (lower.count + upper.count > blockRoom * 3 / 4) return;
    std::copy_n(upper.keys.begin(), upper.count,
                lower.keys.begin() + static_cast<std::ptrdiff_t>(lower.count));
    lower.count += upper.count;
    Summarise(block);
    RemoveBlock(block + 1);
    SummariseGroup(block / groupRoom);
}

void SortedKeys::Summarise(std::size_t block)
{
    const Block& of = *m_blocks[block];
    std::uint32_t most = 0;
    for (std::size_t i = 0; i < of.count; ++i) most = std::max(most, lowOf(of.keys[i]));
    m_first[block] = of.keys[0];
    m_maxLow[block] = most;
}

void SortedKeys::SummariseGroup(std::size_t group)
{
    const std::size_t from = group * groupRoom, to = std::min(from + groupRoom, m_maxLow.size());
    std::uint32_t most = 0;
    for (std::size_t i = from; i < to; ++i) most = std::max(most, m_maxLow[i]);
    m_groupMax[group] = most;
}

void SortedKeys::SummariseGroupsFrom(std::size_t block)
{
    m_groupMax.resize((m_maxLow.size() + groupRoom - 1) / groupRoom);
    for (std::size_t group = block / groupRoom; group < m_groupMax.size(); ++group) SummariseGroup(group);
}

void SortedKeys::Raise(std::size_t block, std::uint32_t low)
{
    m_maxLow[block] = std::max(m_maxLow[block], low);
    m_groupMax[block / groupRoom] = std::max(m_groupMax[block / groupRoom], low);
}

} // namespace corekit::detail
