// A service starts or stops: a turning icon and a line.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr int serviceStatusIcon = 1057, serviceStatusLine = 1002;

inline constexpr DialogItem serviceStatusItems[] = {
    icon(serviceStatusIcon, {10, 10, 21, 20}),
    label("", {40, 12, 170, 22}, serviceStatusLine),
};
inline constexpr DialogTemplate serviceStatus = {4105, "", 220, 44, standing, serviceStatusItems};

// clang-format on
} // namespace corekit::detail::dialogs
