// Items in the order of their arrival, found by name.
//
// A copy costs nothing: both share what they hold until one of them is changed, and a change copies no more
// than its way to the item. Of equal names the last is found.
#pragma once

#include "corekit/stores/ItemTree.h"

#include <cstdint>
#include <utility>

namespace corekit::detail {

class NamedList {
public:
    int Count() const { return m_byArrival.Root() ? static_cast<int>(m_byArrival.Root()->size) : 0; }
    // Null where there is none.
    NamedItem* At(int index) const;
    NamedItem* Find(const char* name) const;
    NamedItem* Find(const NameKey& name) const;
    // Calls use with each item in turn.
    template <class Use>
    void ForEach(Use use) const
    {
        if (m_byArrival.Root()) Walk(*m_byArrival.Root(), use);
    }

    // The changes leave the list as it was when there is no memory.

    // For an empty list that will have so many items.
    void Reserve(std::uint32_t count) { m_byArrival.Reserve(count); }
    void Append(NamedItem::Ref item, std::uint32_t hash)
    {
        TreeBunch* bunch = m_byHash.Root() ? nullptr : m_byArrival.OnlyBunchWithRoom();
        if (!bunch) return AppendToTree(std::move(item), hash);
        bunch->Push(item.release(), hash);
    }
    void Replace(NamedItem& item, std::uint32_t hash, NamedItem::Ref by);
    void Remove(NamedItem& item);
    // The item, made this list's own, so that its bytes may change.
    NamedItem& Own(NamedItem& item, std::uint32_t hash);

private:
    template <class Use>
    static void Walk(const TreeNode& node, Use& use)
    {
        if (node.level > 0) {
            for (const TreeNode* below : static_cast<const TreeBranch&>(node).below)
                if (below) Walk(*below, use);
        } else {
            NamedItem* const* items = static_cast<const TreeBunch&>(node).Items();
            for (std::uint32_t i = 0; i < node.size; ++i) use(*items[i]);
        }
    }
    // What names are looked up in.
    const TreeNode* Root() const { return m_byHash.Root() ? m_byHash.Root() : m_byArrival.Root(); }
    static NamedItem* FindIn(const TreeNode* root, const NameKey& name);
    void AppendToTree(NamedItem::Ref item, std::uint32_t hash);
    void IndexByHash();
    std::uint64_t ArrivalOf(const NamedItem& item, std::uint32_t hash);

    ItemTree<TreeOrder::arrival> m_byArrival;
    ItemTree<TreeOrder::hash> m_byHash; // none while one bunch has them all, and needs no numbers
    std::uint64_t m_arrivals = 0;
};

} // namespace corekit::detail
