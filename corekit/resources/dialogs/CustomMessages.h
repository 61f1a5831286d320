// Messages with buttons of the caller's: two to five.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem customMessage2Items[] = {
    icon(1021, {7, 10, 24, 24}),
    label("", {40, 10, 207, 54}, 1016),
    defaultButton(1014, "", {44, 68, 50, 14}),
    button(1015, "", {159, 68, 50, 14}),
};
inline constexpr DialogTemplate customMessage2 = {4016, "", 254, 89, modal, customMessage2Items};

inline constexpr DialogItem customMessage3Items[] = {
    icon(1021, {7, 10, 24, 24}),
    label("", {40, 10, 207, 54}, 1016),
    defaultButton(1014, "", {16, 68, 60, 14}, wraps),
    button(1015, "", {96, 68, 60, 14}, wraps),
    button(1017, "", {176, 68, 60, 14}, wraps),
};
inline constexpr DialogTemplate customMessage3 = {4101, "", 254, 89, modal, customMessage3Items};

inline constexpr DialogItem customMessage3WideItems[] = {
    icon(1021, {7, 10, 24, 24}),
    label("", {40, 10, 225, 44}, 1016),
    defaultButton(1014, "", {20, 57, 57, 25}, wraps),
    button(1015, "", {100, 57, 57, 25}, wraps),
    button(1017, "", {180, 57, 57, 25}, wraps),
};
inline constexpr DialogTemplate customMessage3Wide = {4006, "", 272, 95, modal, customMessage3WideItems};

inline constexpr DialogItem customMessage4Items[] = {
    icon(1021, {7, 10, 24, 24}),
    label("", {40, 10, 183, 56}, 1016),
    defaultButton(1014, "", {46, 70, 50, 14}),
    button(1015, "", {133, 70, 50, 14}),
    button(1017, "", {46, 95, 50, 14}),
    button(1019, "", {133, 95, 50, 14}),
};
inline constexpr DialogTemplate customMessage4 = {4102, "", 230, 116, modal, customMessage4Items};

inline constexpr DialogItem customMessage5Items[] = {
    icon(1021, {7, 10, 24, 24}),
    label("", {40, 10, 183, 56}, 1016),
    defaultButton(1014, "", {46, 70, 50, 14}),
    button(1015, "", {133, 70, 50, 14}),
    button(1017, "", {7, 95, 50, 14}),
    button(1019, "", {90, 95, 50, 14}),
    button(1020, "", {173, 95, 50, 14}),
};
inline constexpr DialogTemplate customMessage5 = {4103, "", 230, 116, modal, customMessage5Items};

// clang-format on
} // namespace corekit::detail::dialogs
