#include "corekit/unicode/ui/edit/RendererRuler.h"

#include "corekit/framework/Geometry.h"
#include "corekit/unicode/ui/MarkCounter.h"
#include "corekit/unicode/ui/UniRender.h"

#include <algorithm>

namespace corekit::detail {

namespace {

// Characters. Longer text is measured in pieces: the platform refuses very long ones.
constexpr int longestPiece = 512;
constexpr std::size_t mostKept = 4096;

int pieceLength(const WCHAR* text, int count)
{
    count = std::min(count, longestPiece);
    MarkCounter marks;
    for (int i = 0; i < count; ++i)
        if (marks.IsFullWith(text[i])) return i + 1;
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
    if (count != MarkCounter::full || !std::all_of(text, text + count, MarkCounter::IsMark))
        return measured();
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
        width = wrapAdd(width, PieceWidth(text + at, length));
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
