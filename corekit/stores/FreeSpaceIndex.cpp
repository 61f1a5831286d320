#include "corekit/stores/FreeSpaceIndex.h"

#include <algorithm>

namespace corekit::detail {
namespace {
std::uint64_t keyOf(DWORD upper, DWORD lower) { return static_cast<std::uint64_t>(upper) << 32 | lower; }
std::uint64_t placeKey(VLRExtent entry) { return keyOf(entry.nOffset, entry.nSize); }
std::uint64_t lengthKey(VLRExtent entry) { return keyOf(entry.nSize, entry.nOffset); }
VLRExtent fromPlaceKey(std::uint64_t key) { return {static_cast<DWORD>(key >> 32), static_cast<DWORD>(key)}; }
constexpr std::size_t fewKeys = 8;  // not worth asking whether their entries are still there
constexpr std::size_t slack = 1024; // keys of entries that are gone, before they are cleared away
DWORD endOf(VLRExtent entry) { return entry.nOffset + entry.nSize; }
} // namespace

FreeSpaceIndex::FreeSpaceIndex(std::span<const VLRExtent> entries)
{
    std::vector<std::uint64_t> keys(entries.size());
    std::ranges::transform(entries, keys.begin(), placeKey);
    if (!std::ranges::is_sorted(keys)) std::ranges::sort(keys); // several at one offset, in a damaged map
    m_byPlace.Assign(keys);
    SortLengths();
    ForgetChanges();
}

std::vector<VLRExtent> FreeSpaceIndex::Entries(std::size_t first, std::size_t end) const
{
    std::vector<VLRExtent> entries;
    entries.reserve(end - first);
    for (auto place = m_byPlace.AtRank(first); entries.size() < end - first; place = m_byPlace.Next(place))
        entries.push_back(fromPlaceKey(m_byPlace.At(place)));
    return entries;
}

FreeSpaceIndex::Ranks FreeSpaceIndex::Changed() const
{
    if (m_lowestChange > m_highestChange) return {0, 0};
    return {m_byPlace.RankOf(m_byPlace.LowerBound(keyOf(m_lowestChange, 0))),
            m_byPlace.RankOf(m_byPlace.LowerBound(keyOf(m_highestChange, 0xFFFFFFFF)))};
}

void FreeSpaceIndex::ForgetChanges()
{
    m_lowestChange = 0xFFFFFFFF;
    m_highestChange = 0;
}

void FreeSpaceIndex::NoteChange(DWORD offset)
{
    m_lowestChange = std::min(m_lowestChange, offset);
    m_highestChange = std::max(m_highestChange, offset);
}

std::optional<VLRExtent> FreeSpaceIndex::Find(DWORD length)
{
    SettleLengths();
    for (;;) {
        const auto exact = m_byLength.LowerBound(keyOf(length, 0));
        if (m_byLength.IsEnd(exact)) break;
        const std::uint64_t key = m_byLength.At(exact);
        if (static_cast<DWORD>(key >> 32) != length) break;
        const VLRExtent entry{static_cast<DWORD>(key), length};
        if (Holds(entry)) return entry;
        m_byLength.Erase(exact);
    }
    const auto lowest = m_byPlace.FirstWithLow(length);
    if (m_byPlace.IsEnd(lowest)) return std::nullopt;
    return fromPlaceKey(m_byPlace.At(lowest));
}

void FreeSpaceIndex::TakeFront(VLRExtent entry, DWORD length)
{
    const auto place = m_byPlace.LowerBound(placeKey(entry));
    NoteChange(entry.nOffset);
    if (entry.nSize <= length) return m_byPlace.Erase(place);
    const VLRExtent rest{entry.nOffset + length, entry.nSize - length};
    m_byPlace.Replace(place, placeKey(rest));
    NoteChange(rest.nOffset);
    NoteLength(rest);
}

void FreeSpaceIndex::TakeOut(VLRExtent stretch)
{
    const auto after = m_byPlace.LowerBound(keyOf(stretch.nOffset, 0xFFFFFFFF));
    if (m_byPlace.IsBegin(after)) return;
    const VLRExtent around = fromPlaceKey(m_byPlace.At(m_byPlace.Previous(after)));
    if (endOf(around) < endOf(stretch)) return;
    NoteChange(around.nOffset);
    m_byPlace.Erase(m_byPlace.LowerBound(placeKey(around)));
    const VLRExtent before{around.nOffset, stretch.nOffset - around.nOffset};
    const VLRExtent behind{endOf(stretch), endOf(around) - endOf(stretch)};
    if (before.nSize) Add(before);
    if (behind.nSize) Add(behind);
}

void FreeSpaceIndex::Add(VLRExtent entry)
{
    const auto after = m_byPlace.LowerBound(placeKey(entry));
    const bool hasBefore = !m_byPlace.IsBegin(after), hasBehind = !m_byPlace.IsEnd(after);
    const auto previous = hasBefore ? m_byPlace.Previous(after) : after;
    const VLRExtent before = hasBefore ? fromPlaceKey(m_byPlace.At(previous)) : VLRExtent{};
    const VLRExtent behind = hasBehind ? fromPlaceKey(m_byPlace.At(after)) : VLRExtent{};
    const bool joinsBefore = hasBefore && endOf(before) == entry.nOffset;
    const bool joinsBehind = hasBehind && endOf(entry) == behind.nOffset;

    VLRExtent joined = entry;
    if (joinsBefore) joined = {before.nOffset, before.nSize + joined.nSize};
    if (joinsBehind) joined.nSize += behind.nSize;
    NoteChange(joined.nOffset);
    if (joinsBehind) NoteChange(behind.nOffset);
    if (joinsBefore && joinsBehind) {
        m_byPlace.Erase(after);
        m_byPlace.Replace(m_byPlace.LowerBound(placeKey(before)), placeKey(joined));
    } else if (joinsBefore) {
        m_byPlace.Replace(previous, placeKey(joined));
    } else if (joinsBehind) {
        m_byPlace.Replace(after, placeKey(joined));
    } else {
        m_byPlace.Insert(placeKey(joined));
    }
    NoteLength(joined);
}

bool FreeSpaceIndex::Holds(VLRExtent entry) const
{
    const auto place = m_byPlace.LowerBound(placeKey(entry));
    return !m_byPlace.IsEnd(place) && m_byPlace.At(place) == placeKey(entry);
}

void FreeSpaceIndex::NoteLength(VLRExtent entry)
{
    m_newLengths.push_back(lengthKey(entry));
    if (m_newLengths.size() > 2 * m_byPlace.Count() + slack) SettleLengths();
}

void FreeSpaceIndex::SettleLengths()
{
    if (m_byLength.Count() + m_newLengths.size() > 4 * m_byPlace.Count() + slack) return SortLengths();
    const bool many = m_newLengths.size() > fewKeys;
    for (const std::uint64_t key : m_newLengths)
        if (!many || Holds({static_cast<DWORD>(key), static_cast<DWORD>(key >> 32)})) m_byLength.Insert(key);
    m_newLengths.clear();
}

// Lengths of what is there, and of nothing else.
void FreeSpaceIndex::SortLengths()
{
    std::vector<std::uint64_t> keys;
    keys.reserve(Count());
    for (const VLRExtent& entry : Entries()) keys.push_back(lengthKey(entry));
    std::ranges::sort(keys);
    m_byLength.Assign(keys);
    m_newLengths.clear();
}

} // namespace corekit::detail
