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

std::uint64_t Load4(const char* p)
{
    std::uint32_t word;
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

// Calls use with the name's characters, eight at a time, in words that may overlap at the end.
template <class Use>
void ForEachWord(std::size_t size, Use use)
{
    for (std::size_t at = 0; at + 8 < size; at += 8)
        if (!use(at)) return;
    use(size - 8);
}

// The characters of a name below eight, some of them twice.
std::uint64_t ShortWord(const char* p, std::size_t size)
{
    if (size >= 4) return Load4(p) | Load4(p + size - 4) << 32;
    if (size == 0) return 0;
    const auto byte = [&](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(p[i])}; };
    return byte(0) | byte(size / 2) << 8 | byte(size - 1) << 16;
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

bool SameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    if (a.size() < 8) return Folded(ShortWord(a.data(), a.size())) == Folded(ShortWord(b.data(), b.size()));
    std::uint64_t difference = 0;
    ForEachWord(a.size(), [&](std::size_t at) {
        difference |= Folded(Load8(a.data() + at)) ^ Folded(Load8(b.data() + at));
        return difference == 0;
    });
    return difference == 0;
}

std::uint32_t HashOfName(std::string_view name)
{
    const Seed& seed = ProcessSeed();
    std::uint64_t hash = seed.start ^ name.size();
    if (name.size() < 8) {
        hash = Mix(hash ^ Folded(ShortWord(name.data(), name.size())), seed.factor);
    } else {
        ForEachWord(name.size(), [&](std::size_t at) {
            hash = Mix(hash ^ Folded(Load8(name.data() + at)), seed.factor);
            return true;
        });
    }
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

} // namespace corekit::detail
