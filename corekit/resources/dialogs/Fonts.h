// Choosing one font, several, and one more.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem selectFontItems[] = {
    label("&Font:", {7, 7, 180, 10}),
    list(1006, {7, 19, 190, 128}, LBS_SORT),
    label("&Size:", {203, 7, 68, 10}),
    choice(1003, {203, 19, 52, 110}, CBS_DROPDOWN),
    spin(1004, {256, 19, 12, 15}),
    box("Preview", {7, 150, 266, 54}),
    label("AaBbYyZz 0123", {14, 164, 252, 38}, 1041, SS_CENTER | SS_CENTERIMAGE | SS_NOPREFIX),
    button(1000, "&Multiple...", {7, 210, 60, 14}),
    defaultButton(1, "OK", {158, 210, 54, 14}),
    button(2, "Cancel", {219, 210, 54, 14}),
};
inline constexpr DialogTemplate selectFont = {4097, "Select Font", 280, 230, modal, selectFontItems};

inline constexpr DialogItem selectFontsItems[] = {
    label("&Fonts:", {7, 7, 140, 10}),
    list(1006, {7, 19, 160, 84}),
    label("&Size:", {174, 7, 65, 10}),
    choice(1003, {174, 19, 50, 100}, CBS_DROPDOWN),
    spin(1004, {225, 19, 12, 15}),
    button(1007, "&Add", {174, 48, 65, 14}),
    button(1008, "&Remove", {174, 66, 65, 14}),
    defaultButton(1, "OK", {124, 111, 54, 14}),
    button(2, "Cancel", {185, 111, 54, 14}),
};
inline constexpr DialogTemplate selectFonts = {4095, "Select Fonts", 246, 132, modal, selectFontsItems};

inline constexpr DialogItem addFontItems[] = {
    label("&Available Fonts", {7, 7, 172, 10}),
    list(1006, {7, 19, 172, 84}, LBS_SORT),
    defaultButton(1, "OK", {64, 109, 54, 14}),
    button(2, "Cancel", {125, 109, 54, 14}),
};
inline constexpr DialogTemplate addFont = {4093, "Select Font To Add", 186, 130, modal, addFontItems};

// clang-format on
} // namespace corekit::detail::dialogs
