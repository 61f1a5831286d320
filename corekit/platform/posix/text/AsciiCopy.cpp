#include "corekit/platform/posix/text/CodePage.h"
#include "corekit/platform/TextVector.h"

#include <algorithm>

namespace corekit::detail {
namespace {

template <typename From, typename To, typename Block>
std::size_t copyWhileAscii(std::basic_string_view<From> text, Sink<To>& sink, Block copyBlock)
{
    const std::size_t count = std::min(text.size(), sink.room());
    To* const to = sink.place();
    constexpr std::size_t block = unitsAtOnce;
    std::size_t i = 0, run = block;
    for (; i + block <= count && run == block; i += run) run = copyBlock(text.data() + i, to + i);
    for (; run == block && i < count && (text[i] & ~0x7F) == 0; ++i) to[i] = static_cast<To>(text[i]);
    sink.advance(i);
    return i;
}

} // namespace

std::size_t copyAscii(std::string_view text, Sink<WCHAR>& sink)
{
    return copyWhileAscii(text, sink, widenAscii);
}

std::size_t copyAscii(std::u16string_view text, Sink<char>& sink)
{
    return copyWhileAscii(text, sink, narrowAscii);
}

} // namespace corekit::detail
