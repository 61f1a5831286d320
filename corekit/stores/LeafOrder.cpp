#include "corekit/stores/LeafOrder.h"

#include <algorithm>

namespace corekit::detail {
namespace {

WordEntry copyOf(const WordEntry& entry)
{
    WordEntry copy{};
    entry.Text().copy(copy.word, wordUnits);
    return copy;
}

} // namespace

bool LeafOrder::Make(std::span<const DWORD> leaves, const WordLeaf* blocks)
{
    Forget();
    const WordEntry* before = nullptr;
    for (DWORD leaf = 0; leaf < leaves.size(); ++leaf) {
        const WordLeaf& words = blocks[leaves[leaf]];
        const DWORD used = words.LastUsed() + 1;
        for (DWORD at = 0; at < used; ++at) {
            const WordEntry& entry = words[at];
            const bool isAbove = !before || compareWords(before->word, entry) < 0;
            if (entry.id == 0 || !entry.IsTerminated() || !isAbove) return Forget(), false;
            before = &entry;
        }
        Insert(leaf, words[0]);
        SetUsed(leaves[leaf], used);
    }
    return m_ready = true;
}

template <class Text, class IsInFront>
DWORD LeafOrder::LeavesInFront(const Text& text, IsInFront isInFront) const
{
    const auto isEntryInFront = [&](const WordEntry& entry) { return isInFront(compareWords(text, entry)); };
    const auto isGroupInFront = [&](const auto& group) { return isEntryInFront(group->first[0]); };
    const auto behind = std::ranges::partition_point(m_groups, isGroupInFront);
    if (behind == m_groups.begin()) return 0;
    DWORD count = 0;
    for (auto group = m_groups.begin(); group != behind - 1; ++group) count += (*group)->count;
    const Group& last = **(behind - 1);
    return count + countInFront(std::span(last.first.data(), last.count), isEntryInFront);
}

DWORD LeafOrder::LeafOf(const NormalWord& word) const
{
    const DWORD count = LeavesInFront(word, [](int order) { return order >= 0; });
    return count - (count > 0);
}

DWORD LeafOrder::FirstFrom(const WCHAR* text) const
{
    return LeavesInFront(text, [](int order) { return order > 0; });
}

void LeafOrder::SetUsed(DWORD block, DWORD used)
{
    if (block >= m_used.size()) m_used.resize(std::max(std::size_t{block} + 1, m_used.size() * 2));
    m_used[block] = static_cast<BYTE>(used);
}

void LeafOrder::Add(DWORD leaf, const WordEntry& first, bool isNew)
{
    std::size_t at = 0;
    while (at < m_groups.size() && leaf >= m_groups[at]->count + (isNew && at + 1 == m_groups.size()))
        leaf -= m_groups[at++]->count;
    if (at == m_groups.size()) m_groups.push_back(std::make_unique<Group>());
    Group* group = m_groups[at].get();
    if (isNew && group->count == groupRoom) {
        Split(at);
        if (leaf > group->count) {
            leaf -= group->count;
            group = m_groups[at + 1].get();
        }
    }
    if (isNew) {
        const auto end = group->first.begin() + group->count++;
        std::copy_backward(group->first.begin() + leaf, end, end + 1);
    }
    group->first[leaf] = copyOf(first);
}

// The upper half goes to a group behind. Words that come in order leave the lower one full.
void LeafOrder::Split(std::size_t at)
{
    auto upper = std::make_unique<Group>();
    Group& lower = *m_groups[at];
    const DWORD kept = at + 1 == m_groups.size() ? groupRoom - 1 : groupRoom / 2;
    upper->count = groupRoom - kept;
    std::copy_n(lower.first.begin() + kept, upper->count, upper->first.begin());
    lower.count = kept;
    m_groups.insert(m_groups.begin() + static_cast<std::ptrdiff_t>(at) + 1, std::move(upper));
}

} // namespace corekit::detail
