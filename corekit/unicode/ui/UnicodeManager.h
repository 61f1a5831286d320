// The process-wide service of Unicode text: the fonts of the machine with their coverage, the settings of
// text handling, the ranges of code points, the languages, and the road from text to glyph codes.
//
// There is one object, and it belongs to the user-interface thread; nothing here is locked. Initialise must
// come before any other use, and the toolkit must be running by then.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Map.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/platform/Export.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/UsbRanges.h"

class CFontMapInfo;
class CFontSignature;
class CStringIntArray;
struct LOGFONTA;
struct TEXTMETRICA;

class COREKIT_API CUnicodeManager : public CObject {
    DECLARE_DYNAMIC(CUnicodeManager)
public:
    CUnicodeManager();
    ~CUnicodeManager() override;

    // The object. The first call lists the fonts and takes the default settings; the argument has no
    // meaning. Throws CMemoryException if the fonts cannot be listed.
    static CUnicodeManager* Initialise(BOOL unused);
    // The object, initialised or not; never null.
    static CUnicodeManager* GetObjectA();

    // ---- Fonts. Names of faces compare without regard to case.
    bool IsFontValid(const char* face) const;
    // The record of a face, its signature read; null for a face that the machine does not have.
    CFontMapInfo* GetFontMapInfo(const char* face);
    // Walks all faces, in no order. Null when there is none or no more.
    POSITION GetFirstFontPosition() const;
    CString GetNextFont(POSITION& position) const;
    // The font of controls; size 15 of "Arial" until one is set.
    void SetControlsFontDescriptor(const CFontDescriptor& font);
    void GetControlsFontDescriptor(CFontDescriptor& font);
    // What a language needs of a font. A private language (bit 0x200) needs one range of private glyphs.
    // Left as it was for a language that neither the platform nor this library knows.
    void GetLocaleFontSignature(WORD locale, CFontSignature& signature) const;

    // ---- Ranges of code points, 128 to 197 and 256 to 259.
    static constexpr int m_usbRangeCount = corekit::detail::usbRangeCount;
    static constexpr const DWORD (&m_usbRangeTable)[m_usbRangeCount] = corekit::detail::usbRangeTable;
    // A code point of no range counts as basic Latin, 128.
    static int GetCharacterUsbRangeNumber(WORD c)
    {
        return corekit::detail::rangeNumberOfIndex(corekit::detail::rangeIndexOf(c));
    }
    // The same for U+E000 to U+F8FF: the four private ranges, else 128.
    static int GCURN_Special(WORD c);
    // First and last code point of a range from 128 to 197; 0 and 0 for others.
    static void GetUsbRangeExtent(int range, WORD& first, WORD& last);
    // Hebrew, Arabic, the Indic scripts from Devanagari to Malayalam, combining symbols, Arabic forms and
    // private glyphs.
    static bool IsCharInComplexScript(WORD c);

    // ---- Conversion of text in display order to glyph codes, which are appended. A negative length means
    // up to the zero. While the platform handles complex languages the whole text replaces `glyphs`.
    void ConvertToGlyphs(const WCHAR* text, int length, StringW& glyphs) const;
    // The code point that selects a private glyph in an 8-bit font.
    static WORD OldDumbMapSpecialGlyph(WORD glyph);

    // ---- Settings.
    // With `forGlyphs`, false also while the platform handles complex languages.
    BOOL IsBIDIEnabled(BOOL forGlyphs) const;
    void SetBIDIEnabled(BOOL enabled) { m_biDiEnabled = enabled; }
    BOOL WindowsComplexLanguageHandlingEnabled() const { return m_windowsComplexLanguage; }
    void SetWindowsComplexLanguageHandling(BOOL enabled) { m_windowsComplexLanguage = enabled; }
    BOOL ExtraLineHeight() const { return m_extraLineHeight; }
    void SetExtraLineHeight(BOOL enabled) { m_extraLineHeight = enabled; }
    BOOL IsUnderlineSelectEnabled() const { return m_underlineSelect; }
    void SetUnderlineSelectEnabled(BOOL enabled) { m_underlineSelect = enabled; }

    // ---- Languages. No language is right to left while the platform handles complex languages.
    bool RTLSystemLocale() const;
    bool IsLocaleRTL(WORD locale) const;
    static int GetAvailableLocaleCount();
    // Replaces the list: name and locale of each.
    static void BuildAvailableLocaleList(CStringIntArray& list);

private:
    void InternalInit();
    void SetDefaultControlsFont();
    static int EnumFontsCallbackHelper(const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD type,
                                       LPARAM manager);
    int EnumFontsCallback(const LOGFONTA* font, DWORD type);

    CMapStringToOb m_fonts; // upper-case face name to an owned CFontMapInfo
    BOOL m_initialised = FALSE;
    CDC m_dc; // a memory context, to read font data
    CFontDescriptor m_controlsFont;
    BOOL m_biDiEnabled = FALSE;
    BOOL m_windowsComplexLanguage = FALSE;
    BOOL m_extraLineHeight = FALSE;
    BOOL m_underlineSelect = FALSE;
};
