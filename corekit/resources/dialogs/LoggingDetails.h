// What a log takes, and for how long its files stay.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem loggingDetailsItems[] = {
    box("Logging", {7, 7, 238, 142}),
    check(1013, "Enabled", {17, 21, 218, 11}),
    check(1014, "Debug", {29, 36, 206, 11}),
    check(1015, "Trace", {29, 49, 206, 11}),
    check(1016, "Information", {29, 62, 206, 11}),
    check(1017, "Warning", {29, 75, 206, 11}),
    check(1018, "Minor Error", {29, 88, 206, 11}),
    check(1019, "Major Error", {29, 101, 206, 11}),
    check(1020, "Critical Error", {29, 114, 206, 11}),
    label("Number of Days:", {17, 132, 78, 10}),
    edit(1058, {99, 129, 40, 14}, ES_NUMBER),
};
inline constexpr DialogTemplate loggingDetails = {4098, "Logging", 252, 200, page, loggingDetailsItems};

// clang-format on
} // namespace corekit::detail::dialogs
