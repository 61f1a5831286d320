// How the letters of a block of 256 code points join, and where their presentation forms lie.
//
// Right and left are sides on the screen: text is shaped in display order. The four forms of a letter
// follow one another: nominal, right (joined on its right side only), left, medial. CArabicJoiningClasses
// and CUrduIndicJoiningClasses are these operations on two blocks.
//
// Everything is constant; any thread may read it at any time.
//
//     const WORD form = CArabicJoiningClasses::MedialForm(0x0628); // beh between two letters, U+FE92
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"
#include "corekit/unicode/tables/JoiningTypes.h"

namespace corekit {

namespace detail {

// `Block` is the first code point of the block. A form is a code point of the presentation forms, which a
// font has a glyph for; nothing here looks at fonts.
//
// All operations take any 16-bit code point, cost one look into a table, and never fail.
template <WORD Block>
class COREKIT_API JoiningClasses {
public:
    using __charEntry = JoiningEntry; // a row

    // The type of a code point; ZERO WIDTH JOINER causes joining, all else outside the block does not join.
    static int GetJoiningType(WORD c)
    {
        if (!Inside(c)) return c == 0x200D ? joining::Causing : joining::Non;
        const int type = Row(c).joiningType;
        return type == joining::NoRow ? joining::Non : type;
    }

    // A form of c, or c itself where it has none. A code point of the block without a row gives 0xFFFF.
    static WORD NominalForm(WORD c) { return HasForm(c) ? Row(c).baseForm : c; } // standing alone
    // Joined to the letter on its right; the nominal form of a letter that cannot be.
    static WORD RightForm(WORD c)
    {
        if (!HasForm(c)) return c;
        const JoiningEntry& row = Row(c);
        const bool joins = row.joiningType == joining::Right || row.joiningType == joining::Dual;
        return static_cast<WORD>(row.baseForm + (joins ? 1 : 0));
    }
    // Joined to the letter on its left; the nominal form of a letter that cannot be.
    static WORD LeftForm(WORD c)
    {
        if (!HasForm(c)) return c;
        const JoiningEntry& row = Row(c);
        const bool joins = row.joiningType == joining::Left || row.joiningType == joining::Dual;
        return static_cast<WORD>(row.baseForm + (joins ? 2 : 0));
    }
    // Joined on both sides; the nominal form of a letter that cannot be.
    static WORD MedialForm(WORD c)
    {
        if (!HasForm(c)) return c;
        const JoiningEntry& row = Row(c);
        return static_cast<WORD>(row.baseForm + (row.joiningType == joining::Dual ? 3 : 0));
    }

    // The type of a code point, each alone: on its right side only, on its left side only, on both, on
    // neither.
    static bool IsRightJoining(WORD c) { return GetJoiningType(c) == joining::Right; }
    static bool IsLeftJoining(WORD c) { return GetJoiningType(c) == joining::Left; }
    static bool IsDualJoining(WORD c) { return GetJoiningType(c) == joining::Dual; }
    static bool IsNonJoining(WORD c) { return GetJoiningType(c) == joining::Non; } // nor passed over

    // Whether a neighbour may connect to c: on either side, right joining letters among them; on c's right
    // side; on c's left side.
    static bool IsJoinCausing(WORD c) { return GetJoiningType(c) <= joining::Causing; }
    // A neighbour on c's right, which c may reach with its own right side.
    static bool IsRightJoinCausing(WORD c)
    {
        const int type = GetJoiningType(c);
        return type <= joining::Causing && type != joining::Left;
    }
    // A neighbour on c's left, which c may reach with its own left side.
    static bool IsLeftJoinCausing(WORD c)
    {
        const int type = GetJoiningType(c);
        return type <= joining::Causing && type != joining::Right;
    }

    // Passed over in the search for neighbours: the marks, and the tilde.
    static bool IsTransparent(WORD c) { return c == u'~' || GetJoiningType(c) == joining::Transparent; }

    // The rows, by the low byte of the code point. A row without a letter has joining::NoRow and 0xFFFF.
    static const __charEntry (&m_tbl)[256];

private:
    static bool Inside(WORD c) { return (c & 0xFF00) == Block; }              // of the block
    static const JoiningEntry& Row(WORD c) { return m_tbl[c & 0xFF]; }        // whichever block c is of
    static bool HasForm(WORD c) { return Inside(c) && Row(c).baseForm != 0; } // 0xFFFF counts as one
};

// The Arabic block, and the private block of Indic Urdu.
template <>
COREKIT_API const JoiningEntry (&JoiningClasses<0x0600>::m_tbl)[256];
template <>
COREKIT_API const JoiningEntry (&JoiningClasses<0xE300>::m_tbl)[256];

} // namespace detail
} // namespace corekit
