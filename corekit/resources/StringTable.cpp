#include "corekit/resources/StringTable.h"

#include <iterator>

namespace {
constexpr ResourceString table[] = {
#define MESSAGE(name, number, text) {number, text},
#include "corekit/resources/messages.inc"
#undef MESSAGE
};

consteval bool ascending()
{
    for (std::size_t i = 1; i < std::size(table); ++i)
        if (table[i - 1].id >= table[i].id) return false;
    return true;
}
static_assert(ascending());
} // namespace

std::span<const ResourceString> corekit::detail::stringTable() { return table; }
