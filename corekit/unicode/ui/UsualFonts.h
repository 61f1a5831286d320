// The faces that show the seven scripts on this machine when nobody has chosen any.
#pragma once

#include "corekit/unicode/ui/FontDescriptor.h"

// Those of a usual list that the machine has, in its order, at a size as CFontDescriptor takes it: Latin
// first, then Arabic, Hebrew, the fonts of glyph codes where they are registered ("corekit fonts
// build"), and the faces of the Indic scripts. The Unicode manager must be initialised.
COREKIT_API CFontDescriptor UsualFonts(int size);
