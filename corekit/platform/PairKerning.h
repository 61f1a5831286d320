// Kerning. It is asked for, as widths are sums without it.
#pragma once

#include "corekit/platform/Types.h"

// A further option of ExtTextOutW and GetTextExtentPoint32W: neighbours stand closer together or further
// apart as the face has it. Where each unit is drawn for itself (ETO_IGNORELANGUAGE, fonts of glyph codes),
// its kern table counts.
inline constexpr UINT ETO_PAIRKERNING = 0x40000;
