#include "corekit/unicode/bidi/MirrorBrackets.h"

#include "corekit/unicode/bidi/MirroredPairs.h"
#include "corekit/unicode/tables/CharacterCodes.h"

#include <algorithm>

WCHAR MirroredCharacter(WCHAR c)
{
    for (const auto& [left, right] : corekit::detail::mirroredPairs) {
        if (c == left) return right;
        if (c == right) return left;
    }
    return c;
}

void MirrorRightToLeft(StringW& visual, const CArray<int, int>& types)
{
    const int length = std::min(visual.GetLength(), types.GetSize());
    for (int i = 0; i < length; ++i) {
        if (types[i] != corekit::bidi::R) continue;
        const WCHAR c = visual[i], mirrored = MirroredCharacter(c);
        if (mirrored != c) visual.SetAt(i, mirrored);
    }
}
