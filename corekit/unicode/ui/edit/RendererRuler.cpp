#include "corekit/unicode/ui/edit/RendererRuler.h"

#include "corekit/framework/Geometry.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"
#include "corekit/unicode/ui/UniRender.h"

#include <algorithm>

namespace corekit::detail {

namespace {

// Characters. Longer text is measured in pieces: the platform refuses very long ones.
constexpr int longestPiece = 512;
// No letter of any language has so many. The platform's time grows with the square of their number.
constexpr int mostMarks = 32;
constexpr std::size_t mostKept = 4096;

bool isMark(WCHAR c)
{
    constexpr WCHAR first = 0x0300;
    const bool isLater = (c >= 0x1AB0 && c < 0x1B00) || (c >= 0x1DC0 && c < 0x1E00); // than the tables
    return c >= first && (isLater || CUnicodeCharTypes::GetGeneralType(c) == general::Mn);
}

// A piece ends with as many marks as it may have, so that all that follows of them is alike.
int pieceLength(const WCHAR* text, int count)
{
    count = std::min(count, longestPiece);
    int marks = 0;
    for (int i = 0; i < count; ++i) {
        marks = isMark(text[i]) ? marks + 1 : 0;
        if (marks == mostMarks) return i + 1;
    }
    return count;
}

} // namespace

RendererRuler::~RendererRuler()
{
    if (!m_context) return;
    m_renderer.DetachDC();
    DeleteDC(m_context);
}

void RendererRuler::Attach()
{
    if (m_context) return;
    m_context = CreateCompatibleDC(nullptr);
    m_renderer.AttachDC(m_context);
}

int RendererRuler::PieceWidth(const WCHAR* text, int count)
{
    const auto measured = [&] { return m_renderer.CalcLogicalStringSize(text, count, 0).cx; };
    if (count != mostMarks || !std::all_of(text, text + count, isMark)) return measured();
    if (m_markWidths.size() >= mostKept) m_markWidths.clear();
    const auto [kept, isNew] = m_markWidths.try_emplace(std::u16string(text, text + count));
    if (isNew) kept->second = measured();
    return kept->second;
}

int RendererRuler::Width(const WCHAR* text, int count)
{
    Attach();
    int width = 0;
    for (int at = 0; at < count;) {
        const int length = pieceLength(text + at, count - at);
        width = WrapAdd(width, PieceWidth(text + at, length));
        at += length;
    }
    return width;
}

int RendererRuler::Height(const WCHAR* text, int count)
{
    Attach();
    return m_renderer.CalcLogicalStringSize(text, count, 0).cy;
}

} // namespace corekit::detail
