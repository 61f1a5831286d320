// The pages on which a user changes keys and tool bars, and their dialogs.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem customiseKeyboardItems[] = {
    label("&Location:", {7, 9, 60, 10}),
    choice(1039, {70, 7, 90, 100}),
    label("Cate&gory:", {7, 27, 60, 10}),
    choice(1041, {70, 25, 90, 120}),
    label("C&ommands:", {7, 44, 100, 10}),
    list(1040, {7, 55, 153, 80}),
    label("Description:", {7, 140, 100, 10}),
    label("", {7, 151, 153, 26}, 1042),
    label("Ass&igned keys:", {170, 9, 100, 10}),
    list(1043, {170, 20, 90, 46}),
    button(1047, "&Remove", {265, 20, 54, 14}),
    button(1048, "Re&set All", {265, 38, 54, 14}),
    label("Press &new key:", {170, 74, 100, 10}),
    item(HOTKEY_CLASSA, 1044, "", {170, 85, 90, 14}, WS_BORDER | WS_TABSTOP),
    button(1046, "&Assign", {265, 85, 54, 14}),
    button(1049, "Clear &Key", {265, 103, 54, 14}),
    label("Currently assigned to:", {170, 105, 90, 10}),
    label("", {170, 117, 149, 26}, 1045),
};
inline constexpr DialogTemplate customiseKeyboard = {4018, "Keyboard", 326, 184, page, customiseKeyboardItems};

inline constexpr DialogItem customiseToolbarsItems[] = {
    label("&Toolbars:", {7, 7, 100, 10}),
    list(1033, {7, 18, 120, 120}, LBS_OWNERDRAWFIXED | LBS_HASSTRINGS),
    label("&Commands:", {135, 7, 100, 10}),
    list(1049, {135, 18, 124, 120}),
    button(1035, "&New...", {265, 18, 54, 14}),
    button(1036, "&Edit", {265, 36, 54, 14}),
    button(1037, "&Delete", {265, 54, 54, 14}),
    button(1038, "&Reset All", {265, 72, 54, 14}),
    check(1034, "&Large Buttons", {7, 146, 120, 12}),
};
inline constexpr DialogTemplate customiseToolbars = {4019, "Toolbars", 326, 184, page, customiseToolbarsItems};

inline constexpr DialogItem newToolbarItems[] = {
    label("&Name:", {7, 9, 50, 10}),
    edit(1038, {60, 7, 100, 14}),
    label("&Location:", {7, 27, 50, 10}),
    choice(1039, {60, 25, 100, 100}),
    label("Cate&gory:", {7, 45, 50, 10}),
    choice(1041, {60, 43, 100, 120}),
    label("&Commands:", {7, 62, 100, 10}),
    list(1040, {7, 73, 120, 100}),
    check(1045, "Show all commands", {7, 177, 120, 12}),
    button(1047, "&Add", {133, 96, 50, 14}),
    button(1048, "&Remove", {133, 114, 50, 14}),
    label("&Buttons:", {189, 62, 100, 10}),
    list(1046, {189, 73, 120, 100}),
    button(1050, "Move &Up", {189, 177, 56, 14}),
    button(1051, "Move &Down", {253, 177, 56, 14}),
    defaultButton(1, "OK", {259, 7, 50, 14}),
    button(2, "Cancel", {259, 25, 50, 14}),
};
inline constexpr DialogTemplate newToolbar = {4020, "", 316, 198, modal, newToolbarItems};

inline constexpr DialogItem macroToolbarItems[] = {
    name("Buttons"),
    list(1040, {7, 7, 120, 130}),
    button(1000, "&Add", {133, 7, 60, 14}),
    button(1041, "&Remove", {133, 25, 60, 14}),
    button(1001, "&Move Up", {133, 43, 60, 14}),
    button(1043, "M&ove Down", {133, 61, 60, 14}),
    label("&Command:", {203, 7, 100, 10}),
    choice(1003, {203, 18, 116, 120}),
    label("&Description:", {203, 38, 100, 10}),
    edit(1059, {203, 49, 116, 14}),
    box("Bitmap", {203, 70, 116, 67}),
    item(WC_STATICA, 1002, "", {210, 84, 32, 32}, SS_OWNERDRAW),
    label("No Bitmap", {210, 92, 50, 10}, 1005),
    button(1042, "&Select...", {262, 83, 50, 14}),
    button(1044, "&Remove", {262, 101, 50, 14}),
    check(1006, "Show Toolbar", {7, 146, 120, 12}),
};
inline constexpr DialogTemplate macroToolbar = {4106, "Macro Toolbar", 326, 184, page, macroToolbarItems};

inline constexpr DialogItem newButtonItems[] = {
    label("&Name:", {7, 9, 50, 10}),
    edit(1004, {62, 7, 120, 14}),
    label("&Command:", {7, 27, 50, 10}),
    choice(1003, {62, 25, 120, 120}),
    label("&Description:", {7, 45, 50, 10}),
    edit(1059, {62, 43, 120, 14}),
    box("Bitmap", {7, 64, 175, 50}),
    item(WC_STATICA, 1002, "", {14, 76, 32, 32}, SS_OWNERDRAW),
    label("No Bitmap", {14, 86, 50, 10}, 1005),
    button(1042, "&Select...", {74, 83, 50, 14}),
    button(1043, "&Remove", {128, 83, 50, 14}),
    defaultButton(1, "OK", {76, 120, 50, 14}),
    button(2, "Cancel", {132, 120, 50, 14}),
};
inline constexpr DialogTemplate newButton = {4107, "New Button", 190, 141, modal, newButtonItems};

// clang-format on
} // namespace corekit::detail::dialogs
