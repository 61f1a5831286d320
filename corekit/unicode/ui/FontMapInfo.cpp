#include "corekit/unicode/ui/FontMapInfo.h"

#include "corekit/framework/ui/DC.h"
#include "corekit/platform/Gdi.h"

IMPLEMENT_DYNAMIC(CFontMapInfo, CObject)

CFontMapInfo::CFontMapInfo(const char* face) : m_face(face) {}

CFontMapInfo::~CFontMapInfo() = default;

void CFontMapInfo::Load(CDC* dc)
{
    if (!LoadFromRegistry()) LoadFromPlatform(dc);
    m_loaded = TRUE;
}

// The bits that the face itself claims; its glyphs are addressed by Unicode, so there are no rules.
void CFontMapInfo::LoadFromPlatform(CDC* dc)
{
    constexpr int height = 10, anyWeight = 400;
    constexpr DWORD trueTypeOnly = 7, embedded = 32;
    const HDC target = dc ? dc->GetSafeHdc() : nullptr;
    const HFONT font = CreateFontA(height, 0, 0, 0, anyWeight, 0, 0, 0, DEFAULT_CHARSET, trueTypeOnly,
                                   embedded, 0, 0, m_face);
    const HGDIOBJ before = font ? SelectObject(target, font) : nullptr;
    FONTSIGNATURE claimed{};
    GetTextCharsetInfo(target, &claimed, 0);
    m_signature.SetFromUsb(claimed.fsUsb);
    if (before) SelectObject(target, before);
    if (font) DeleteObject(font);
}
