// Finds narrow names without regard to case, by their hashes.
//
// The names themselves lie with the owner, in a list whose positions these are. Equal names are allowed; the
// last one is found.
#pragma once

#include "corekit/platform/Compare16.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace corekit::detail {

// All characters of a name of at most 16, some of them twice. From 4 on the same steps serve every length, so
// that nothing has to be guessed from it.
struct ShortName {
    static constexpr std::size_t longest = 16;
    std::uint64_t first = 0, last = 0;

    explicit ShortName(std::string_view name)
    {
        const char* p = name.data();
        const std::size_t size = name.size();
        if (size >= 4) {
            const std::size_t step = size / 8 * 4;
            const char* end = p + size - 4;
            first = Load(p) << 32 | Load(p + step);
            last = Load(end) << 32 | Load(end - step);
        } else if (size > 0) {
            const auto byte = [&](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(p[i])}; };
            first = byte(0) | byte(size / 2) << 8 | byte(size - 1) << 16;
        }
    }
    bool operator==(const ShortName&) const = default;

private:
    static std::uint64_t Load(const char* p)
    {
        std::uint32_t word;
        std::memcpy(&word, p, sizeof word);
        return word;
    }
};

bool SameShortName(ShortName a, ShortName b);
bool SameLongName(std::string_view a, std::string_view b); // of one size
std::uint32_t HashOfShortName(ShortName name, std::size_t size);
std::uint32_t HashOfLongName(std::string_view name);

// Equal as _stricmp sees it: only the letters A to Z have case.
inline bool SameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    if (a.size() > ShortName::longest) return SameLongName(a, b);
    const ShortName x(a), y(b);
    return x == y || SameShortName(x, y); // mostly the case is the same too
}

// The same for equal names, other ones in every process, so that no file can be made to fill one place.
inline std::uint32_t HashOfName(std::string_view name)
{
    return name.size() > ShortName::longest ? HashOfLongName(name)
                                            : HashOfShortName(ShortName(name), name.size());
}

class NameIndex {
public:
    // `same` tells for a position whether it has the name looked for.
    template <class Same>
    int Find(std::uint32_t hash, Same same) const
    {
        if (m_slots.empty()) return FindAmongFew(hash, same);
        for (std::size_t slot = hash & Mask(); m_slots[slot].after != 0; slot = (slot + 1) & Mask()) {
            const std::size_t i = m_slots[slot].after - 1;
            if (m_slots[slot].hash == hash && same(i)) return static_cast<int>(i);
        }
        return -1;
    }

    void Reserve(std::size_t count)
    {
        if (count > few) m_hashes.reserve(count);
    }

    // A name came at the end of the list. `same` tells whether two positions have equal names.
    template <class Same>
    void Append(std::uint32_t hash, Same same)
    {
        if (m_count < few) {
            m_few[m_count++] = hash;
            return;
        }
        if (m_slots.empty()) m_hashes.assign(m_few.begin(), m_few.end());
        m_hashes.push_back(hash);
        if (m_hashes.size() * 2 > m_slots.size()) {
            try {
                std::vector<Slot>(std::bit_ceil(m_hashes.size() * 4)).swap(m_slots);
            } catch (...) {
                m_hashes.pop_back();
                throw;
            }
            ++m_count;
            return PlaceAll(same);
        }
        Place(m_count++, same);
    }

    // A position was taken out of the list, and those behind it moved down.
    template <class Same>
    void Remove(std::size_t position, Same same)
    {
        --m_count;
        if (m_slots.empty()) {
            std::copy(m_few.begin() + position + 1, m_few.begin() + m_count + 1, m_few.begin() + position);
            return;
        }
        m_hashes.erase(m_hashes.begin() + static_cast<std::ptrdiff_t>(position));
        if (m_count > few) {
            std::fill(m_slots.begin(), m_slots.end(), Slot{});
            return PlaceAll(same);
        }
        std::copy(m_hashes.begin(), m_hashes.end(), m_few.begin());
        m_hashes.clear();
        m_slots.clear();
    }

private:
    struct Slot {
        std::uint32_t hash;
        std::uint32_t after; // the position + 1, 0 for a free slot
    };
    static constexpr std::size_t few = 16; // up to here a look at each hash is faster than slots

    // Compares all hashes without a branch, which would be guessed wrong for every other name.
    template <class Same>
    int FindAmongFew(std::uint32_t hash, Same same) const
    {
        std::uint32_t candidates = EqualAmong16(m_few.data(), hash) & ((std::uint32_t{1} << m_count) - 1);
        for (; candidates != 0; candidates ^= std::bit_floor(candidates)) {
            const int i = std::bit_width(candidates) - 1;
            if (same(static_cast<std::size_t>(i))) return i;
        }
        return -1;
    }

    std::size_t Mask() const { return m_slots.size() - 1; }

    template <class Same>
    void PlaceAll(Same same)
    {
        for (std::size_t i = 0; i < m_count; ++i) Place(i, same);
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

    std::size_t m_count = 0;
    std::array<std::uint32_t, few> m_few{}; // the hashes by position, while there are no slots
    std::vector<std::uint32_t> m_hashes;    // the same while there are
    std::vector<Slot> m_slots;              // a power of two, at most half of them taken
};

} // namespace corekit::detail
