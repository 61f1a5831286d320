// A device context as an object.
//
// It owns the handle it holds: what Attach or CreateCompatibleDC brought is deleted by DeleteDC or the
// destructor, unless Detach takes it away first. FromHandle gives a temporary object that owns nothing; use
// it at once. One thread at a time, as the handle itself. The operations are those of the platform; Gdi.h has
// them.
//
// A picture that is drawn in memory first:
//
//     CClientDC screen(this);
//     CDC memory;
//     CBitmap picture;
//     memory.CreateCompatibleDC(&screen);
//     picture.CreateCompatibleBitmap(&screen, 200, 100);
//     CBitmap* const former = memory.SelectObject(&picture);
//     memory.FillSolidRect(0, 0, 200, 100, RGB(0, 0, 0));
//     screen.BitBlt(10, 10, 200, 100, &memory, 0, 0, SRCCOPY);
//     memory.SelectObject(former);
#pragma once

#include "corekit/framework/ui/GdiObject.h"
#include "corekit/platform/Cursors.h"

class COREKIT_API CDC : public CObject {
    DECLARE_DYNAMIC(CDC)

    CDC() = default;
    ~CDC() override;
    // Null for null. The object is reused for other handles once some hundreds are about: use it within the
    // call.
    static CDC* FromHandle(HDC dc);

    // Takes a context over. False, and nothing changes, for a null handle or while another one is held.
    BOOL Attach(HDC dc);
    // Gives the context away; null if there was none.
    HDC Detach();
    BOOL DeleteDC(); // false without a context; what was selected stays the caller's
    // A memory context like that of `like` (may be null), attached. False as Attach, or if it cannot be made.
    BOOL CreateCompatibleDC(CDC* like);

