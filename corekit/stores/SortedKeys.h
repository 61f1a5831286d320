// An ordered bag of 64-bit keys in short blocks: inserting and removing move at most one block, and finding
// the first key whose lower half is big enough looks at summaries, not at keys.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace corekit::detail {

class SortedKeys {
public:
    // Where a key stands. Every change of the bag makes all places stale.
    struct Place {
        std::size_t block;
        std::size_t index;
    };

    void Assign(std::span<const std::uint64_t> ascending);
    std::size_t Count() const { return m_count; }

    // The first key that is not below the given one; past the last key it is End().
    Place LowerBound(std::uint64_t key) const;
    // The first key whose lower 32 bits are at least `low`, or End().
    Place FirstWithLow(std::uint32_t low) const;
    Place Begin() const { return {0, 0}; }
    bool IsEnd(Place place) const { return place.block >= m_blocks.size(); }
    bool IsBegin(Place place) const { return place.block == 0 && place.index == 0; }
    std::uint64_t At(Place place) const { return m_blocks[place.block]->keys[place.index]; }
    Place Next(Place place) const;
    Place Previous(Place place) const; // not of Begin()
    // How many keys stand in front, and the other way round; these count blocks.
    std::size_t RankOf(Place place) const;
    Place AtRank(std::size_t rank) const;

    void Insert(std::uint64_t key);
    void Erase(Place place);
    // Puts another key in; a move only where the order asks for it.
    void Replace(Place place, std::uint64_t key);

private:
    static constexpr std::size_t blockRoom = 128;
    static constexpr std::size_t groupRoom = 64; // blocks behind one summary of summaries

    struct Block {
        std::size_t count = 0;
        std::array<std::uint64_t, blockRoom> keys;
    };

    void InsertBlock(std::size_t at);
    void RemoveBlock(std::size_t at);
    void Split(std::size_t block);
    void JoinIfSparse(std::size_t block);
    void Summarise(std::size_t block);
    void SummariseGroup(std::size_t group);
    void SummariseGroupsFrom(std::size_t block);
    void Raise(std::size_t block, std::uint32_t low);

    std::vector<std::unique_ptr<Block>> m_blocks; // none is empty
    std::vector<std::uint64_t> m_first;           // of each block
    std::vector<std::uint32_t> m_maxLow;          // of each block
    std::vector<std::uint32_t> m_groupMax;        // of each groupRoom blocks
    std::size_t m_count = 0;
};

} // namespace corekit::detail
