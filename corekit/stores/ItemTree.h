// Items by a path, sixteen ways at each step: their order of arrival, or the hash of their name.
//
// A tree that is copied shares its nodes with the copy. A change makes new ones along its own path only, and
// none where the tree is the only one that holds them.
#pragma once

#include "corekit/stores/NamedItem.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <utility>

namespace corekit::detail {

struct TreeNode {
    ShareCount shares;
    std::uint32_t level; // 0 for a bunch
    std::uint32_t size;  // items in it and below
};

struct TreeBranch : TreeNode {
    static constexpr unsigned bits = 4, ways = 1 << bits;
    TreeNode* below[ways];
};

inline std::uint8_t tagOf(std::uint32_t hash) { return static_cast<std::uint8_t>(hash >> 24); }

// The end of a path: its items, and in front of them the upper bits of each one's hash.
struct TreeBunch : TreeNode {
    std::uint32_t room;

    static std::size_t TagRoom(std::uint32_t room) { return room <= 16 ? 16 : (room + 63u) / 64 * 64; }
    std::uint8_t* Tags() { return reinterpret_cast<std::uint8_t*>(this + 1); }
    const std::uint8_t* Tags() const { return reinterpret_cast<const std::uint8_t*>(this + 1); }
    NamedItem** Items() { return reinterpret_cast<NamedItem**>(Tags() + TagRoom(room)); }
    NamedItem* const* Items() const { return reinterpret_cast<NamedItem* const*>(Tags() + TagRoom(room)); }
    // When each came to its list; only where the path is the hash.
    std::uint64_t* Arrivals() { return reinterpret_cast<std::uint64_t*>(Items() + room); }
    const std::uint64_t* Arrivals() const { return reinterpret_cast<const std::uint64_t*>(Items() + room); }

    void Push(NamedItem* item, std::uint32_t hash) // into room that is there
    {
        Tags()[size] = tagOf(hash);
        Items()[size++] = item;
    }
    NamedItem* FindLast(const NameKey& name) const
    {
        if (room <= 16) return LastOfName(EqualTags(0, name) & ((1u << size) - 1), 0, name);
        if (size <= 64) return FindLastIn64(0, size, name);
        return FindLastAmongMany(name);
    }
    std::uint32_t IndexOf(const NamedItem* item) const; // which is there

private:
    // Of the sixteen items from one on, those that have the tag of the name.
    std::uint32_t EqualTags(std::uint32_t from, const NameKey& name) const
    {
        return equalBytes(loadBytes(Tags() + from), spreadByte(tagOf(name.Hash())));
    }
    template <class Bits>
    NamedItem* LastOfName(Bits candidates, std::uint32_t from, const NameKey& name) const
    {
        constexpr int highest = std::numeric_limits<Bits>::digits - 1;
        while (candidates != 0) {
            const int i = highest - std::countl_zero(candidates);
            NamedItem* item = Items()[from + static_cast<unsigned>(i)];
            if (item->Has(name)) return item;
            candidates ^= Bits{1} << i;
        }
        return nullptr;
    }
    NamedItem* FindLastIn64(std::uint32_t from, std::uint32_t count, const NameKey& name) const
    {
        const auto equal = [&](unsigned i) { return std::uint64_t{EqualTags(from + i, name)} << i; };
        const std::uint64_t candidates = equal(0) | equal(16) | equal(32) | equal(48);
        return LastOfName(candidates & ~std::uint64_t{0} >> (64 - count), from, name);
    }
    NamedItem* FindLastAmongMany(NameKey name) const;
};

enum class TreeOrder { arrival, hash };

// The way on at a branch of that level: the highest digits of the arrival or the lowest of the hash first.
template <TreeOrder order>
unsigned way(std::uint64_t path, unsigned level)
{
    constexpr unsigned hashLevels = 32 / TreeBranch::bits;
    const unsigned digit = order == TreeOrder::arrival ? level : hashLevels - level;
    return path >> digit * TreeBranch::bits & (TreeBranch::ways - 1);
}

// By arrival it holds a share of each item. By hash it holds none: it stands beside one that does.
template <TreeOrder order>
class ItemTree {
public:
    static constexpr std::uint32_t bunchSize = order == TreeOrder::arrival ? TreeBranch::ways : 64;

    ItemTree() = default;
    ItemTree(const ItemTree& other) : m_root(other.m_root)
    {
        if (m_root) m_root->shares.Share();
    }
    ItemTree(ItemTree&& other) noexcept : m_root(std::exchange(other.m_root, nullptr)) {}
    ItemTree& operator=(ItemTree other) noexcept
    {
        std::swap(m_root, other.m_root);
        return *this;
    }
    ~ItemTree() { Release(m_root); }

    const TreeNode* Root() const { return m_root; }

    // For an empty tree that will have so many items.
    void Reserve(std::uint32_t count);
    // The only bunch, if it has room and no other tree sees it.
    TreeBunch* OnlyBunchWithRoom() const
    {
        if (!m_root || m_root->level > 0 || m_root->shares.IsShared()) return nullptr;
        auto* bunch = static_cast<TreeBunch*>(m_root);
        return bunch->size < bunch->room ? bunch : nullptr;
    }
    // Leaves the tree as it was when there is no memory.
    void Add(NamedItem* item, std::uint32_t hash, std::uint64_t arrival);
    // The bunch at the end of a path. It has an item. If another tree sees the path, all that Own will touch
    // is on its way then.
    const TreeBunch& Approach(std::uint64_t path) const;
    // The same with no other tree that sees it.
    TreeBunch& Own(std::uint64_t path);
    // Takes out an item whose bunch is the tree's own.
    void Remove(std::uint64_t path, const NamedItem* item);

private:
    struct Newcomer {
        NamedItem* item;
        std::uint32_t hash;
        std::uint64_t arrival;
        std::uint64_t Path() const { return order == TreeOrder::arrival ? arrival : hash; }
    };
    static std::size_t SizeOf(std::uint32_t room);
    static TreeBunch* MakeBunch(std::uint32_t room);
    static void FreeNode(TreeNode* node);
    static void Add(TreeNode*& link, unsigned level, const Newcomer& newcomer);
    static void Part(TreeNode*& link, unsigned level);
    static void RemoveFrom(TreeBunch& bunch, std::uint32_t index);
    static void Remove(TreeNode*& link, std::uint64_t path, const NamedItem* item);
    static TreeBranch& OwnBranch(TreeNode*& link);
    static TreeBunch& OwnBunch(TreeNode*& link, std::uint32_t room);
    static void Release(TreeNode* node);

    TreeNode* m_root = nullptr;
};

extern template class ItemTree<TreeOrder::arrival>;
extern template class ItemTree<TreeOrder::hash>;

} // namespace corekit::detail
