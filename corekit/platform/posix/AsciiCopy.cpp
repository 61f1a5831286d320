#include "corekit/platform/posix/CodePage.h"
#include "corekit/platform/posix/Vector16.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {
namespace {

constexpr std::size_t kBlock = 8;
using Bytes8 = std::uint8_t __attribute__((vector_size(8)));

} // namespace

std::size_t copyAscii(std::string_view text, Sink<WCHAR>& sink)
{
    const std::size_t count = std::min(text.size(), sink.room());
    WCHAR* const to = sink.place();
    std::size_t i = 0;
    for (; i + kBlock <= count; i += kBlock) {
        std::uint64_t word;
        std::memcpy(&word, text.data() + i, kBlock);
        if ((word & 0x8080808080808080u) != 0) break;
        const Units units = __builtin_convertvector(std::bit_cast<Bytes8>(word), Units);
        std::memcpy(to + i, &units, sizeof units);
    }
    for (; i < count && static_cast<unsigned char>(text[i]) < 0x80; ++i) to[i] = static_cast<WCHAR>(text[i]);
    sink.advance(i);
    return i;
}

std::size_t copyAscii(std::u16string_view text, Sink<char>& sink)
{
    const std::size_t count = std::min(text.size(), sink.room());
    char* const to = sink.place();
    std::size_t i = 0;
    for (; i + kBlock <= count; i += kBlock) {
        const Units units = loadUnits(text.data() + i);
        if (laneBits(equalLanes(units & spreadUnit(0xFF80), Units{})) != 0xFFFF) break;
        const Bytes8 bytes = __builtin_convertvector(units, Bytes8);
        std::memcpy(to + i, &bytes, sizeof bytes);
    }
    for (; i < count && text[i] < 0x80; ++i) to[i] = static_cast<char>(text[i]);
    sink.advance(i);
    return i;
}

} // namespace corekit::detail
