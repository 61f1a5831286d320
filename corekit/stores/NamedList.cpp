#include "corekit/stores/NamedList.h"

namespace corekit::detail {

NamedItem* NamedList::At(int index) const
{
    if (index < 0 || index >= Count()) return nullptr;
    auto wanted = static_cast<std::uint32_t>(index);
    const TreeNode* node = m_byArrival.Root();
    if (node->size == m_arrivals) { // nothing was ever removed
        while (node->level > 0)
            node = static_cast<const TreeBranch*>(node)->below[way<TreeOrder::arrival>(wanted, node->level)];
        wanted %= TreeBranch::ways;
    }
    while (node->level > 0) {
        TreeNode* const* below = static_cast<const TreeBranch*>(node)->below;
        for (; !*below || wanted >= (*below)->size; ++below)
            if (*below) wanted -= (*below)->size;
        node = *below;
    }
    return static_cast<const TreeBunch*>(node)->Items()[wanted];
}

inline NamedItem* NamedList::FindIn(const TreeNode* root, const NameKey& name)
{
    const TreeNode* node = root;
    for (std::uint32_t ways = name.Hash(); node && node->level > 0; ways >>= TreeBranch::bits)
        node = static_cast<const TreeBranch*>(node)->below[ways % TreeBranch::ways];
    return node ? static_cast<const TreeBunch*>(node)->FindLast(name) : nullptr;
}

NamedItem* NamedList::Find(const NameKey& name) const { return FindIn(Root(), name); }

NamedItem* NamedList::Find(const char* name) const
{
    const char* text = name ? name : "";
    const ShortText shortText(text);
    return shortText.isWhole ? FindIn(Root(), NameKey(text, shortText)) : Find(NameKey(text));
}

void NamedList::IndexByHash()
{
    const auto& bunch = static_cast<const TreeBunch&>(*m_byArrival.Root());
    ItemTree<TreeOrder::hash> byHash;
    for (std::uint32_t i = 0; i < bunch.size; ++i) byHash.Add(bunch.Items()[i], bunch.Items()[i]->Hash(), i);
    m_byHash = std::move(byHash);
    m_arrivals = bunch.size;
}

void NamedList::AppendToTree(NamedItem::Ref item, std::uint32_t hash)
{
    if (!m_byHash.Root() && Count() == ItemTree<TreeOrder::arrival>::bunchSize) IndexByHash();
    m_byArrival.Add(item.get(), hash, m_arrivals);
    NamedItem* added = item.release();
    if (!m_byHash.Root()) return;
    try {
        m_byHash.Add(added, hash, m_arrivals);
    } catch (...) {
        m_byArrival.Remove(m_arrivals, added);
        added->Release();
        throw;
    }
    ++m_arrivals;
}

// Makes the bunch by hash the list's own.
std::uint64_t NamedList::ArrivalOf(const NamedItem& item, std::uint32_t hash)
{
    if (!m_byHash.Root()) return 0;
    const TreeBunch& bunch = m_byHash.Approach(hash);
    const std::uint64_t arrival = bunch.Arrivals()[bunch.IndexOf(&item)];
    m_byArrival.Approach(arrival);
    m_byHash.Own(hash);
    return arrival;
}

void NamedList::Replace(NamedItem& item, std::uint32_t hash, NamedItem::Ref by)
{
    TreeBunch& bunch = m_byArrival.Own(ArrivalOf(item, hash));
    if (m_byHash.Root()) {
        TreeBunch& hashed = m_byHash.Own(hash);
        hashed.Items()[hashed.IndexOf(&item)] = by.get();
    }
    bunch.Items()[bunch.IndexOf(&item)] = by.release();
    item.Release();
}

void NamedList::Remove(NamedItem& item)
{
    const std::uint32_t hash = item.Hash();
    const std::uint64_t arrival = ArrivalOf(item, hash);
    m_byArrival.Own(arrival);
    if (m_byHash.Root()) m_byHash.Remove(hash, &item);
    m_byArrival.Remove(arrival, &item);
    item.Release();
    if (!m_byArrival.Root()) m_arrivals = 0;
}

NamedItem& NamedList::Own(NamedItem& item, std::uint32_t hash)
{
    m_byArrival.Own(ArrivalOf(item, hash));
    if (!item.IsShared()) return item;
    NamedItem::Ref copy = NamedItem::Make(item.Name(), item.Type(), item.Data());
    NamedItem& own = *copy;
    Replace(item, hash, std::move(copy));
    return own;
}

} // namespace corekit::detail
