#include "corekit/unicode/ui/FontRegistry.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Locale.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/FontSignature.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

namespace corekit::detail {

namespace {

constexpr int mapBlockSize = 10;

CString keyOf(const char* face)
{
    CString key(face);
    key.MakeUpper();
    return key;
}

struct PrivateLanguage {
    WORD language;
    DWORD customSignature;
};
constexpr PrivateLanguage privateLanguages[] = {{513, 1}, {514, 2}, {517, 4}, {519, 8}};

} // namespace

FontRegistry& FontRegistry::OfProcess()
{
    static FontRegistry registry;
    return registry;
}

FontRegistry::FontRegistry() : m_faces(mapBlockSize) {}

FontRegistry::~FontRegistry()
{
    for (POSITION at = m_faces.GetStartPosition(); at;) {
        CString key;
        CObject* info = nullptr;
        m_faces.GetNextAssoc(at, key, info);
        delete info;
    }
}

void FontRegistry::List()
{
    m_dc.Attach(CreateCompatibleDC(nullptr));
    if (!EnumFontsA(m_dc.GetSafeHdc(), nullptr, &Take, reinterpret_cast<LPARAM>(this)))
        AfxThrowMemoryException();
    Add(usualFace);
}

int FontRegistry::Take(const LOGFONTA* font, const TEXTMETRICA*, DWORD type, LPARAM registry)
{
    if (type & TRUETYPE_FONTTYPE) reinterpret_cast<FontRegistry*>(registry)->Add(font->lfFaceName);
    return 1;
}

void FontRegistry::Add(const char* face)
{
    const CString key = keyOf(face);
    if (CObject* known = nullptr; m_faces.Lookup(key, known)) return;
    auto info = std::make_unique<CFontMapInfo>(face);
    m_faces.SetAt(key, info.get());
    info.release();
}

bool FontRegistry::Has(const char* face) const
{
    CObject* info = nullptr;
    return m_faces.Lookup(keyOf(face), info);
}

CFontMapInfo* FontRegistry::Find(const char* face)
{
    CObject* found = nullptr;
    if (!m_faces.Lookup(keyOf(face), found)) return nullptr;
    CFontMapInfo* const info = static_cast<CFontMapInfo*>(found);
    if (!info->IsLoaded()) info->Load(&m_dc);
    return info;
}

POSITION FontRegistry::First() const { return m_faces.GetStartPosition(); }

CString FontRegistry::Next(POSITION& position) const
{
    if (!position) return CString();
    CString key;
    CObject* info = nullptr;
    m_faces.GetNextAssoc(position, key, info);
    return static_cast<CFontMapInfo*>(info)->GetFaceName();
}

void getLocaleFontSignature(WORD locale, CFontSignature& signature)
{
    constexpr WORD privateBit = 0x200, languageBits = 0x3FF;
    if (locale & privateBit) {
        constexpr DWORD privateUse[4] = {0, 0x10000000, 0, 0};
        const auto* const row =
            std::ranges::find(privateLanguages, locale & languageBits, &PrivateLanguage::language);
        if (row == std::end(privateLanguages)) return;
        signature.SetFromUsb(privateUse);
        signature.SetCustomSignature(row->customSignature);
        return;
    }
    char bytes[sizeof(LOCALESIGNATURE)];
    LOCALESIGNATURE claimed;
    if (GetLocaleInfoA(locale, LOCALE_FONTSIGNATURE, bytes, sizeof bytes) == 0) return;
    std::memcpy(&claimed, bytes, sizeof claimed);
    signature.SetFromUsb(claimed.lsUsb);
}

} // namespace corekit::detail
