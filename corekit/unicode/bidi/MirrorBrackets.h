// Brackets and the like on stretches that run from right to left.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"

// Turns the characters of a text in display order that face the other way in right-to-left text ("(" becomes
// ")"). `types` are those that ReorderToVisual gave; what has none there stays.
COREKIT_API void MirrorRightToLeft(StringW& visual, const CArray<int, int>& types);

// The character that faces the other way, or the character itself.
COREKIT_API WCHAR MirroredCharacter(WCHAR c);
