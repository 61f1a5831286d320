// What a module says about itself.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem aboutItems[] = {
    picture(1002, {7, 7, 60, 110}),
    label("", {75, 10, 168, 20}, 1003, SS_LEFT | SS_NOPREFIX),
    label("", {75, 32, 168, 10}, 1004, SS_LEFT | SS_NOPREFIX),
    label("", {75, 46, 168, 20}, 1005, SS_LEFT | SS_NOPREFIX),
    label("", {75, 68, 168, 10}, 1006, SS_LEFT | SS_NOPREFIX),
    label("", {75, 82, 168, 36}, 1007, SS_LEFT | SS_NOPREFIX),
    defaultButton(1, "OK", {100, 124, 50, 14}),
};
inline constexpr DialogTemplate about = {4002, "", 250, 145, modal, aboutItems};

// clang-format on
} // namespace corekit::detail::dialogs