    HDC GetSafeHdc() const { return m_hDC; } // null without a context
    operator HDC() const { return m_hDC; }
    // HORZRES, LOGPIXELSX and their like; 0 for other numbers.
    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }

    // ---- Objects: what was selected before, as a temporary object --------------------------------
    HGDIOBJ SelectObject(HGDIOBJ object) { return ::SelectObject(m_hDC, object); }
    // Null on failure. A null argument selects nothing and fails.
    CPen* SelectObject(CPen* pen) { return CPen::FromHandle(select(pen)); }
    CBrush* SelectObject(CBrush* brush) { return CBrush::FromHandle(select(brush)); }
    CFont* SelectObject(CFont* font) { return CFont::FromHandle(select(font)); }
    CBitmap* SelectObject(CBitmap* bitmap) { return CBitmap::FromHandle(select(bitmap)); }
    // Becomes the clip; the answer is the complexity of what can be drawn on.
    int SelectObject(CRgn* region) { return SelectClipRgn(region); }
    // An object that is always there (WHITE_BRUSH, NULL_PEN ...).
    HGDIOBJ SelectStockObject(int which) { return ::SelectObject(m_hDC, ::GetStockObject(which)); }
    // As temporary objects; what is selected stays the context's.
    CPen* GetCurrentPen() const { return CPen::FromHandle(::GetCurrentObject(m_hDC, OBJ_PEN)); }
    CBrush* GetCurrentBrush() const { return CBrush::FromHandle(::GetCurrentObject(m_hDC, OBJ_BRUSH)); }
    CFont* GetCurrentFont() const { return CFont::FromHandle(::GetCurrentObject(m_hDC, OBJ_FONT)); }
    CBitmap* GetCurrentBitmap() const { return CBitmap::FromHandle(::GetCurrentObject(m_hDC, OBJ_BITMAP)); }

    // ---- Attributes, place and clip --------------------------------------------------------------
    // The number of the kept state, from 1; 0 on failure. The selected bitmap is not kept.
    virtual int SaveDC() { return ::SaveDC(m_hDC); }
    // To that number, or below 0 so many steps back.
    virtual BOOL RestoreDC(int number) { return ::RestoreDC(m_hDC, number); }
    // The former colour, CLR_INVALID on failure.
    virtual COLORREF SetTextColor(COLORREF colour) { return ::SetTextColor(m_hDC, colour); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    // Of opaque text, dotted lines and hatches; answers the former.
    virtual COLORREF SetBkColor(COLORREF colour) { return ::SetBkColor(m_hDC, colour); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    // TRANSPARENT or OPAQUE; answers the former, 0 on failure.
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    int GetBkMode() const { return ::GetBkMode(m_hDC); }
    // TA_ values: which point of the text is the one given to TextOut. Answers the former.
    UINT SetTextAlign(UINT align) { return ::SetTextAlign(m_hDC, align); }
    UINT GetTextAlign() const { return ::GetTextAlign(m_hDC); }
    // COLORONCOLOR or HALFTONE; answers the former.
    int SetStretchBltMode(int mode) { return ::SetStretchBltMode(m_hDC, mode); }
    // The former origin, in units of the surface; (0, 0) on failure.
    CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT p) { return SetViewportOrg(p.x, p.y); }
    // Moves the origin by so many units; answers the former.
    CPoint OffsetViewportOrg(int dx, int dy);
    CPoint GetViewportOrg() const;
    // The smallest rectangle round what can be drawn on; the answer is its complexity (NULLREGION ...).
    int GetClipBox(RECT* box) const { return ::GetClipBox(m_hDC, box); }
    // A copy of it becomes the clip, in units of the surface whatever the origin; null takes the clip off.
    int SelectClipRgn(CRgn* region) { return ::SelectClipRgn(m_hDC, region ? region->m_hObject : nullptr); }
    // Combines it with the clip so far (RGN_).
    int SelectClipRgn(CRgn* region, int mode)
    {
        return ::ExtSelectClipRgn(m_hDC, region ? region->m_hObject : nullptr, mode);
    }
    // Narrows the clip to the rectangle; answers the complexity.
    int IntersectClipRect(int l, int t, int r, int b) { return ::IntersectClipRect(m_hDC, l, t, r, b); }
    int IntersectClipRect(const RECT* r) { return IntersectClipRect(r->left, r->top, r->right, r->bottom); }
    // Takes the rectangle out of the clip.
    int ExcludeClipRect(int l, int t, int r, int b) { return ::ExcludeClipRect(m_hDC, l, t, r, b); }
    int ExcludeClipRect(const RECT* r) { return ExcludeClipRect(r->left, r->top, r->right, r->bottom); }
    // Whether anything there can be drawn on.
    BOOL RectVisible(const RECT* rect) const { return ::RectVisible(m_hDC, rect); }
    BOOL PtVisible(POINT p) const { return ::PtVisible(m_hDC, p.x, p.y); }

    // ---- Lines and areas -------------------------------------------------------------------------
    // Where LineTo goes from.
    CPoint GetCurrentPosition() const;
    // The former position.
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT p) { return MoveTo(p.x, p.y); }
    // With the pen; the end point itself is not drawn and becomes the position.
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL LineTo(POINT p) { return LineTo(p.x, p.y); }
    // Lines through the points; the position stays.
    BOOL Polyline(const POINT* points, int count) { return ::Polyline(m_hDC, points, count); }
    // Filled with the brush, outlined with the pen; the last point is joined to the first.
    BOOL Polygon(const POINT* points, int count) { return ::Polygon(m_hDC, points, count); }
    // Filled and outlined; the right and bottom edge are not part of it.
    BOOL Rectangle(int l, int t, int r, int b) { return ::Rectangle(m_hDC, l, t, r, b); }
    BOOL Rectangle(const RECT* r) { return Rectangle(r->left, r->top, r->right, r->bottom); }
    // Within that rectangle.
    BOOL Ellipse(int l, int t, int r, int b) { return ::Ellipse(m_hDC, l, t, r, b); }
    BOOL Ellipse(const RECT* r) { return Ellipse(r->left, r->top, r->right, r->bottom); }
    // Without the pen; right and bottom edge are not part of it. A null brush draws nothing.
    void FillRect(const RECT* rect, CBrush* brush) { ::FillRect(m_hDC, rect, handleOf(brush)); }
    // A frame one unit wide in the brush.
    void FrameRect(const RECT* rect, CBrush* brush) { ::FrameRect(m_hDC, rect, handleOf(brush)); }
    // Each colour becomes its opposite; twice is as before.
    void InvertRect(const RECT* rect) { ::InvertRect(m_hDC, rect); }
    BOOL FillRgn(CRgn* region, CBrush* brush) { return ::FillRgn(m_hDC, handleOf(region), handleOf(brush)); }
    // The colour that was drawn; CLR_INVALID outside of the clip.
    COLORREF SetPixel(int x, int y, COLORREF colour) { return ::SetPixel(m_hDC, x, y, colour); }
    // CLR_INVALID outside of the clip.
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
    // `edge`: EDGE_ or BDR_; `flags`: BF_. With BF_ADJUST the rectangle becomes what is left within.
    BOOL DrawEdge(RECT* rect, UINT edge, UINT flags) { return ::DrawEdge(m_hDC, rect, edge, flags); }
    // `kind`: DFC_; `state`: DFCS_.
    BOOL DrawFrameControl(RECT* rect, UINT kind, UINT state)
    {
        return ::DrawFrameControl(m_hDC, rect, kind, state);
    }
    // A dotted frame; a second call at the same place takes it away.
    void DrawFocusRect(const RECT* rect) { ::DrawFocusRect(m_hDC, rect); }
    // As large as the system's icons, 32 by 32 units, its upper left corner at the point.
    BOOL DrawIcon(int x, int y, HICON icon) { return ::DrawIcon(m_hDC, x, y, icon); }

    // ---- Copying ---------------------------------------------------------------------------------
    // The brush alone: PATCOPY, DSTINVERT and others without a source.
    BOOL PatBlt(int x, int y, int width, int height, DWORD operation)
    {
        return ::PatBlt(m_hDC, x, y, width, height, operation);
    }
    // `operation`: SRCCOPY or another raster operation. Within one context areas may overlap.
    BOOL BitBlt(int x, int y, int width, int height, CDC* from, int fromX, int fromY, DWORD operation)
    {
        return ::BitBlt(m_hDC, x, y, width, height, from ? from->m_hDC : nullptr, fromX, fromY, operation);
    }
    // To another size; a width or height below 0 mirrors.
    BOOL StretchBlt(int x, int y, int width, int height, CDC* from, int fromX, int fromY, int fromWidth,
                    int fromHeight, DWORD operation)
    {
        return ::StretchBlt(m_hDC, x, y, width, height, from ? from->m_hDC : nullptr, fromX, fromY, fromWidth,
                            fromHeight, operation);
    }

    // ---- Text ------------------------------------------------------------------------------------
    // Of the selected font, in units.
    BOOL GetTextMetrics(TEXTMETRICA* metrics) const { return ::GetTextMetricsA(m_hDC, metrics); }
    // `count` bytes in the active code page, at the point that the alignment names.
    BOOL TextOut(int x, int y, const char* text, int count) { return ::TextOutA(m_hDC, x, y, text, count); }
    BOOL TextOut(int x, int y, const CString& text) { return TextOut(x, y, text, text.GetLength()); }
    // `options`: ETO_. `distances`, if not null, has an advance in units for each byte, and is not used
    // where a character has several.
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const char* text, UINT count,
                    const int* distances)
    {
        return ::ExtTextOutA(m_hDC, x, y, options, rect, text, count, distances);
    }
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text, const int* distances)
    {
        return ExtTextOut(x, y, options, rect, text, static_cast<UINT>(text.GetLength()), distances);
    }
    // Within the rectangle, by DT_ flags; answers the height. A count below 0 means up to the terminating
    // zero.
    virtual int DrawText(const char* text, int count, RECT* rect, UINT format)
    {
        return ::DrawTextA(m_hDC, text, count, rect, format);
    }
    int DrawText(const CString& text, RECT* rect, UINT format)
    {
        return DrawText(static_cast<const char*>(text), text.GetLength(), rect, format);
    }
    // What TextOut takes: the width, and the height of the font's cell; 0 by 0 on failure.
    CSize GetTextExtent(const char* text, int count) const;
    CSize GetTextExtent(const CString& text) const { return GetTextExtent(text, text.GetLength()); }

    HDC m_hDC = nullptr; // owned unless this is a temporary object

private:
    static HGDIOBJ handleOf(const CGdiObject* object) { return object ? object->m_hObject : nullptr; }
    HGDIOBJ select(const CGdiObject* object) { return ::SelectObject(m_hDC, handleOf(object)); }
};
