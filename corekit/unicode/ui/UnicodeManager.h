// The process-wide service of Unicode text: the fonts of the machine with their coverage, the keyboards and
// the characters that keys become, the settings of text handling, the ranges of code points, the languages,
// and the road from text to glyph codes.
//
// There is one object, and it belongs to the user-interface thread; nothing here is locked. Initialise must
// come before any other use, and the toolkit must be running by then. The registry key
// HKEY_LOCAL_MACHINE\Software\Corvane\Unicode Support keeps the settings, see docs/unicode-manager.md.
//
//     CUnicodeManager* const manager = CUnicodeManager::Initialise(0);
//     manager->EnableKeyboardSwitching(TRUE);
//     manager->SetKeyboardFromLocale(1025, FALSE); // Arabic
//     ...
//     BOOL CMainFrame::PreTranslateMessage(MSG* message)
//     {
//         return CUnicodeManager::GetObjectA()->TranslateMessageHook(message) ||
//                CFrameWnd::PreTranslateMessage(message);
//     }
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Messages.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/TextHandling.h"
#include "corekit/unicode/ui/UsbRanges.h"

#include <memory>

class CAXPropertySheet;
class CFontMapInfo;
class CFontSignature;
class CKBLayout;
class CStringIntArray;

namespace corekit::detail {
class FontRegistry;
class KeyboardRotation;
class TextSettings;
} // namespace corekit::detail

class COREKIT_API CUnicodeManager : public CObject {
    DECLARE_DYNAMIC(CUnicodeManager)
public:
    CUnicodeManager();
    ~CUnicodeManager() override;

    // The object. The first call lists the fonts, makes the keyboards and reads the settings; the argument
    // has no meaning. Throws CMemoryException if the fonts cannot be listed. That is not tried again: later
    // calls give the object with the faces that were listed until then, no keyboards and the default
    // settings.
    static CUnicodeManager* Initialise(BOOL unused);
    // The object, initialised or not; never null.
    static CUnicodeManager* GetObjectA();

    // "Arial" always is: where the machine has not got it, another face is drawn under its name. Only
    // outline faces are known, those that were there when the object was initialised.
    bool IsFontValid(const char* face) const;
    // The record of a face, its signature read; null for a face that the machine does not have. Owned by
    // the manager.
    CFontMapInfo* GetFontMapInfo(const char* face);
    // Walks all faces, in no order. Null when there is none or no more.
    POSITION GetFirstFontPosition() const;
    CString GetNextFont(POSITION& position) const;
    // The font of controls, kept in the registry; size 15 of "Arial" where none is.
    void SetControlsFontDescriptor(const CFontDescriptor& font);
    void GetControlsFontDescriptor(CFontDescriptor& font);
    // Puts a font in force in this process alone; the registry keeps its own.
    void OverrideControlsFont(const CFontDescriptor& font);
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

    // True: the message is consumed and goes no further. Ctrl, Alt and an arrow key to the left or right
    // switch keyboards; other keys go to the active one. Characters of two bytes in the active code page
    // are put together and sent on with the final-character mark. Null is false.
    bool TranslateMessageHook(MSG* message);
    // The hook's parts, for WM_KEYDOWN, WM_CHAR and WM_IME_CHAR; the message must be of that kind.
    bool TMH_KeyDown(MSG* message);
    bool TMH_Char(MSG* message);
    bool TMH_IMEChar(MSG* message);
    // The character of a character message's wParam: the low word of a final one, else the low byte by the
    // active code page.
    WORD ConvertCharMessage(UINT wParam) const;
    // For the platform's notice that the user has changed its layout: makes the keyboard of that layout the
    // active one, unless the manager itself caused the change. Always 1.
    BOOL HandleInputLangChange(UINT charSet, HKL layout);
    // Whether there is a keyboard for the layout.
    bool AllowInputLangChangeRequest(HKL layout, BOOL unused) const;

