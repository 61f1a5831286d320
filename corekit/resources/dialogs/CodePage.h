// Which code page text is in.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem codePageItems[] = {
    label("&Available Code Pages", {7, 7, 238, 10}),
    list(1005, {7, 20, 238, 173}, LBS_SORT),
};
inline constexpr DialogTemplate codePage = {4001, "Code Page", 252, 200, page, codePageItems};

// clang-format on
} // namespace corekit::detail::dialogs
