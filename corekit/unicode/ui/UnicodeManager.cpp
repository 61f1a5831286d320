#include "corekit/unicode/ui/UnicodeManager.h"

#include "corekit/foundation/KeyedArrays.h"
#include "corekit/framework/Exception.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Locale.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "corekit/unicode/ui/AvailableLocales.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/FontSignature.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

IMPLEMENT_DYNAMIC(CUnicodeManager, CObject)

namespace {

constexpr int mapBlockSize = 10;

CString keyOf(const char* face)
{
    CString key(face);
    key.MakeUpper();
    return key;
}

} // namespace

CUnicodeManager::CUnicodeManager() : m_fonts(mapBlockSize) {}

CUnicodeManager::~CUnicodeManager()
{
    for (POSITION at = m_fonts.GetStartPosition(); at;) {
        CString key;
        CObject* info = nullptr;
        m_fonts.GetNextAssoc(at, key, info);
        delete info;
    }
    for (int i = 0; i < m_keyboards.GetSize(); ++i) delete m_keyboards.GetAt(i);
}

CUnicodeManager* CUnicodeManager::GetObjectA()
{
    static CUnicodeManager manager;
    return &manager;
}

CUnicodeManager* CUnicodeManager::Initialise(BOOL)
{
    CUnicodeManager* const manager = GetObjectA();
    if (!manager->m_initialised) manager->InternalInit();
    return manager;
}

void CUnicodeManager::InternalInit()
{
    m_initialised = TRUE;
    m_dc.Attach(CreateCompatibleDC(nullptr));
    if (!EnumFontsA(m_dc.GetSafeHdc(), nullptr, &EnumFontsCallbackHelper, reinterpret_cast<LPARAM>(this)))
        AfxThrowMemoryException();
    AddDefaultFace();
    InitKeyboards();
    LoadRegistryConfig();
}

int CUnicodeManager::EnumFontsCallbackHelper(const LOGFONTA* font, const TEXTMETRICA*, DWORD type,
                                             LPARAM manager)
{
    return reinterpret_cast<CUnicodeManager*>(manager)->EnumFontsCallback(font, type);
}

int CUnicodeManager::EnumFontsCallback(const LOGFONTA* font, DWORD type)
{
    if (!(type & TRUETYPE_FONTTYPE)) return 1;
    const CString key = keyOf(font->lfFaceName);
    if (CObject* known = nullptr; m_fonts.Lookup(key, known)) return 1;
    auto info = std::make_unique<CFontMapInfo>(font->lfFaceName);
    m_fonts.SetAt(key, info.get());
    info.release();
    return 1;
}

// Where the machine has not got the face of controls, the platform draws another one under its name.
void CUnicodeManager::AddDefaultFace()
{
    LOGFONTA font{};
    std::strncpy(font.lfFaceName, defaultControlsFace, sizeof font.lfFaceName - 1);
    EnumFontsCallback(&font, TRUETYPE_FONTTYPE);
}

bool CUnicodeManager::IsFontValid(const char* face) const
{
    CObject* info = nullptr;
    return m_fonts.Lookup(keyOf(face), info);
}

CFontMapInfo* CUnicodeManager::GetFontMapInfo(const char* face)
{
    CObject* found = nullptr;
    if (!m_fonts.Lookup(keyOf(face), found)) return nullptr;
    CFontMapInfo* const info = static_cast<CFontMapInfo*>(found);
    if (!info->IsLoaded()) info->Load(&m_dc);
    return info;
}

POSITION CUnicodeManager::GetFirstFontPosition() const { return m_fonts.GetStartPosition(); }

CString CUnicodeManager::GetNextFont(POSITION& position) const
{
    if (!position) return CString();
    CString key;
    CObject* info = nullptr;
    m_fonts.GetNextAssoc(position, key, info);
    return static_cast<CFontMapInfo*>(info)->GetFaceName();
}

void CUnicodeManager::GetLocaleFontSignature(WORD locale, CFontSignature& signature) const
{
    constexpr WORD privateBit = 0x200;
    constexpr DWORD privateUse = 0x10000000;
    if (!(locale & privateBit)) {
        char bytes[sizeof(LOCALESIGNATURE)];
        LOCALESIGNATURE claimed;
        if (GetLocaleInfoA(locale, LOCALE_FONTSIGNATURE, bytes, sizeof bytes) == 0) return;
        std::memcpy(&claimed, bytes, sizeof claimed);
        signature.SetFromUsb(claimed.lsUsb);
        return;
    }
    DWORD custom = 0;
    switch (locale & 0x3FF) {
    case 513:
        custom = 1;
        break;
    case 514:
        custom = 2;
        break;
    case 517:
        custom = 4;
        break;
    case 519:
        custom = 8;
        break;
    default:
        return;
    }
    constexpr DWORD usb[4] = {0, privateUse, 0, 0};
    signature.SetFromUsb(usb);
    signature.SetCustomSignature(custom);
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
    ::ConvertToGlyphs(text, length, glyphs, m_settings.complexLanguage != FALSE);
}

WORD CUnicodeManager::OldDumbMapSpecialGlyph(WORD glyph) { return ::OldDumbMapSpecialGlyph(glyph); }

bool CUnicodeManager::RTLSystemLocale() const { return IsLocaleRTL(LOWORD(GetSystemDefaultLCID())); }

bool CUnicodeManager::IsLocaleRTL(WORD locale) const
{
    using corekit::detail::rightToLeftLocales;
    if (m_settings.complexLanguage) return false;
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
