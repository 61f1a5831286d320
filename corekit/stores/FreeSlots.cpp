#include "corekit/stores/FreeSlots.h"

#include <algorithm>
#include <bit>

namespace corekit::detail {
namespace {
constexpr std::uint64_t bitOf(std::size_t number) { return std::uint64_t{1} << (number % 64); }
} // namespace

void FreeSlots::Add(std::size_t number)
{
    for (auto& words : m_words) {
        if (words.size() <= number / 64) words.resize(std::max(number / 64 + 1, words.size() * 2));
        const bool known = words[number / 64] != 0;
        words[number / 64] |= bitOf(number);
        if (known) return;
        number /= 64;
    }
}

void FreeSlots::Remove(std::size_t number)
{
    for (auto& words : m_words) {
        if (words.size() <= number / 64) return;
        words[number / 64] &= ~bitOf(number);
        if (words[number / 64] != 0) return;
        number /= 64;
    }
}

std::ptrdiff_t FreeSlots::Lowest() const
{
    const auto& top = m_words.back();
    const auto held = std::ranges::find_if(top, [](std::uint64_t word) { return word != 0; });
    if (held == top.end()) return -1;
    auto number = static_cast<std::size_t>(held - top.begin());
    for (auto level = m_words.rbegin(); level != m_words.rend(); ++level)
        number = number * 64 + static_cast<std::size_t>(std::countr_zero((*level)[number]));
    return static_cast<std::ptrdiff_t>(number);
}

} // namespace corekit::detail
