#include "corekit/stores/NameKey.h"

#include <cstring>
#include <random>

namespace corekit::detail {

namespace {

// Calls use with where the blocks start that make up a longer name; the last two may overlap.
template <class Use>
void forEachBlock(std::size_t size, Use use)
{
    for (std::size_t at = 0; at + sizeof(Bytes16) < size; at += sizeof(Bytes16)) use(at);
    use(size - sizeof(Bytes16));
}

} // namespace

NameKey::Seed NameKey::RandomSeed()
{
    std::random_device random;
    const auto word = [&] { return std::uint64_t{random()} << 32 | random(); };
    return {word(), word() | 1};
}

// Before anything in the library can look for a name.
[[gnu::init_priority(101)]] const NameKey::Seed NameKey::seed = NameKey::RandomSeed();

NameKey::NameKey(const char* name) : m_name(name ? name : "")
{
    const std::size_t size = std::strlen(m_name);
    if (size > readable) {
        SetLong(size);
        return;
    }
    char block[readable] = {};
    if (size > 0) std::memcpy(block, m_name, size);
    SetShort(loadBytes(block), size);
}

void NameKey::SetLong(std::size_t size)
{
    m_size = size;
    m_mixed = seed.start ^ size;
    forEachBlock(size, [&](std::size_t at) { Mix(foldedBytes(loadBytes(m_name + at))); });
}

bool NameKey::AreLongNamesSame(const char* a, const char* b, std::size_t size)
{
    std::uint32_t same = 0xFFFF;
    forEachBlock(size, [&](std::size_t at) {
        same &= equalBytes(foldedBytes(loadBytes(a + at)), foldedBytes(loadBytes(b + at)));
    });
    return same == 0xFFFF;
}

} // namespace corekit::detail
