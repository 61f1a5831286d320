#include "corekit/unicode/ui/UnicodeManager.h"

#include "corekit/foundation/KeyedArrays.h"
#include "corekit/platform/Locale.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "corekit/unicode/ui/AvailableLocales.h"
#include "corekit/unicode/ui/FontRegistry.h"
#include "corekit/unicode/ui/keyboards/KeyboardRotation.h"
#include "corekit/unicode/ui/TextSettings.h"

#include <algorithm>
#include <iterator>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CUnicodeManager, CObject)

CUnicodeManager::CUnicodeManager()
    : m_fonts(FontRegistry::OfProcess()), m_keyboards(std::make_unique<KeyboardRotation>()),
      m_settings(std::make_unique<TextSettings>())
{
}

CUnicodeManager::~CUnicodeManager() = default;

CUnicodeManager* CUnicodeManager::GetObjectA()
{
    static CUnicodeManager manager;
    return &manager;
}

CUnicodeManager* CUnicodeManager::Initialise(BOOL)
{
    CUnicodeManager* const manager = GetObjectA();
    if (manager->m_isInitialised) return manager;
    manager->m_isInitialised = TRUE;
    manager->m_fonts.List();
    manager->m_keyboards->Start();
    manager->LoadRegistryConfig();
    return manager;
}

bool CUnicodeManager::IsFontValid(const char* face) const { return m_fonts.Has(face); }

CFontMapInfo* CUnicodeManager::GetFontMapInfo(const char* face) { return m_fonts.Find(face); }

POSITION CUnicodeManager::GetFirstFontPosition() const { return m_fonts.First(); }

CString CUnicodeManager::GetNextFont(POSITION& position) const { return m_fonts.Next(position); }

void CUnicodeManager::GetLocaleFontSignature(WORD locale, CFontSignature& signature) const
{
    getLocaleFontSignature(locale, signature);
}

int CUnicodeManager::GCURN_Special(WORD c)
{
    return c >= 0xE000 && c <= 0xE3FF ? 256 + ((c - 0xE000) >> 8) : 128;
}

void CUnicodeManager::GetUsbRangeExtent(int range, WORD& first, WORD& last)
{
    const int row = range - corekit::detail::firstUsbRange;
    const DWORD extent = row >= 0 && row < m_usbRangeCount ? m_usbRangeTable[row] : 0;
    first = HIWORD(extent);
    last = LOWORD(extent);
}

bool CUnicodeManager::IsCharInComplexScript(WORD c)
{
    const int range = GetCharacterUsbRangeNumber(c);
    return (range >= 139 && range <= 151) || range == 162 || range == 191 || range == 195 || range >= 256;
}

void CUnicodeManager::ConvertToGlyphs(const WCHAR* text, int length, StringW& glyphs) const
{
    ::ConvertToGlyphs(text, length, glyphs, WindowsComplexLanguageHandlingEnabled() != FALSE);
}

WORD CUnicodeManager::OldDumbMapSpecialGlyph(WORD glyph) { return ::OldDumbMapSpecialGlyph(glyph); }

bool CUnicodeManager::RTLSystemLocale() const { return IsLocaleRTL(LOWORD(GetSystemDefaultLCID())); }

bool CUnicodeManager::IsLocaleRTL(WORD locale) const
{
    using corekit::detail::rightToLeftLocales;
    if (WindowsComplexLanguageHandlingEnabled()) return false;
    return std::find(std::begin(rightToLeftLocales), std::end(rightToLeftLocales), locale) !=
           std::end(rightToLeftLocales);
}

int CUnicodeManager::GetAvailableLocaleCount()
{
    return static_cast<int>(std::size(corekit::detail::availableLocales));
}

void CUnicodeManager::BuildAvailableLocaleList(CStringIntArray& list)
{
    list.Empty();
    for (const auto& row : corekit::detail::availableLocales) {
        CString name;
        name.LoadString(row.nameId);
        list.Add(name, row.locale);
    }
}
