// What stands for the socket library, which here is a part of this one.
#pragma once

#include "corekit/platform/Libraries.h"

#include <string_view>

namespace corekit::detail {

inline constexpr std::string_view socketLibrary = "WS2_32.DLL"; // in any case

// Null for a name that it does not have.
FARPROC socketFunction(std::string_view name);

} // namespace corekit::detail
