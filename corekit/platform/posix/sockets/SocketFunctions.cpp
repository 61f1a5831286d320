// The socket functions by name, for those who bind them at run time.
#include "corekit/platform/posix/sockets/SocketFunctions.h"

#include "corekit/platform/Sockets.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace {
struct Row {
    std::string_view name;
    FARPROC function;
};

const Row functions[] = {
#define SOCKET_CALL(access, scope, name) {#name, std::bit_cast<FARPROC>(&scope::name)},
#include "corekit/platform/SocketCalls.inc"
#undef SOCKET_CALL
};
} // namespace

FARPROC corekit::detail::socketFunction(std::string_view name)
{
    const auto* row = std::ranges::find(functions, name, &Row::name);
    return row != std::end(functions) ? row->function : nullptr;
}
