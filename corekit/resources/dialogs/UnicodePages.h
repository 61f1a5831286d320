// How text of all scripts is handled, and which keyboards there are.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem unicodeGeneralItems[] = {
    box("Controls (e.g. Presenters)", {7, 7, 238, 36}),
    button(1011, "&Choose Font...", {17, 21, 80, 15}),
    radio(1013, "Standard Language Handling", {7, 54, 238, 11}, group),
    radio(1008, "Enable Bi-directionality (e.g. Arabic, Hebrew)", {7, 68, 238, 11}),
    radio(1010, "Use Windows Complex Language Handling", {7, 82, 238, 11}),
    check(1012, "Underline Select (underlines instead of highligting selected text)", {7, 104, 243, 11}),
    check(1009, "Extra Line Height (use only with double or triple line spacing)", {7, 118, 243, 11}),
};
inline constexpr DialogTemplate unicodeGeneral = {4003, "General", 252, 200, page, unicodeGeneralItems};

inline constexpr DialogItem unicodeLanguagesItems[] = {
    label("Select which keyboard layouts you wish to activate", {7, 7, 238, 10}),
    list(1009, {7, 20, 238, 142}),
    label("Default keyboard layout:", {7, 173, 96, 10}),
    choice(1013, {107, 170, 138, 120}),
};
inline constexpr DialogTemplate unicodeLanguages = {4100, "Keyboards", 252, 200, page, unicodeLanguagesItems};

// clang-format on
} // namespace corekit::detail::dialogs
