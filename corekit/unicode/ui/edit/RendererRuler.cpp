#include "corekit/unicode/ui/edit/RendererRuler.h"

#include "corekit/framework/Geometry.h"
#include "corekit/unicode/ui/UniRender.h"

#include <algorithm>

namespace corekit::detail {

namespace {

// Characters. Longer text is measured in pieces: the platform refuses very long ones, and takes its time over
// hundreds of marks on one letter.
constexpr int longestPiece = 512;

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

int RendererRuler::Width(const WCHAR* text, int count)
{
    Attach();
    int width = 0;
    for (int at = 0; at < count; at += longestPiece)
        width = WrapAdd(
            width, m_renderer.CalcLogicalStringSize(text + at, std::min(count - at, longestPiece), 0).cx);
    return width;
}

int RendererRuler::Height(const WCHAR* text, int count)
{
    Attach();
    return m_renderer.CalcLogicalStringSize(text, count, 0).cy;
}

} // namespace corekit::detail
