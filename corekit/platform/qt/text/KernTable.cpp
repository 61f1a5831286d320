#include "corekit/platform/qt/text/KernTable.h"

#include <algorithm>

namespace corekit::detail {
namespace {

constexpr std::size_t head = 4, subtableHead = 14, pairSize = 6;
constexpr unsigned kindMask = 0xFF07, horizontalPairs = 0x0001; // format, and what the values mean

std::uint16_t u16(std::span<const BYTE> bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
}

} // namespace

KernTable::KernTable(std::span<const BYTE> bytes)
{
    if (bytes.size() < head || u16(bytes, 0) != 0) return;
    std::span<const BYTE> rest = bytes.subspan(head);
    for (unsigned left = u16(bytes, 2); left > 0 && rest.size() >= subtableHead; --left) {
        const std::size_t length = std::clamp<std::size_t>(u16(rest, 2), subtableHead, rest.size());
        const std::size_t count = std::min<std::size_t>(u16(rest, 6), (length - subtableHead) / pairSize);
        if ((u16(rest, 4) & kindMask) == horizontalPairs)
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t at = subtableHead + i * pairSize;
                const std::uint32_t pair =
                    static_cast<std::uint32_t>(u16(rest, at)) << 16 | u16(rest, at + 2);
                m_pairs.emplace(pair, static_cast<std::int16_t>(u16(rest, at + 4)));
            }
        rest = rest.subspan(length);
    }
}

} // namespace corekit::detail
