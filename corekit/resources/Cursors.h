// The numbers of this library's own cursors, for LoadCursorA.
#pragma once

#include "corekit/platform/Types.h"

inline constexpr UINT IDC_COREKIT_SPLIT = 1042;
inline constexpr UINT IDC_COREKIT_NODROP = 4006;
inline constexpr UINT IDC_COREKIT_TABMOVEBETWEEN = 4007; // while a tab is dragged
inline constexpr UINT IDC_COREKIT_TABMOVE = 4008;
inline constexpr UINT IDC_COREKIT_TABCOPY = 4009;
inline constexpr UINT IDC_COREKIT_TABCOPYBETWEEN = 4010;
inline constexpr UINT IDC_COREKIT_DROPREFUSED = 4011;
inline constexpr UINT IDC_COREKIT_MOVE = 4012;
inline constexpr UINT IDC_COREKIT_MOVEBETWEEN = 4013;
inline constexpr UINT IDC_COREKIT_COPY = 4014;
inline constexpr UINT IDC_COREKIT_COPYBETWEEN = 4015;
