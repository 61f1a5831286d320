#include "corekit/unicode/ui/UniRender.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/PairKerning.h"
#include "corekit/resources/Messages.h"
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <algorithm>
#include <climits>
#include <string>

using corekit::detail::GlyphRun;
using corekit::detail::RunRules;

IMPLEMENT_DYNAMIC(CUniRender, CObject)

namespace {

constexpr int measureLeading = 2;

int lengthOf(const WCHAR* text, int count)
{
    if (!text) return 0;
    if (count >= 0) return count;
    return static_cast<int>(std::min<std::size_t>(std::char_traits<WCHAR>::length(text), INT_MAX));
}

RunRules rulesOf(int extraSpacing)
{
    return {CUnicodeManager::GetObjectA()->IsBIDIEnabled(TRUE) != FALSE, extraSpacing != 0};
}

// A memory context that ends with its scope and gives its first font back.
class MeasuringContext {
public:
    MeasuringContext() : m_dc(CreateCompatibleDC(nullptr))
    {
        if (!m_dc) ThrowChainedException(GetLastErrorException(), message::createContextFailed);
    }
    ~MeasuringContext() { DeleteDC(m_dc); }
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;

    int HeightOf(HFONT font)
    {
        TEXTMETRICA metrics{};
        SelectObject(m_dc, font);
        return GetTextMetricsA(m_dc, &metrics) ? metrics.tmHeight : 0;
    }

private:
    HDC m_dc;
};

// Measures with what is selected in a context.
class ContextRuler final : public corekit::detail::RunRuler {
public:
    explicit ContextRuler(HDC dc) : m_dc(dc) {}

    int Width(const WCHAR* text, int count, UINT options) override
    {
        SIZE size{};
        GetTextExtentPoint32W(m_dc, text, count, &size, options);
        return size.cx;
    }

private:
    HDC m_dc;
};

} // namespace

CUniRender::CUniRender() = default;

CUniRender::~CUniRender()
{
    DetachDC();
    Reset();
}

void CUniRender::AddFont(const char* face)
{
    if (m_fontCount == static_cast<int>(m_fonts.size()))
        ThrowChainedException(nullptr, message::tooManyFonts);
    CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    const CFontMapInfo* const info = manager->IsFontValid(face) ? manager->GetFontMapInfo(face) : nullptr;
    if (!info) ThrowChainedException(nullptr, message::fontNotSupported, face);
    m_coverage.Add(info->GetSignature());
    m_fonts[static_cast<std::size_t>(m_fontCount)].face = face;
    ++m_fontCount;
}

// A font that is about to end may not stay selected.
void CUniRender::LetGoOfFonts()
{
    if (m_currentFont >= 0 && m_dc) SelectObject(m_dc, m_savedFont);
    m_currentFont = -1;
}

void CUniRender::Reset()
{
    LetGoOfFonts();
    for (FontSlot& slot : m_fonts) {
        if (slot.font) DeleteObject(slot.font);
        slot = FontSlot();
    }
    m_fontCount = 0;
    m_height = 0;
    m_coverage.Clear();
}

void CUniRender::Create(int height, int bold, int underline, int italic)
{
    constexpr DWORD trueTypeOnly = 7, embedded = 32, draftQuality = 1;
    LetGoOfFonts();
    m_height = 0;
    for (int i = 0; i < m_fontCount; ++i) {
        FontSlot& slot = m_fonts[static_cast<std::size_t>(i)];
        const HFONT font =
            CreateFontA(height, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, italic != 0, underline != 0, 0,
                        DEFAULT_CHARSET, trueTypeOnly, embedded, draftQuality, 0, slot.face);
        if (!font) ThrowChainedException(GetLastErrorException(), message::createFontFailed);
        if (slot.font) DeleteObject(slot.font);
        slot.font = font;
    }
}

void CUniRender::CreateFromDescriptor(const CFontDescriptor& font, int bold, int underline, int italic)
{
    Reset();
    for (int i = 0; i < font.GetCount(); ++i) AddFont(font.GetFont(i));
    Create(font.GetSize(), bold, underline, italic);
}

int CUniRender::GetHeight()
{
    if (m_height) return m_height;
    MeasuringContext context;
    for (int i = 0; i < m_fontCount; ++i) {
        FontSlot& slot = m_fonts[static_cast<std::size_t>(i)];
        if (slot.font) slot.height = context.HeightOf(slot.font);
        m_height = std::max(m_height, slot.height);
    }
    return m_height;
}

