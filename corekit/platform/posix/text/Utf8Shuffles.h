// Which byte goes where when characters of one to three bytes are parted or joined, for each mixture of them.
#pragma once

#include <array>
#include <cstdint>

namespace corekit::detail {

using Shuffle = std::array<std::uint8_t, 16>;

// By which of eight bytes are trail bytes: of each character the first byte, and the byte behind that.
constexpr auto characterBytes = [] {
    std::array<Shuffle, 256> all{};
    for (unsigned trails = 0; trails < all.size(); ++trails) {
        unsigned n = 0;
        for (std::uint8_t i = 0; i < 8; ++i) {
            if (trails >> i & 1) continue;
            all[trails][n++] = i;
            all[trails][n++] = static_cast<std::uint8_t>(i + 1);
        }
    }
    return all;
}();

// By which of four numbers have one byte, in the low bits, and which have one or two, in the high ones: the
// bytes that they have.
constexpr auto numberBytes = [] {
    std::array<Shuffle, 256> all{};
    for (unsigned lengths = 0; lengths < all.size(); ++lengths) {
        unsigned n = 0;
        for (unsigned i = 0; i < 4; ++i) {
            const unsigned length = lengths >> i & 1 ? 1 : lengths >> (i + 4) & 1 ? 2 : 3;
            for (unsigned k = 0; k < length; ++k) all[lengths][n++] = static_cast<std::uint8_t>(4 * i + k);
        }
    }
    return all;
}();

} // namespace corekit::detail
