// The numbers of this library's own cursors, for LoadCursorA.
#pragma once

#include "corekit/platform/Types.h"

inline constexpr UINT IDC_COREKIT_SPLIT = 1042;
inline constexpr UINT IDC_COREKIT_NODROP = 4006;
inline constexpr UINT IDC_COREKIT_DROPREFUSED = 4011;
inline constexpr UINT IDC_COREKIT_MOVE = 4012;
inline constexpr UINT IDC_COREKIT_MOVEBETWEEN = 4013;
inline constexpr UINT IDC_COREKIT_COPY = 4014;
inline constexpr UINT IDC_COREKIT_COPYBETWEEN = 4015;
