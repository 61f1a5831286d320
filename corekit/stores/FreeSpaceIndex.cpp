#include "corekit/stores/FreeSpaceIndex.h"

#include <algorithm>

namespace corekit::detail {
namespace {
std::uint64_t Key(DWORD upper, DWORD lower) { return static_cast<std::uint64_t>(upper) << 32 | lower; }
std::uint64_t PlaceKey(VLRExtent entry) { return Key(entry.nOffset, entry.nSize); }
std::uint64_t LengthKey(VLRExtent entry) { return Key(entry.nSize, entry.nOffset); }
VLRExtent FromPlaceKey(std::uint64_t key) { return {static_cast<DWORD>(key >> 32), static_cast<DWORD>(key)}; }
DWORD EndOf(VLRExtent entry) { return entry.nOffset + entry.nSize; }
} // namespace

FreeSpaceIndex::FreeSpaceIndex(std::span<const VLRExtent> entries)
{
    std::vector<std::uint64_t> keys(entries.size());
    std::ranges::transform(entries, keys.begin(), PlaceKey);
    if (!std::ranges::is_sorted(keys)) std::ranges::sort(keys); // several at one offset, in a damaged map
    m_byPlace.Assign(keys);
    std::ranges::transform(entries, keys.begin(), LengthKey);
    std::ranges::sort(keys);
    m_byLength.Assign(keys);
}

std::vector<VLRExtent> FreeSpaceIndex::Entries() const
{
    std::vector<VLRExtent> entries;
    entries.reserve(Count());
    for (auto place = m_byPlace.Begin(); !m_byPlace.IsEnd(place); place = m_byPlace.Next(place))
        entries.push_back(FromPlaceKey(m_byPlace.At(place)));
    return entries;
}

std::optional<VLRExtent> FreeSpaceIndex::Find(DWORD length) const
{
    const auto exact = m_byLength.LowerBound(Key(length, 0));
    if (m_byLength.IsEnd(exact)) return std::nullopt; // and so none is longer
    const std::uint64_t key = m_byLength.At(exact);
    if (static_cast<DWORD>(key >> 32) == length) return VLRExtent{static_cast<DWORD>(key), length};
    return FromPlaceKey(m_byPlace.At(m_byPlace.FirstWithLow(length)));
}

void FreeSpaceIndex::TakeFront(VLRExtent entry, DWORD length)
{
    if (entry.nSize <= length) return Remove(entry);
    const VLRExtent rest{entry.nOffset + length, entry.nSize - length};
    m_byPlace.Replace(m_byPlace.LowerBound(PlaceKey(entry)), PlaceKey(rest));
    m_byLength.Erase(m_byLength.LowerBound(LengthKey(entry)));
    m_byLength.Insert(LengthKey(rest));
}

void FreeSpaceIndex::TakeOut(VLRExtent stretch)
{
    const auto after = m_byPlace.LowerBound(Key(stretch.nOffset, 0xFFFFFFFF));
    if (m_byPlace.IsBegin(after)) return;
    const VLRExtent around = FromPlaceKey(m_byPlace.At(m_byPlace.Previous(after)));
    if (EndOf(around) < EndOf(stretch)) return;
    Remove(around);
    const VLRExtent before{around.nOffset, stretch.nOffset - around.nOffset};
    const VLRExtent behind{EndOf(stretch), EndOf(around) - EndOf(stretch)};
    if (before.nSize) Add(before);
    if (behind.nSize) Add(behind);
}

void FreeSpaceIndex::Add(VLRExtent entry)
{
    const auto after = m_byPlace.LowerBound(PlaceKey(entry));
    const bool hasBefore = !m_byPlace.IsBegin(after), hasBehind = !m_byPlace.IsEnd(after);
    const auto previous = hasBefore ? m_byPlace.Previous(after) : after;
    const VLRExtent before = hasBefore ? FromPlaceKey(m_byPlace.At(previous)) : VLRExtent{};
    const VLRExtent behind = hasBehind ? FromPlaceKey(m_byPlace.At(after)) : VLRExtent{};
    const bool joinsBefore = hasBefore && EndOf(before) == entry.nOffset;
    const bool joinsBehind = hasBehind && EndOf(entry) == behind.nOffset;

    VLRExtent joined = entry;
    if (joinsBefore) joined = {before.nOffset, before.nSize + joined.nSize};
    if (joinsBehind) joined.nSize += behind.nSize;
    if (joinsBefore && joinsBehind) {
        m_byPlace.Erase(after);
        m_byPlace.Replace(m_byPlace.LowerBound(PlaceKey(before)), PlaceKey(joined));
    } else if (joinsBefore) {
        m_byPlace.Replace(previous, PlaceKey(joined));
    } else if (joinsBehind) {
        m_byPlace.Replace(after, PlaceKey(joined));
    } else {
        m_byPlace.Insert(PlaceKey(joined));
    }

    if (joinsBefore) m_byLength.Erase(m_byLength.LowerBound(LengthKey(before)));
    if (joinsBehind) m_byLength.Erase(m_byLength.LowerBound(LengthKey(behind)));
    m_byLength.Insert(LengthKey(joined));
}

void FreeSpaceIndex::Remove(VLRExtent entry)
{
    m_byPlace.Erase(m_byPlace.LowerBound(PlaceKey(entry)));
    m_byLength.Erase(m_byLength.LowerBound(LengthKey(entry)));
}

} // namespace corekit::detail
