// How the letters of a block of 256 code points join, and where their presentation forms lie.
//
// Right and left are sides on the screen: text is shaped in display order. The four forms of a letter
// follow one another: nominal, right (joined on its right side only), left, medial. CArabicJoiningClasses
// and CUrduIndicJoiningClasses are these operations on two blocks.
//
// Everything is constant; any thread may read it at any time.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"
#include "corekit/unicode/tables/JoiningTypes.h"

namespace corekit {

namespace detail {

template <WORD Block>
class COREKIT_API JoiningClasses {
public:
    using __charEntry = JoiningEntry;

    // The type of a code point; ZERO WIDTH JOINER causes joining, all else outside the block does not join.
    static int GetJoiningType(WORD c)
    {
        if (!Inside(c)) return c == 0x200D ? joining::Causing : joining::Non;
        const int type = Row(c).joiningType;
        return type == joining::NoRow ? joining::Non : type;
    }

    // A form of c, or c itself where it has none. A code point of the block without a row gives 0xFFFF.
    static WORD NominalForm(WORD c) { return HasForm(c) ? Row(c).baseForm : c; }
    static WORD RightForm(WORD c)
    {
        if (!HasForm(c)) return c;
        const JoiningEntry& row = Row(c);
        const bool joins = row.joiningType == joining::Right || row.joiningType == joining::Dual;
        return static_cast<WORD>(row.baseForm + (joins ? 1 : 0));
    }
    static WORD LeftForm(WORD c)
    {
        if (!HasForm(c)) return c;
        const JoiningEntry& row = Row(c);
        const bool joins = row.joiningType == joining::Left || row.joiningType == joining::Dual;
        return static_cast<WORD>(row.baseForm + (joins ? 2 : 0));
    }
    static WORD MedialForm(WORD c)
    {
        if (!HasForm(c)) return c;
        const JoiningEntry& row = Row(c);
        return static_cast<WORD>(row.baseForm + (row.joiningType == joining::Dual ? 3 : 0));
    }

    static bool IsRightJoining(WORD c) { return GetJoiningType(c) == joining::Right; }
    static bool IsLeftJoining(WORD c) { return GetJoiningType(c) == joining::Left; }
    static bool IsDualJoining(WORD c) { return GetJoiningType(c) == joining::Dual; }
    static bool IsNonJoining(WORD c) { return GetJoiningType(c) == joining::Non; }

    // Whether a neighbour may connect to c: on either side, right joining letters among them; on c's right
    // side; on c's left side.
    static bool IsJoinCausing(WORD c) { return GetJoiningType(c) <= joining::Causing; }
    static bool IsRightJoinCausing(WORD c)
    {
        const int type = GetJoiningType(c);
        return type <= joining::Causing && type != joining::Left;
    }
    static bool IsLeftJoinCausing(WORD c)
    {
        const int type = GetJoiningType(c);
        return type <= joining::Causing && type != joining::Right;
    }

    // Passed over in the search for neighbours: the marks, and the tilde.
    static bool IsTransparent(WORD c) { return c == u'~' || GetJoiningType(c) == joining::Transparent; }

    // The rows, by the low byte of the code point.
    static const __charEntry (&m_tbl)[256];

private:
    static bool Inside(WORD c) { return (c & 0xFF00) == Block; }
    static const JoiningEntry& Row(WORD c) { return m_tbl[c & 0xFF]; }
    static bool HasForm(WORD c) { return Inside(c) && Row(c).baseForm != 0; }
};

template <>
COREKIT_API const JoiningEntry (&JoiningClasses<0x0600>::m_tbl)[256];
template <>
COREKIT_API const JoiningEntry (&JoiningClasses<0xE300>::m_tbl)[256];

} // namespace detail
} // namespace corekit
