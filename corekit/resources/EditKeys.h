// The accelerator keys of the edit control, resource "#4002".
#pragma once

#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/platform/Keyboard.h"

namespace corekit::detail {

inline constexpr WORD editCommandCopy = 13038, editCommandPaste = 13039, editCommandCut = 13046;

// clang-format off
inline constexpr ACCEL editKeyRows[] = {
    {FVIRTKEY | FCONTROL, 'C',       editCommandCopy},
    {FVIRTKEY | FCONTROL, VK_INSERT, editCommandCopy},
    {FVIRTKEY | FCONTROL, 'X',       editCommandCut},
    {FVIRTKEY | FSHIFT,   VK_DELETE, editCommandCut},
    {FVIRTKEY | FCONTROL, 'V',       editCommandPaste},
    {FVIRTKEY | FSHIFT,   VK_INSERT, editCommandPaste},
};
// clang-format on

inline constexpr UINT editKeys = 0xFA2;
inline constexpr auto editKeyTable = AcceleratorResource(editKeyRows);

} // namespace corekit::detail
