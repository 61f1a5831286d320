// A device context as an object.
//
// It owns the handle it holds: what Attach or CreateCompatibleDC brought is deleted by DeleteDC or the
// destructor, unless Detach takes it away first. FromHandle gives a temporary object that owns nothing; use
// it at once. One thread at a time, as the handle itself. The operations are those of the platform; Gdi.h has
// them.
#pragma once

#include "corekit/framework/ui/GdiObject.h"
#include "corekit/platform/Cursors.h"

class COREKIT_API CDC : public CObject {
    DECLARE_DYNAMIC(CDC)

    CDC() = default;
    ~CDC() override;
    static CDC* FromHandle(HDC dc);

    // Takes a context over. False, and nothing changes, for a null handle or while another one is held.
    BOOL Attach(HDC dc);
    // Gives the context away; null if there was none.
    HDC Detach();
    BOOL DeleteDC();
    // A memory context like that of `like` (may be null), attached. False as Attach, or if it cannot be made.
    BOOL CreateCompatibleDC(CDC* like);

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }
    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }

    // ---- Objects: what was selected before, as a temporary object --------------------------------
    HGDIOBJ SelectObject(HGDIOBJ object) { return ::SelectObject(m_hDC, object); }
    CPen* SelectObject(CPen* pen) { return CPen::FromHandle(select(pen)); }
    CBrush* SelectObject(CBrush* brush) { return CBrush::FromHandle(select(brush)); }
    CFont* SelectObject(CFont* font) { return CFont::FromHandle(select(font)); }
    CBitmap* SelectObject(CBitmap* bitmap) { return CBitmap::FromHandle(select(bitmap)); }
    int SelectObject(CRgn* region) { return SelectClipRgn(region); }
    HGDIOBJ SelectStockObject(int which) { return ::SelectObject(m_hDC, ::GetStockObject(which)); }
    CPen* GetCurrentPen() const { return CPen::FromHandle(::GetCurrentObject(m_hDC, OBJ_PEN)); }
    CBrush* GetCurrentBrush() const { return CBrush::FromHandle(::GetCurrentObject(m_hDC, OBJ_BRUSH)); }
    CFont* GetCurrentFont() const { return CFont::FromHandle(::GetCurrentObject(m_hDC, OBJ_FONT)); }
    CBitmap* GetCurrentBitmap() const { return CBitmap::FromHandle(::GetCurrentObject(m_hDC, OBJ_BITMAP)); }

    // ---- Attributes, place and clip --------------------------------------------------------------
    virtual int SaveDC() { return ::SaveDC(m_hDC); }
    virtual BOOL RestoreDC(int number) { return ::RestoreDC(m_hDC, number); }
    virtual COLORREF SetTextColor(COLORREF colour) { return ::SetTextColor(m_hDC, colour); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    virtual COLORREF SetBkColor(COLORREF colour) { return ::SetBkColor(m_hDC, colour); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    int GetBkMode() const { return ::GetBkMode(m_hDC); }
    UINT SetTextAlign(UINT align) { return ::SetTextAlign(m_hDC, align); }
    UINT GetTextAlign() const { return ::GetTextAlign(m_hDC); }
    int SetStretchBltMode(int mode) { return ::SetStretchBltMode(m_hDC, mode); }
    CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT p) { return SetViewportOrg(p.x, p.y); }
    CPoint OffsetViewportOrg(int dx, int dy);
    CPoint GetViewportOrg() const;
    int GetClipBox(RECT* box) const { return ::GetClipBox(m_hDC, box); }
    int SelectClipRgn(CRgn* region) { return ::SelectClipRgn(m_hDC, region ? region->m_hObject : nullptr); }
    int SelectClipRgn(CRgn* region, int mode)
    {
        return ::ExtSelectClipRgn(m_hDC, region ? region->m_hObject : nullptr, mode);
    }
    int IntersectClipRect(int l, int t, int r, int b) { return ::IntersectClipRect(m_hDC, l, t, r, b); }
    int IntersectClipRect(const RECT* r) { return IntersectClipRect(r->left, r->top, r->right, r->bottom); }
    int ExcludeClipRect(int l, int t, int r, int b) { return ::ExcludeClipRect(m_hDC, l, t, r, b); }
    int ExcludeClipRect(const RECT* r) { return ExcludeClipRect(r->left, r->top, r->right, r->bottom); }
    BOOL RectVisible(const RECT* rect) const { return ::RectVisible(m_hDC, rect); }
    BOOL PtVisible(POINT p) const { return ::PtVisible(m_hDC, p.x, p.y); }

    // ---- Lines and areas -------------------------------------------------------------------------
    CPoint GetCurrentPosition() const;
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT p) { return MoveTo(p.x, p.y); }
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL LineTo(POINT p) { return LineTo(p.x, p.y); }
    BOOL Polyline(const POINT* points, int count) { return ::Polyline(m_hDC, points, count); }
    BOOL Polygon(const POINT* points, int count) { return ::Polygon(m_hDC, points, count); }
    BOOL Rectangle(int l, int t, int r, int b) { return ::Rectangle(m_hDC, l, t, r, b); }
    BOOL Rectangle(const RECT* r) { return Rectangle(r->left, r->top, r->right, r->bottom); }
    BOOL Ellipse(int l, int t, int r, int b) { return ::Ellipse(m_hDC, l, t, r, b); }
    BOOL Ellipse(const RECT* r) { return Ellipse(r->left, r->top, r->right, r->bottom); }
    void FillRect(const RECT* rect, CBrush* brush) { ::FillRect(m_hDC, rect, handleOf(brush)); }
    void FrameRect(const RECT* rect, CBrush* brush) { ::FrameRect(m_hDC, rect, handleOf(brush)); }
    void InvertRect(const RECT* rect) { ::InvertRect(m_hDC, rect); }
    BOOL FillRgn(CRgn* region, CBrush* brush) { return ::FillRgn(m_hDC, handleOf(region), handleOf(brush)); }
    COLORREF SetPixel(int x, int y, COLORREF colour) { return ::SetPixel(m_hDC, x, y, colour); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    COLORREF GetPixel(POINT p) const { return GetPixel(p.x, p.y); }
    // Fills with one colour, which becomes the background colour.
    void FillSolidRect(const RECT* rect, COLORREF colour);
    void FillSolidRect(int x, int y, int width, int height, COLORREF colour);
    // A frame one pixel wide: left and upper side in one colour, right and lower side in the other. The
    // background colour becomes the second.
    void Draw3dRect(const RECT* rect, COLORREF topLeft, COLORREF bottomRight);
    void Draw3dRect(int x, int y, int width, int height, COLORREF topLeft, COLORREF bottomRight);

    // ---- Frames and icons ------------------------------------------------------------------------
    BOOL DrawEdge(RECT* rect, UINT edge, UINT flags) { return ::DrawEdge(m_hDC, rect, edge, flags); }
    BOOL DrawFrameControl(RECT* rect, UINT kind, UINT state)
    {
        return ::DrawFrameControl(m_hDC, rect, kind, state);
    }
    void DrawFocusRect(const RECT* rect) { ::DrawFocusRect(m_hDC, rect); }
    BOOL DrawIcon(int x, int y, HICON icon) { return ::DrawIcon(m_hDC, x, y, icon); }

    // ---- Copying ---------------------------------------------------------------------------------
    BOOL PatBlt(int x, int y, int width, int height, DWORD operation)
    {
        return ::PatBlt(m_hDC, x, y, width, height, operation);
    }
    BOOL BitBlt(int x, int y, int width, int height, CDC* from, int fromX, int fromY, DWORD operation)
    {
        return ::BitBlt(m_hDC, x, y, width, height, from ? from->m_hDC : nullptr, fromX, fromY, operation);
    }
    BOOL StretchBlt(int x, int y, int width, int height, CDC* from, int fromX, int fromY, int fromWidth,
                    int fromHeight, DWORD operation)
    {
        return ::StretchBlt(m_hDC, x, y, width, height, from ? from->m_hDC : nullptr, fromX, fromY, fromWidth,
                            fromHeight, operation);
    }

    // ---- Text ------------------------------------------------------------------------------------
    BOOL GetTextMetrics(TEXTMETRICA* metrics) const { return ::GetTextMetricsA(m_hDC, metrics); }
    BOOL TextOut(int x, int y, const char* text, int count) { return ::TextOutA(m_hDC, x, y, text, count); }
    BOOL TextOut(int x, int y, const CString& text) { return TextOut(x, y, text, text.GetLength()); }
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const char* text, UINT count,
                    const int* distances)
    {
        return ::ExtTextOutA(m_hDC, x, y, options, rect, text, count, distances);
    }
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text, const int* distances)
    {
        return ExtTextOut(x, y, options, rect, text, static_cast<UINT>(text.GetLength()), distances);
    }
    virtual int DrawText(const char* text, int count, RECT* rect, UINT format)
    {
        return ::DrawTextA(m_hDC, text, count, rect, format);
    }
    int DrawText(const CString& text, RECT* rect, UINT format)
    {
        return DrawText(static_cast<const char*>(text), text.GetLength(), rect, format);
    }
    CSize GetTextExtent(const char* text, int count) const;
    CSize GetTextExtent(const CString& text) const { return GetTextExtent(text, text.GetLength()); }

    HDC m_hDC = nullptr;

private:
    static HGDIOBJ handleOf(const CGdiObject* object) { return object ? object->m_hObject : nullptr; }
    HGDIOBJ select(const CGdiObject* object) { return ::SelectObject(m_hDC, handleOf(object)); }
};
