#include "corekit/stores/NameIndex.h"

#include <cstring>
#include <random>

namespace corekit::detail {

namespace {

std::uint64_t Load8(const char* p)
{
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

// Lower case for the eight characters in a word.
std::uint64_t Folded(std::uint64_t word)
{
    constexpr std::uint64_t each = 0x0101010101010101;
    const std::uint64_t low = word & each * 0x7F;
    const std::uint64_t fromA = low + each * (0x80 - 'A'), behindZ = low + each * (0x7F - 'Z');
    const std::uint64_t upper = (fromA ^ behindZ) & ~word & each * 0x80;
    return word | upper >> 2;
}

// Equal for words that differ in the case of letters only, and for few others: enough for a hash.
std::uint64_t RoughlyFolded(std::uint64_t word) { return word | 0x2020202020202020; }

// Calls use with where the words of eight characters start that make up a longer name; the last two may
// overlap.
template <class Use>
void ForEachWord(std::size_t size, Use use)
{
    for (std::size_t at = 0; at + 8 < size; at += 8) use(at);
    use(size - 8);
}

// Both halves of the product of two words.
std::uint64_t Mix(std::uint64_t a, std::uint64_t b)
{
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

struct Seed {
    std::uint64_t start, factor;
};

const Seed& ProcessSeed()
{
    static const Seed seed = [] {
        std::random_device random;
        const auto word = [&] { return std::uint64_t{random()} << 32 | random(); };
        return Seed{word(), word() | 1};
    }();
    return seed;
}

} // namespace

bool SameShortName(ShortName a, ShortName b)
{
    return Folded(a.first) == Folded(b.first) && Folded(a.last) == Folded(b.last);
}

bool SameLongName(std::string_view a, std::string_view b)
{
    std::uint64_t difference = 0;
    ForEachWord(a.size(), [&](std::size_t at) {
        difference |= Folded(Load8(a.data() + at)) ^ Folded(Load8(b.data() + at));
    });
    return difference == 0;
}

std::uint32_t HashOfShortName(ShortName name, std::size_t size)
{
    const Seed& seed = ProcessSeed();
    const std::uint64_t hash =
        Mix(seed.start ^ size ^ RoughlyFolded(name.first), seed.factor ^ RoughlyFolded(name.last));
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

std::uint32_t HashOfLongName(std::string_view name)
{
    const Seed& seed = ProcessSeed();
    std::uint64_t hash = seed.start ^ name.size();
    ForEachWord(name.size(), [&](std::size_t at) {
        hash = Mix(hash ^ RoughlyFolded(Load8(name.data() + at)), seed.factor);
    });
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

} // namespace corekit::detail
