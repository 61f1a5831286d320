#include "view/FrameBuffer.h"

#include "corekit/platform/Gdi.h"

#include <utility>

namespace prompter {

bool FrameBuffer::Resize(SIZE size)
{
    if (m_dc && size.cx == m_size.cx && size.cy == m_size.cy) return true;
    Free();
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    if (size.cx > 0 && size.cy > 0)
        m_bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!m_bitmap) return false;
    m_dc = CreateCompatibleDC(nullptr);
    if (!SelectObject(m_dc, m_bitmap)) {
        Free();
        return false;
    }
    m_pixels = static_cast<std::uint32_t*>(bits);
    m_size = size;
    return true;
}

std::span<std::uint32_t> FrameBuffer::Pixels() const
{
    return {m_pixels, static_cast<std::size_t>(m_size.cx) * static_cast<std::size_t>(m_size.cy)};
}

void FrameBuffer::Free()
{
    if (m_dc) DeleteDC(std::exchange(m_dc, nullptr));
    if (m_bitmap) DeleteObject(std::exchange(m_bitmap, nullptr));
    m_pixels = nullptr;
    m_size = {0, 0};
}

} // namespace prompter