void CUniRender::AttachDC(HDC dc)
{
    m_dc = dc;
    m_currentFont = -1;
}

void CUniRender::DetachDC()
{
    LetGoOfFonts();
    m_dc = nullptr;
}

void CUniRender::SelectFont(int slot)
{
    const HFONT font = m_fonts[static_cast<std::size_t>(slot)].font;
    if (slot == m_currentFont || !font) return;
    const HGDIOBJ before = SelectObject(m_dc, font);
    if (m_currentFont < 0) m_savedFont = before;
    m_currentFont = slot;
}

void CUniRender::DrawLogicalString(int x, int y, unsigned options, const CRect& rect, const WCHAR* text,
                                   int count, int extraSpacing)
{
    const CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    count = lengthOf(text, count);
    m_text.AssignCopy(count, text);
    m_types.RemoveAll();
    if (manager->IsBIDIEnabled(TRUE)) ReorderToVisual(m_text, m_order, m_types, GetBaseLevel(m_text, count));
    m_glyphs.Empty();
    manager->ConvertToGlyphs(static_cast<const WCHAR*>(m_text), count, m_glyphs);
    DrawGlyphString(x, y, options, rect, m_glyphs, m_types, m_glyphs.GetLength(), extraSpacing);
}

void CUniRender::DrawGlyphString(int x, int y, unsigned options, const CRect& rect, const WCHAR* glyphs,
                                 CArray<int, int>& types, int count, int extraSpacing)
{
    if (!m_dc) return;
    options = Options(options);
    count = lengthOf(glyphs, count);
    if (count == 0) {
        if (options & ETO_OPAQUE) ExtTextOutW(m_dc, x, y, options, &rect, u"", 0);
        return;
    }
    corekit::detail::GlyphRunBuilder runs(m_coverage, rulesOf(extraSpacing), glyphs, count, types, options);
    ContextRuler ruler(m_dc);
    while (runs.Next(x, ruler, m_run)) {
        SelectFont(m_run.slot);
        const int length = static_cast<int>(m_run.text.size());
        const int width =
            corekit::detail::wrapAdd(ruler.Width(m_run.text.data(), length, m_run.options), m_run.extra);
        ExtTextOutW(m_dc, x, y, m_run.options, &rect, m_run.text.data(), static_cast<UINT>(length));
        DrawMarks(m_run, y, rect);
        x = corekit::detail::wrapAdd(x, width);
    }
}

UINT CUniRender::Options(UINT options) const
{
    return m_kerning == PairKerning::on ? options | ETO_PAIRKERNING : options;
}

void CUniRender::DrawMarks(const GlyphRun& run, int y, const CRect& rect)
{
    if (run.marks.empty()) return;
    SetBkMode(m_dc, TRANSPARENT);
    for (const GlyphRun::Mark& mark : run.marks)
        ExtTextOutW(m_dc, mark.x, y, run.options & ~ETO_OPAQUE, &rect, &mark.text, 1);
    SetBkMode(m_dc, OPAQUE);
}

CSize CUniRender::CalcLogicalStringSize(const WCHAR* text, int count, int extraSpacing)
{
    count = lengthOf(text, count);
    if (count == 0) return {};
    m_text.AssignCopy(count, text);
    m_glyphs.Empty();
    CUnicodeManager::GetObjectA()->ConvertToGlyphs(static_cast<const WCHAR*>(m_text), count, m_glyphs);
    return CalcGlyphStringSize(m_glyphs, m_glyphs.GetLength(), extraSpacing);
}

CSize CUniRender::CalcGlyphStringSize(const WCHAR* glyphs, int count, int extraSpacing)
{
    if (!m_dc) return {};
    CSize total;
    corekit::detail::MeasureRunBuilder runs(m_coverage, rulesOf(extraSpacing), glyphs,
                                            lengthOf(glyphs, count));
    while (runs.Next(m_run)) {
        SIZE size{};
        SelectFont(m_run.slot);
        GetTextExtentPoint32W(m_dc, m_run.text.data(), static_cast<int>(m_run.text.size()), &size,
                              Options(m_run.options));
        total.cx = corekit::detail::wrapAdd(total.cx, corekit::detail::wrapAdd(size.cx, m_run.extra));
        total.cy = std::max(total.cy, size.cy);
    }
    total.cy += measureLeading;
    return total;
}
