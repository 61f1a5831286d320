#include "corekit/stores/ItemTree.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <new>

namespace corekit::detail {

namespace {

constexpr unsigned hashLevels = 32 / TreeBranch::bits;

// In a large tree each lies somewhere else: this waits for all at once and not for one after another.
template <class Thing>
void prefetch(Thing* const* things, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) __builtin_prefetch(things[i], 1);
}

TreeBranch* makeBranch(unsigned level)
{
    auto* branch = new TreeBranch{};
    branch->level = level;
    return branch;
}

} // namespace

// From the last 64 to the first.
NamedItem* TreeBunch::FindLastAmongMany(NameKey name) const
{
    std::uint32_t from = (size - 1) / 64 * 64;
    NamedItem* found = FindLastIn64(from, size - from, name);
    for (; !found && from > 0; from -= 64) found = FindLastIn64(from - 64, 64, name);
    return found;
}

std::uint32_t TreeBunch::IndexOf(const NamedItem* item) const
{
    std::uint32_t i = size - 1;
    while (i > 0 && Items()[i] != item) --i;
    return i;
}

// --- nodes

template <TreeOrder order>
std::size_t ItemTree<order>::SizeOf(std::uint32_t room)
{
    constexpr std::size_t each =
        order == TreeOrder::arrival ? sizeof(NamedItem*) : sizeof(NamedItem*) + sizeof(std::uint64_t);
    return sizeof(TreeBunch) + TreeBunch::TagRoom(room) + room * each;
}

template <TreeOrder order>
TreeBunch* ItemTree<order>::MakeBunch(std::uint32_t room)
{
    auto* bunch = ::new (::operator new(SizeOf(room))) TreeBunch;
    bunch->level = bunch->size = 0;
    bunch->room = room;
    std::memset(bunch->Tags(), 0, TreeBunch::TagRoom(room));
    return bunch;
}

template <TreeOrder order>
void ItemTree<order>::FreeNode(TreeNode* node)
{
    ::operator delete(node,
                      node->level > 0 ? sizeof(TreeBranch) : SizeOf(static_cast<TreeBunch*>(node)->room));
}

template <TreeOrder order>
TreeBranch& ItemTree<order>::OwnBranch(TreeNode*& link)
{
    auto* branch = static_cast<TreeBranch*>(link);
    if (!branch->shares.IsShared()) return *branch;
    auto* own = makeBranch(branch->level);
    own->size = branch->size;
    std::copy(std::begin(branch->below), std::end(branch->below), own->below);
    prefetch(own->below, TreeBranch::ways);
    for (TreeNode* below : own->below)
        if (below) below->shares.Share();
    link = own;
    Release(branch);
    return *own;
}

// With room for so many items.
template <TreeOrder order>
TreeBunch& ItemTree<order>::OwnBunch(TreeNode*& link, std::uint32_t room)
{
    auto* bunch = static_cast<TreeBunch*>(link);
    const bool isShared = bunch->shares.IsShared();
    if (!isShared && bunch->room >= room) return *bunch;
    auto* own = MakeBunch(room <= bunch->room ? bunch->room : std::bit_ceil(room));
    own->size = bunch->size;
    std::copy_n(bunch->Tags(), bunch->size, own->Tags());
    std::copy_n(bunch->Items(), bunch->size, own->Items());
    if constexpr (order == TreeOrder::hash) std::copy_n(bunch->Arrivals(), bunch->size, own->Arrivals());
    link = own;
    if (!isShared) {
        FreeNode(bunch);
        return *own;
    }
    if constexpr (order == TreeOrder::arrival) {
        prefetch(own->Items(), own->size);
        for (std::uint32_t i = 0; i < own->size; ++i) own->Items()[i]->Share();
    }
    Release(bunch);
    return *own;
}

template <TreeOrder order>
void ItemTree<order>::Release(TreeNode* node)
{
    if (!node || !node->shares.Unshare()) return;
    if (node->level > 0) {
        for (TreeNode* below : static_cast<TreeBranch*>(node)->below) Release(below);
    } else if constexpr (order == TreeOrder::arrival) {
        auto* bunch = static_cast<TreeBunch*>(node);
        std::for_each_n(bunch->Items(), bunch->size, [](NamedItem* item) { item->Release(); });
    }
    FreeNode(node);
}

// --- adding

template <TreeOrder order>
void ItemTree<order>::Reserve(std::uint32_t count)
{
    if (!m_root && count > 0) m_root = MakeBunch(std::min(count, bunchSize));
}

