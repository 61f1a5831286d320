// The frame of property sheets and wizards; the sheet places its parts itself.
#pragma once

#include "corekit/platform/Tabs.h"
#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem sheetItems[] = {
    item(WC_TABCONTROLA, 0x3020, "", {4, 4, 200, 100}, WS_TABSTOP | WS_CLIPSIBLINGS | TCS_MULTILINE),
    button(0x3023, "< &Back", {0, 0, 50, 14}),
    button(0x3024, "&Next >", {0, 0, 50, 14}),
    button(0x3025, "&Finish", {0, 0, 50, 14}),
    defaultButton(1, "OK", {0, 0, 50, 14}),
    button(2, "Cancel", {0, 0, 50, 14}),
    button(0x3021, "&Apply", {0, 0, 50, 14}),
    button(9, "Help", {0, 0, 50, 14}),
};
inline constexpr DialogTemplate sheet = {0, "", 252, 218, modal, sheetItems};

// clang-format on
} // namespace corekit::detail::dialogs
