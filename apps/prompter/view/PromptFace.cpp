#include "view/PromptFace.h"

#include "corekit/platform/Gdi.h"
#include "corekit/unicode/bidi/MirrorBrackets.h"
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/ui/UnicodeManager.h"
#include "corekit/unicode/ui/UsualFonts.h"

namespace prompter {
namespace {

constexpr std::size_t longestKept = 32, mostKept = 50000; // widths, of words of so many units

} // namespace

PromptFace::PromptFace() : m_measuring(CreateCompatibleDC(nullptr)) {}

PromptFace::~PromptFace() { DeleteDC(m_measuring); }

void PromptFace::SetStyle(const PromptStyle& style)
{
    m_brackets = style.brackets;
    m_widths.clear();
    CFontDescriptor fonts = UsualFonts(-style.size);
    if (!style.faces.empty()) {
        fonts.Empty();
        fonts.SetSize(-style.size);
        for (const std::string& face : style.faces) fonts.AddFont(face.c_str());
    }
    m_render.CreateFromDescriptor(fonts, 0, 0, 0);
}

void PromptFace::Shape(std::u16string_view stored, int level)
{
    const CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    m_text = StringW(stored.data(), static_cast<int>(stored.size()));
    m_types.RemoveAll();
    if (manager->IsBIDIEnabled(TRUE)) {
        ReorderToVisual(m_text, m_order, m_types, level);
        if (m_brackets == Brackets::mirrored) MirrorRightToLeft(m_text, m_types);
    }
    m_glyphs.Empty();
    manager->ConvertToGlyphs(m_text, m_text.GetLength(), m_glyphs);
}

// A script has few words, and those many times.
int PromptFace::Width(std::u16string_view stored)
{
    if (stored.size() > longestKept) return Measured(stored);
    if (const auto known = m_widths.find(stored); known != m_widths.end()) return known->second;
    if (m_widths.size() >= mostKept) m_widths.clear();
    return m_widths[std::u16string(stored)] = Measured(stored);
}

int PromptFace::Measured(std::u16string_view stored)
{
    if (stored.empty()) return 0;
    Shape(stored, GetBaseLevel(stored.data(), static_cast<int>(stored.size())));
    m_render.AttachDC(m_measuring);
    const int width = m_render.CalcGlyphStringSize(m_glyphs, m_glyphs.GetLength(), 0).cx;
    m_render.DetachDC();
    return width;
}

void PromptFace::Draw(HDC dc, int x, int baseline, std::u16string_view stored, int level)
{
    if (stored.empty()) return;
    Shape(stored, level);
    SetBkMode(dc, TRANSPARENT); // a line with marks leaves it opaque
    m_render.AttachDC(dc);
    m_render.DrawGlyphString(x, baseline, 0, CRect(), m_glyphs, m_types, m_glyphs.GetLength(), 0);
    m_render.DetachDC();
}

} // namespace prompter
