// The page that waits for a category to be picked, and the page of small settings.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr DialogItem optionsBlankItems[] = {
    label("Select the category that you want to configure from the list.\n\n"
          "NOTE: The category that you require may be a sub-category. Sub-categories are accessed by clicking on "
          "the plus sign to the left of categories that have sub-categories.", {14, 14, 224, 100}),
};
inline constexpr DialogTemplate optionsBlank = {4017, "Options", 252, 200, page, optionsBlankItems};

inline constexpr DialogItem miscellaneousItems[] = {
    box("Read Rate Calculation", {7, 7, 238, 92}),
    check(1014, "&Use number of seconds per line", {17, 21, 218, 11}),
    label("&Lines:", {29, 40, 100, 10}),
    edit(1015, {135, 37, 40, 14}, ES_NUMBER),
    label("&Seconds:", {29, 58, 100, 10}),
    edit(1016, {135, 55, 40, 14}, ES_NUMBER),
    label("&Characters per line:", {17, 79, 112, 10}),
    edit(1017, {135, 76, 40, 14}, ES_NUMBER),
};
inline constexpr DialogTemplate miscellaneous = {4007, "Miscellaneous", 252, 200, page, miscellaneousItems};

// clang-format on
} // namespace corekit::detail::dialogs
