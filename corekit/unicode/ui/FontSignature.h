// What one face covers, and how it turns a private glyph code into the code that the face really holds.
//
//     CFontSignature needed, own;
//     manager->GetLocaleFontSignature(1081, needed); // Hindi
//     manager->GetFontMapInfo(face)->GetSignature(own);
//     if (own.Contains(needed)) ...
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Map.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"

#include <string>
#include <string_view>

// A value: a copy owns copies of every rule. One thread at a time.
class COREKIT_API CFontSignature : public CObject {
    DECLARE_DYNAMIC(CFontSignature)
public:
    // Covers nothing, and converts every character to itself.
    CFontSignature();
    CFontSignature(const CFontSignature& other);
    CFontSignature& operator=(const CFontSignature& other);

    ~CFontSignature() override;

    // The 128 subset bits that the face claims. Clears the custom signature, zones and single mappings;
    // mappings to whole strings stay.
    void SetFromUsb(const DWORD usb[4]);
    void GetUsb(DWORD usb[4]) const; // as they were set
    // Bits 0 to 3: the face holds the glyphs of the private ranges 256 to 259.
    void SetCustomSignature(DWORD bits) { m_custom = bits; }
    DWORD GetCustomSignature() const { return m_custom; }

    // Every usb and custom bit of `other` is set here too. The rules play no part.
    bool Contains(const CFontSignature& other) const;
    // Ranges 128 to 255 and 256 to 259; others are not covered.
    bool CoversRange(int rangeNumber) const;

    // Characters `first` to `last`, both included, stand `offset` lower in the face. Zones may overlap: the
    // last one added counts.
    void AddZone(WORD first, WORD last, WORD offset);
    // One character for another, and one for a string. Both replace what `from` gave before.
    void AddMapping(WORD from, WORD to);
    void AddMultimap(WORD from, const StringW& to);

    // Appends what the face must be given to show `ch`: its string, else its mapping, else the zone added
    // last that holds it, else itself.
    void Convert(WCHAR ch, StringW& out) const;
    void Convert(WCHAR ch, std::u16string& out) const;

private:
    // Both ends are included.
    struct Zone {
        WORD first, last, offset;
    };

    // The characters for `ch`, which may lie in `single`.
    std::u16string_view Resolve(WCHAR ch, WCHAR& single) const;
    void CopyRules(const CFontSignature& other);
    void DropMultimap(); // deletes the strings

    DWORD m_usb[4] = {};     // bit n is range 128 + n
    DWORD m_custom = 0;      // bit n is range 256 + n
    bool m_hasRules = false; // anything in the three below
    CMap<WORD, WORD, WORD, WORD> m_map;
    CMap<WORD, WORD, StringW*, StringW*> m_multimap; // owns the strings
    CArray<Zone, const Zone&> m_zones;
};
