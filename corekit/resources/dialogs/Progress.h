// How far a long operation is: one bar or two, with and without a way to stop it, or a line alone.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem progressItems[] = {
    label("", {7, 7, 226, 20}, 1005),
    bar(1003, {7, 30, 196, 12}),
    label("", {207, 31, 26, 10}, 1004, SS_RIGHT),
};
inline constexpr DialogTemplate progress = {4091, "", 240, 50, standing, progressItems};

inline constexpr DialogItem progressWithCancelItems[] = {
    label("", {7, 7, 226, 20}, 1005),
    bar(1003, {7, 30, 196, 12}),
    label("", {207, 31, 26, 10}, 1004, SS_RIGHT),
    defaultButton(2, "Cancel", {95, 50, 50, 14}),
};
inline constexpr DialogTemplate progressWithCancel = {4089, "", 240, 71, standing, progressWithCancelItems};

inline constexpr DialogItem progressTwinItems[] = {
    label("", {7, 7, 226, 20}, 1000),
    bar(1001, {7, 30, 226, 12}),
    label("", {7, 48, 226, 20}, 1006),
    bar(1008, {7, 71, 226, 12}),
};
inline constexpr DialogTemplate progressTwin = {4099, "", 240, 91, standing, progressTwinItems};

inline constexpr DialogItem progressTwinCancelItems[] = {
    label("", {7, 7, 226, 20}, 1000),
    bar(1001, {7, 30, 226, 12}),
    label("", {7, 48, 226, 20}, 1006),
    bar(1008, {7, 71, 226, 12}),
    defaultButton(2, "Cancel", {95, 91, 50, 14}),
};
inline constexpr DialogTemplate progressTwinCancel = {4104, "", 240, 112, standing, progressTwinCancelItems};

inline constexpr DialogItem statusItems[] = {
    label("", {10, 12, 200, 22}, 1002),
};
inline constexpr DialogTemplate status = {4005, "", 220, 44, standing, statusItems};

// clang-format on
} // namespace corekit::detail::dialogs
