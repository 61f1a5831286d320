// Pens, brushes, fonts, bitmaps and regions as objects.
//
// Each owns the handle it holds: what Attach or a Create call brought is deleted by DeleteObject or the
// destructor, unless Detach takes it away first. FromHandle gives a temporary object that owns nothing; use
// it at once. One thread at a time, as the handles themselves; FromHandle on the user-interface thread.
//
//     CPen red(PS_SOLID, 1, RGB(255, 0, 0));
//     CPen* const former = dc.SelectObject(&red);
//     dc.MoveTo(0, 0);
//     dc.LineTo(100, 0);
//     dc.SelectObject(former); // before `red` goes
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/SystemColours.h"

class CBitmap;
class CDC;

class COREKIT_API CGdiObject : public CObject {
    DECLARE_DYNAMIC(CGdiObject)

    CGdiObject() = default;
    // Deletes the object that it still holds.
    ~CGdiObject() override;

    // Takes an object over. False, and nothing changes, for null or while another one is held.
    BOOL Attach(HGDIOBJ object);
    // Gives the object away; null if there was none.
    HGDIOBJ Detach();
    // False without an object. One that is selected into a context is treated as ::DeleteObject says.
    BOOL DeleteObject();
    // An object that is always there; deleting it does nothing.
    BOOL CreateStockObject(int which) { return Attach(::GetStockObject(which)); }
    // Describes it (BITMAP, LOGFONTA, LOGPEN, LOGBRUSH): the bytes written, 0 if `size` is less; for null
    // the size needed.
    int GetObject(int size, void* out) const { return ::GetObjectA(m_hObject, size, out); }

    // Null without an object.
    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    operator HGDIOBJ() const { return m_hObject; }

    HGDIOBJ m_hObject = nullptr; // owned unless this is a temporary object
};

// Lines and outlines.
class COREKIT_API CPen : public CGdiObject {
    DECLARE_DYNAMIC(CPen)

    CPen() = default;
    // Holds nothing if the pen cannot be made, as the other constructors with arguments.
    CPen(int style, int width, COLORREF colour) { CreatePen(style, width, colour); }
    // Null for null.
    static CPen* FromHandle(HPEN pen);
    // PS_ style, width in units. False while it holds another pen, and for a style or width that does not
    // exist.
    BOOL CreatePen(int style, int width, COLORREF colour)
    {
        return Attach(::CreatePen(style, width, colour));
    }
};

// What areas are filled with.
class COREKIT_API CBrush : public CGdiObject {
    DECLARE_DYNAMIC(CBrush)

    CBrush() = default;
    explicit CBrush(COLORREF colour) { CreateSolidBrush(colour); }
    CBrush(int hatch, COLORREF colour) { CreateHatchBrush(hatch, colour); }
    // Copies the bitmap, which may go afterwards.
    explicit CBrush(CBitmap* pattern) { CreatePatternBrush(pattern); }
    static CBrush* FromHandle(HBRUSH brush);
    BOOL CreateSolidBrush(COLORREF colour) { return Attach(::CreateSolidBrush(colour)); }
    // HS_ lines eight pixels apart, on the background colour where the context's mode is OPAQUE.
    BOOL CreateHatchBrush(int hatch, COLORREF colour) { return Attach(::CreateHatchBrush(hatch, colour)); }
    // Repeats the bitmap; null fails.
    BOOL CreatePatternBrush(CBitmap* pattern);
    // COLOR_ number; keeps its colour when the desktop's changes.
    BOOL CreateSysColorBrush(int index) { return CreateSolidBrush(::GetSysColor(index)); }
};

// User-interface thread, as all text.
class COREKIT_API CFont : public CGdiObject {
    DECLARE_DYNAMIC(CFont)

    CFont() = default;
    static CFont* FromHandle(HFONT font);
    // An unknown face gives the default one. False if the toolkit is not running.
    BOOL CreateFontIndirect(const LOGFONTA* font) { return Attach(::CreateFontIndirectA(font)); }
    // Height above 0 is the cell's, below 0 the em's, in units. Charset, precisions, quality and pitch
    // choose nothing.
    BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                    BYTE underline, BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision,
                    BYTE quality, BYTE pitchAndFamily, const char* face)
    {
        return Attach(::CreateFontA(height, width, escapement, orientation, weight, italic, underline,
                                    strikeOut, charSet, outPrecision, clipPrecision, quality, pitchAndFamily,
                                    face));
    }
    // A font of so many tenths of a point; without a context 96 pixels are an inch.
    BOOL CreatePointFont(int tenths, const char* face, CDC* dc = nullptr);
    // The face asked for, cut to 31 bytes; the bytes written.
    int GetLogFont(LOGFONTA* font) const { return GetObject(sizeof(LOGFONTA), font); }
};

// A picture; selected into one context at a time.
class COREKIT_API CBitmap : public CGdiObject {
    DECLARE_DYNAMIC(CBitmap)

    CBitmap() = default;
    static CBitmap* FromHandle(HBITMAP bitmap);
    // From the resource of that number or name, as LoadBitmapA finds it.
    BOOL LoadBitmap(UINT id);
    BOOL LoadBitmap(const char* name);
    // 1 or 32 bits a pixel, one plane. `bits` may be null.
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
    {
        return Attach(::CreateBitmap(width, height, planes, bitsPerPixel, bits));
    }
    // 32 bits a pixel; on a display of higher resolution as many pixels as the context's surface has. All 0.
    BOOL CreateCompatibleBitmap(CDC* like, int width, int height);
    // Width, height and bits a pixel; the bytes written.
    int GetBitmap(BITMAP* facts) const { return GetObject(sizeof(BITMAP), facts); }
};

// A set of whole units. Operations that answer int give its complexity: ERROR_REGION, NULLREGION,
// SIMPLEREGION or COMPLEXREGION.
class COREKIT_API CRgn : public CGdiObject {
    DECLARE_DYNAMIC(CRgn)

    CRgn() = default;
    static CRgn* FromHandle(HRGN region);
    // Edges in any order.
    BOOL CreateRectRgn(int left, int top, int right, int bottom)
    {
        return Attach(::CreateRectRgn(left, top, right, bottom));
    }
    BOOL CreateRectRgnIndirect(const RECT* r) { return CreateRectRgn(r->left, r->top, r->right, r->bottom); }
    // Replaces what the region, which must exist, holds.
    BOOL SetRectRgn(const RECT* r) { return ::SetRectRgn(m_hObject, r->left, r->top, r->right, r->bottom); }
    // Sets this region, which must exist and may be one of the two; `mode` is RGN_. Null for `second` where
    // the mode needs none.
    int CombineRgn(const CRgn* first, const CRgn* second, int mode)
    {
        return ::CombineRgn(m_hObject, first->m_hObject, second ? second->m_hObject : nullptr, mode);
    }
    int CopyRgn(const CRgn* from) { return CombineRgn(from, nullptr, RGN_COPY); }
    // The same units.
    BOOL EqualRgn(const CRgn* other) const { return ::EqualRgn(m_hObject, other->m_hObject); }
    // Moves it.
    int OffsetRgn(int dx, int dy) { return ::OffsetRgn(m_hObject, dx, dy); }
    // The smallest rectangle round it.
    int GetRgnBox(RECT* box) const { return ::GetRgnBox(m_hObject, box); }
    // Whether the unit belongs to it.
    BOOL PtInRegion(POINT p) const { return ::PtInRegion(m_hObject, p.x, p.y); }
    // Whether any unit of the rectangle does.
    BOOL RectInRegion(const RECT* rect) const { return ::RectInRegion(m_hObject, rect); }
};
