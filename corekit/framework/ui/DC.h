// A device context as an object.
//
// It owns the handle it holds: what Attach or CreateCompatibleDC brought is deleted by DeleteDC or the
// destructor, unless Detach takes it away first. One thread at a time, as the handle itself.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/Gdi.h"

class COREKIT_API CDC : public CObject {
    DECLARE_DYNAMIC(CDC)

    CDC() = default;
    ~CDC() override;

    // Takes a context over. False, and nothing changes, for a null handle or while another one is held.
    BOOL Attach(HDC dc);
    // Gives the context away; null if there was none.
    HDC Detach();
    BOOL DeleteDC();
    // A memory context like that of `like` (may be null), attached. False as Attach, or if it cannot be made.
    BOOL CreateCompatibleDC(CDC* like);

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }

    HGDIOBJ SelectObject(HGDIOBJ object) { return ::SelectObject(m_hDC, object); }
    COLORREF SetTextColor(COLORREF colour) { return ::SetTextColor(m_hDC, colour); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF SetBkColor(COLORREF colour) { return ::SetBkColor(m_hDC, colour); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    UINT SetTextAlign(UINT align) { return ::SetTextAlign(m_hDC, align); }
    BOOL GetTextMetrics(TEXTMETRICA* metrics) const { return ::GetTextMetricsA(m_hDC, metrics); }

    // Fills with one colour, which becomes the background colour.
    void FillSolidRect(const RECT* rect, COLORREF colour);
    void FillSolidRect(int x, int y, int width, int height, COLORREF colour);

    HDC m_hDC = nullptr;
};
