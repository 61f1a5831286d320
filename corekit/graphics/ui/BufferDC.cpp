#include "corekit/graphics/ui/BufferDC.h"

IMPLEMENT_DYNAMIC(CBufferDC, CDC)

CBufferDC::CBufferDC(CDC* target, CRect rect, int blitOnDestruction)
    : m_target(target), m_rect(rect), m_blitOnDestruction(blitOnDestruction), m_before(nullptr)
{
    CreateCompatibleDC(target);
    m_bitmap.CreateCompatibleBitmap(target, rect.Width(), rect.Height());
    if (m_bitmap.m_hObject) m_before = CDC::SelectObject(m_bitmap.m_hObject);
}

CBufferDC::~CBufferDC()
{
    if (m_blitOnDestruction) BlitToScreen();
    if (m_before) CDC::SelectObject(m_before);
}

void CBufferDC::BlitToScreen()
{
    if (!m_target) return;
    m_target->BitBlt(m_rect.left, m_rect.top, m_rect.right, m_rect.bottom, this, 0, 0, SRCCOPY);
}