    // ---- Keyboards, by index: first those of the platform's layouts in its order, then those of this
    // library.
    int GetKeyboardCount() const;
    CKBLayout* GetKeyboard(int index) const; // null outside the list
    // Leaves both alone outside the list.
    void GetKeyboardInfo(int index, CString& name, WORD& locale) const;
    int GetActiveKeyboard() const;         // an index
    CString GetActiveKeyboardName() const; // empty if there is none
    WORD GetCurrentKeyboardLocale() const; // language of the active one; 0 if there is none

    // Off at first, and while it is off the operations below answer true and do nothing: switched on once a
    // window is ready for keys.
    void EnableKeyboardSwitching(BOOL enabled);
    BOOL IsKeyboardSwitchingEnabled() const;
    // The keyboard at the index or, with `useDefault`, the default one. False if it is not enabled or there
    // is none.
    bool ActivateKeyboard(int index, BOOL useDefault);
    // The next or previous enabled one, round the end; true also if there is no other.
    bool ActivateNextKeyboard();
    bool ActivatePrevKeyboard();
    // The first enabled keyboard of the language, else of one of its varieties; false if there is none.
    bool SetKeyboardFromLocale(WORD locale, BOOL useDefault);
    // The first enabled keyboard of the language or a variety becomes the default; without one there is none.
    void SetDefaultKeyboard(DWORD locale);
    // The part of activating that tells both keyboards and takes the new one's code page; the index in
    // force stays. False outside the list.
    bool ActivateLayoutCore(int index);
    // For a keyboard of our own that becomes active: puts the platform on its layout of that language, if it
    // has one; 0 is any language, and leaves the platform as it is.
    void ActivateHelperKeyboard(DWORD locale);
    static CString GetKeyboardLanguageName(HKL layout); // in English; empty for an unknown language
    static int GetLayoutCodePage(HKL layout);           // that of the layout's language; 0 for an unknown one

    // ---- Settings. Each setter writes to the registry at once; if that fails it throws CChainedException
    // message::createKeyFailed or message::setValueFailed, and the setting holds for this process only.
    // With `forGlyphs`, false also while the platform handles complex languages.
    BOOL IsBIDIEnabled(BOOL forGlyphs) const;
    // Whether this library orders bidirectional text for display.
    void SetBIDIEnabled(BOOL enabled);
    // Whether the platform orders and joins text, and this library leaves it alone.
    BOOL WindowsComplexLanguageHandlingEnabled() const;
    void SetWindowsComplexLanguageHandling(BOOL enabled);
    // Whether lines should leave room for high marks; for hosts that lay lines out.
    BOOL ExtraLineHeight() const;
    void SetExtraLineHeight(BOOL enabled);
    // Whether a selection should be underlined rather than highlighted; for hosts that draw one.
    BOOL IsUnderlineSelectEnabled() const;
    void SetUnderlineSelectEnabled(BOOL enabled);
    // Writes which keyboards are enabled, in place of all that stood there. Throws as the setters do.
    void SaveEnabledKeyboardsConfig() const;
    // Takes everything from the registry anew: font, settings, enabled keyboards, default keyboard. What is
    // missing there, or of another type, gets its default; an enabled keyboard then stays so.
    void LoadRegistryConfig();

    using Settings = corekit::TextHandling;
    // Puts settings in force in this process alone; the registry keeps its own.
    void OverrideSettings(const Settings& settings);

    // ---- Languages. No language is right to left while the platform handles complex languages.
    // Of the system's language, and of any.
    bool RTLSystemLocale() const;
    bool IsLocaleRTL(WORD locale) const;

    static int GetAvailableLocaleCount(); // rows of the list below
    // Replaces the list: name and locale of each.
    static void BuildAvailableLocaleList(CStringIntArray& list);

    // The pages on which the user changes all this: general settings, keyboards, and the read rate.
    void AddPropertyPages(CAXPropertySheet& sheet);

private:
    // Sends what the bytes are in the active code page as a final character; true.
    bool SendConverted(MSG& message, BYTE first, BYTE second) const;

    corekit::detail::FontRegistry& m_fonts;
    const std::unique_ptr<corekit::detail::KeyboardRotation> m_keyboards;
    const std::unique_ptr<corekit::detail::TextSettings> m_settings;
    BOOL m_isInitialised = FALSE;
    UINT m_pendingLeadByte = 0; // the first half of a character, 0 if none
};
