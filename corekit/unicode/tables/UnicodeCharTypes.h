// The character database: type, direction, case and numeric value of every 16-bit code point.
//
// The rows are those of Unicode 2.0 with the Euro sign, plus the rows of our own that the shapers and the
// document format use (OwnRows.inc). A range that the standard gives by its first and last row has only
// those two rows here: nearly all ideographs and syllables are code points without a row.
//
// Everything is constant and built at compile time; any thread may read it at any time.
//
//     if (CUnicodeCharTypes::GetBiDirectionalType(c) == corekit::bidi::R) ... // a right-to-left letter
//     c = CUnicodeCharTypes::MakeUpper(c);
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"
#include "corekit/unicode/tables/CharacterCodes.h"

class StringW;

class COREKIT_API CUnicodeCharTypes {
public:
    // One row. The codes are those of CharacterCodes.h.
    struct __charEntry {
        int generalType;       // -1 without a row
        int biDirectionalType; // -1 without a row
        int decimalValue;      // of a decimal digit, else -1; -2 without a row
        int digitValue;        // integer part of any numeric value, else -1; -2 without a row
        int mirrored;          // 1 if the glyph is mirrored in right-to-left text
        WORD upperCase;        // simple case mappings, 0xFFFF where there is none
        WORD lowerCase;        // likewise
        WORD titleCase;        // likewise

        friend constexpr bool operator==(const __charEntry&, const __charEntry&) = default;
    };
    using __page = __charEntry[256]; // by the low byte of the code point

    // There is nothing to assign: objects have no state.
    CUnicodeCharTypes& operator=(const CUnicodeCharTypes&) { return *this; }

    // A code of corekit::general or corekit::bidi, -1 for a code point without a row.
    static int GetGeneralType(WORD c) { return m_generalTypes.of[c]; }
    static int GetBiDirectionalType(WORD c) { return m_bidiTypes.of[c]; }

    // Letters of one case; title case and letters without case are neither.
    static bool IsUpper(WORD c) { return GetGeneralType(c) == corekit::general::Lu; }
    static bool IsLower(WORD c) { return GetGeneralType(c) == corekit::general::Ll; } // likewise

    // Tab, line feed and carriage return are neutral controls here, not white space.
    static bool IsWhiteSpace(WORD c) { return GetBiDirectionalType(c) == corekit::bidi::WS; }

    // Any letter or number. False for marks and for code points without a row.
    static bool IsAlphanumeric(WORD c)
    {
        using namespace corekit::general;
        constexpr unsigned wanted =
            1u << Nd | 1u << No | 1u << Lu | 1u << Ll | 1u << Lt | 1u << Lm | 1u << Lo;
        return (wanted >> (GetGeneralType(c) & 31) & 1) != 0; // -1 becomes bit 31
    }

    // The simple mapping, or c itself where there is none; also for code points without a row.
    static WORD MakeUpper(WORD c) { return m_upper.of[c]; }
    static WORD MakeLower(WORD c) { return m_lower.of[c]; }

    // Maps every unit in place, all of the string's length. The length never changes.
    static void MakeUpper(StringW& text);
    static void MakeLower(StringW& text);

    // The table by the high byte of the code point. Slots without a page of their own share m_tblUnknown;
    // none is null.
    static const __charEntry* const (&m_tbl)[256];

    // The pages that have rows, by the high byte in their names; read them through m_tbl.
    static const __page &m_tbl0, &m_tbl1, &m_tbl2, &m_tbl3, &m_tbl4, &m_tbl5, &m_tbl6, &m_tbl9, &m_tbl10,
        &m_tbl11, &m_tbl12, &m_tbl13, &m_tbl14, &m_tbl15, &m_tbl16, &m_tbl17, &m_tbl30, &m_tbl31, &m_tbl32,
        &m_tbl33, &m_tbl34, &m_tbl35, &m_tbl36, &m_tbl37, &m_tbl38, &m_tbl39, &m_tbl48, &m_tbl49, &m_tbl50,
        &m_tbl51, &m_tbl78, &m_tbl159, &m_tbl172, &m_tbl215, &m_tbl216, &m_tbl219, &m_tbl220, &m_tbl223,
        &m_tbl224, &m_tbl227, &m_tbl240, &m_tbl241, &m_tbl242, &m_tbl243, &m_tbl248, &m_tbl249, &m_tbl250,
        &m_tbl251, &m_tbl252, &m_tbl253, &m_tbl254, &m_tbl255, &m_tblUnknown;

private:
    // The same facts with one load a lookup.
    // A value for each code point.
    template <class T>
    struct Flat {
        T of[0x10000];
    };
    static const Flat<signed char> m_generalTypes, m_bidiTypes; // 64 KiB each
    static const Flat<WORD> m_upper, m_lower;                   // 128 KiB each
};