template <TreeOrder order>
void ItemTree<order>::Add(NamedItem* item, std::uint32_t hash, std::uint64_t arrival)
{
    const Newcomer newcomer{item, hash, arrival};
    if constexpr (order == TreeOrder::hash) return Add(m_root, hashLevels, newcomer);
    if (!m_root) m_root = MakeBunch(2);
    while (arrival >> m_root->level * TreeBranch::bits >> TreeBranch::bits != 0) {
        TreeBranch* higher = makeBranch(m_root->level + 1);
        higher->size = m_root->size;
        higher->below[0] = m_root;
        m_root = higher;
    }
    Add(m_root, m_root->level, newcomer);
}

template <TreeOrder order>
void ItemTree<order>::Add(TreeNode*& link, unsigned level, const Newcomer& newcomer)
{
    if (!link) {
        if (order == TreeOrder::hash)
            link = MakeBunch(8);
        else
            link = level > 0 ? static_cast<TreeNode*>(makeBranch(level)) : MakeBunch(bunchSize);
    }
    if (order == TreeOrder::hash && level > 0 && link->level == 0 && link->size == bunchSize)
        Part(link, level);
    if (link->level == 0) {
        TreeBunch& bunch = OwnBunch(link, link->size + 1);
        if constexpr (order == TreeOrder::hash) bunch.Arrivals()[bunch.size] = newcomer.arrival;
        return bunch.Push(newcomer.item, newcomer.hash);
    }
    TreeBranch& branch = OwnBranch(link);
    Add(branch.below[way<order>(newcomer.Path(), level)], level - 1, newcomer);
    ++branch.size;
}

// Makes a branch of a bunch that is full.
template <TreeOrder order>
void ItemTree<order>::Part(TreeNode*& link, unsigned level)
{
    auto* bunch = static_cast<TreeBunch*>(link);
    TreeNode* parts = makeBranch(level);
    try {
        for (std::uint32_t i = 0; i < bunch->size; ++i) {
            NamedItem* item = bunch->Items()[i];
            Add(parts, level, {item, item->Hash(), bunch->Arrivals()[i]});
        }
    } catch (...) {
        Release(parts);
        throw;
    }
    Release(std::exchange(link, parts));
}

// --- changing

template <TreeOrder order>
const TreeBunch& ItemTree<order>::Approach(std::uint64_t path) const
{
    const bool isShared = m_root->shares.IsShared();
    const TreeNode* node = m_root;
    while (node->level > 0) {
        const auto& branch = static_cast<const TreeBranch&>(*node);
        node = branch.below[way<order>(path, branch.level)];
        if (isShared) prefetch(branch.below, TreeBranch::ways);
    }
    const auto& bunch = static_cast<const TreeBunch&>(*node);
    if (order == TreeOrder::arrival && isShared) prefetch(bunch.Items(), bunch.size);
    return bunch;
}

template <TreeOrder order>
TreeBunch& ItemTree<order>::Own(std::uint64_t path)
{
    TreeNode** link = &m_root;
    while ((*link)->level > 0) {
        TreeBranch& branch = OwnBranch(*link);
        link = &branch.below[way<order>(path, branch.level)];
    }
    return OwnBunch(*link, (*link)->size);
}

template <TreeOrder order>
void ItemTree<order>::Remove(std::uint64_t path, const NamedItem* item)
{
    Remove(m_root, path, item);
}

template <TreeOrder order>
void ItemTree<order>::RemoveFrom(TreeBunch& bunch, std::uint32_t index)
{
    const auto close = [&](auto* elements) {
        std::copy(elements + index + 1, elements + bunch.size, elements + index);
    };
    close(bunch.Tags());
    close(bunch.Items());
    if constexpr (order == TreeOrder::hash) close(bunch.Arrivals());
    --bunch.size;
}

template <TreeOrder order>
void ItemTree<order>::Remove(TreeNode*& link, std::uint64_t path, const NamedItem* item)
{
    if (link->level == 0) {
        auto& bunch = static_cast<TreeBunch&>(*link);
        RemoveFrom(bunch, bunch.IndexOf(item));
    } else {
        auto& branch = static_cast<TreeBranch&>(*link);
        Remove(branch.below[way<order>(path, branch.level)], path, item);
        --branch.size;
    }
    if (link->size == 0) FreeNode(std::exchange(link, nullptr));
}

template class ItemTree<TreeOrder::arrival>;
template class ItemTree<TreeOrder::hash>;

} // namespace corekit::detail
