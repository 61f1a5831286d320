// The accelerator keys of a window with tabs, resource "#4001".
#pragma once

#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/platform/Keyboard.h"

namespace corekit::detail {

inline constexpr WORD tabCommandNext = 4401, tabCommandPrevious = 4402;

// clang-format off
inline constexpr ACCEL tabKeyRows[] = {
    {FVIRTKEY | FCONTROL,          VK_TAB,   tabCommandNext},
    {FVIRTKEY | FCONTROL | FSHIFT, VK_TAB,   tabCommandPrevious},
    {FVIRTKEY | FCONTROL,          VK_NEXT,  tabCommandNext},
    {FVIRTKEY | FCONTROL,          VK_PRIOR, tabCommandPrevious},
};
// clang-format on

inline constexpr UINT tabKeys = 4001;
inline constexpr auto tabKeyTable = AcceleratorResource(tabKeyRows);

} // namespace corekit::detail
