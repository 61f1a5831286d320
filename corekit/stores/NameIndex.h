// Finds narrow names without regard to case, by their hashes.
//
// The names themselves lie with the owner, in a list whose positions these are. Equal names are allowed; the
// last one is found.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace corekit::detail {

// Equal as _stricmp sees it: the letters A to Z have no case.
bool SameName(std::string_view a, std::string_view b);

// The same for equal names, other ones in every process, so that no file can be made to fill one place.
std::uint32_t HashOfName(std::string_view name);

class NameIndex {
public:
    // `same` tells for a position whether it has the name looked for.
    template <class Same>
    int Find(std::uint32_t hash, Same same) const
    {
        if (m_slots.empty()) {
            std::uint32_t candidates =
                0; // without a branch, which would be guessed wrong at every other name
            for (std::size_t i = 0; i < m_hashes.size(); ++i)
                candidates |= static_cast<std::uint32_t>(m_hashes[i] == hash) << i;
            for (; candidates != 0; candidates ^= std::bit_floor(candidates)) {
                const int i = std::bit_width(candidates) - 1;
                if (same(static_cast<std::size_t>(i))) return i;
            }
            return -1;
        }
        for (std::size_t slot = hash & Mask(); m_slots[slot].after != 0; slot = (slot + 1) & Mask()) {
            const std::size_t i = m_slots[slot].after - 1;
            if (m_slots[slot].hash == hash && same(i)) return static_cast<int>(i);
        }
        return -1;
    }

    void Reserve(std::size_t count) { m_hashes.reserve(count); }

    // A name came at the end of the list. `same` tells whether two positions have equal names.
    template <class Same>
    void Append(std::uint32_t hash, Same same)
    {
        m_hashes.push_back(hash);
        if (m_hashes.size() <= longestScan) return;
        if (m_hashes.size() * 2 <= m_slots.size()) return Place(m_hashes.size() - 1, same);
        try {
            Rebuild(m_hashes.size() * 4, same);
        } catch (...) {
            m_hashes.pop_back();
            throw;
        }
    }

    // A position was taken out of the list, and those behind it moved down.
    template <class Same>
    void Remove(std::size_t position, Same same)
    {
        m_hashes.erase(m_hashes.begin() + static_cast<std::ptrdiff_t>(position));
        if (!m_slots.empty()) Rebuild(m_slots.size(), same);
    }

private:
    struct Slot {
        std::uint32_t hash;
        std::uint32_t after; // the position + 1, 0 for a free slot
    };
    static constexpr std::size_t longestScan = 16; // up to here a scan of the hashes is faster than slots

    std::size_t Mask() const { return m_slots.size() - 1; }

    template <class Same>
    void Rebuild(std::size_t room, Same same)
    {
        std::size_t size = 64;
        while (size < room) size *= 2;
        std::vector<Slot> slots(size);
        m_slots.swap(slots);
        for (std::size_t i = 0; i < m_hashes.size(); ++i) Place(i, same);
    }

    // A later position takes the slot of an equal name.
    template <class Same>
    void Place(std::size_t position, Same same)
    {
        const std::uint32_t hash = m_hashes[position];
        std::size_t slot = hash & Mask();
        for (; m_slots[slot].after != 0; slot = (slot + 1) & Mask())
            if (m_slots[slot].hash == hash && same(m_slots[slot].after - 1, position)) break;
        m_slots[slot] = {hash, static_cast<std::uint32_t>(position + 1)};
    }

    std::vector<std::uint32_t> m_hashes; // of every position
    std::vector<Slot> m_slots;           // a power of two, empty while scans do
};

} // namespace corekit::detail
