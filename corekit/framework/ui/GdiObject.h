// Pens, brushes, fonts, bitmaps and regions as objects.
//
// Each owns the handle it holds: what Attach or a Create call brought is deleted by DeleteObject or the
// destructor, unless Detach takes it away first. FromHandle gives a temporary object that owns nothing; use
// it at once. One thread at a time, as the handles themselves; FromHandle on the user-interface thread.
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
    ~CGdiObject() override;

    // Takes an object over. False, and nothing changes, for null or while another one is held.
    BOOL Attach(HGDIOBJ object);
    HGDIOBJ Detach();
    BOOL DeleteObject();
    BOOL CreateStockObject(int which) { return Attach(::GetStockObject(which)); }
    int GetObject(int size, void* out) const { return ::GetObjectA(m_hObject, size, out); }

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    operator HGDIOBJ() const { return m_hObject; }

    HGDIOBJ m_hObject = nullptr;
};

class COREKIT_API CPen : public CGdiObject {
    DECLARE_DYNAMIC(CPen)

    CPen() = default;
    CPen(int style, int width, COLORREF colour) { CreatePen(style, width, colour); }
    static CPen* FromHandle(HPEN pen);
    BOOL CreatePen(int style, int width, COLORREF colour)
    {
        return Attach(::CreatePen(style, width, colour));
    }
};

class COREKIT_API CBrush : public CGdiObject {
    DECLARE_DYNAMIC(CBrush)

    CBrush() = default;
    explicit CBrush(COLORREF colour) { CreateSolidBrush(colour); }
    CBrush(int hatch, COLORREF colour) { CreateHatchBrush(hatch, colour); }
    explicit CBrush(CBitmap* pattern) { CreatePatternBrush(pattern); }
    static CBrush* FromHandle(HBRUSH brush);
    BOOL CreateSolidBrush(COLORREF colour) { return Attach(::CreateSolidBrush(colour)); }
    BOOL CreateHatchBrush(int hatch, COLORREF colour) { return Attach(::CreateHatchBrush(hatch, colour)); }
    BOOL CreatePatternBrush(CBitmap* pattern);
    BOOL CreateSysColorBrush(int index) { return CreateSolidBrush(::GetSysColor(index)); }
};

class COREKIT_API CFont : public CGdiObject {
    DECLARE_DYNAMIC(CFont)

    CFont() = default;
    static CFont* FromHandle(HFONT font);
    BOOL CreateFontIndirect(const LOGFONTA* font) { return Attach(::CreateFontIndirectA(font)); }
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
    int GetLogFont(LOGFONTA* font) const { return GetObject(sizeof(LOGFONTA), font); }
};

class COREKIT_API CBitmap : public CGdiObject {
    DECLARE_DYNAMIC(CBitmap)

    CBitmap() = default;
    static CBitmap* FromHandle(HBITMAP bitmap);
    // From the resource of that number or name, as LoadBitmapA finds it.
    BOOL LoadBitmap(UINT id);
    BOOL LoadBitmap(const char* name);
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
    {
        return Attach(::CreateBitmap(width, height, planes, bitsPerPixel, bits));
    }
    BOOL CreateCompatibleBitmap(CDC* like, int width, int height);
    int GetBitmap(BITMAP* facts) const { return GetObject(sizeof(BITMAP), facts); }
};

class COREKIT_API CRgn : public CGdiObject {
    DECLARE_DYNAMIC(CRgn)

    CRgn() = default;
    static CRgn* FromHandle(HRGN region);
    BOOL CreateRectRgn(int left, int top, int right, int bottom)
    {
        return Attach(::CreateRectRgn(left, top, right, bottom));
    }
    BOOL CreateRectRgnIndirect(const RECT* r) { return CreateRectRgn(r->left, r->top, r->right, r->bottom); }
    BOOL SetRectRgn(const RECT* r) { return ::SetRectRgn(m_hObject, r->left, r->top, r->right, r->bottom); }
    int CombineRgn(const CRgn* first, const CRgn* second, int mode)
    {
        return ::CombineRgn(m_hObject, first->m_hObject, second ? second->m_hObject : nullptr, mode);
    }
    int CopyRgn(const CRgn* from) { return CombineRgn(from, nullptr, RGN_COPY); }
    BOOL EqualRgn(const CRgn* other) const { return ::EqualRgn(m_hObject, other->m_hObject); }
    int OffsetRgn(int dx, int dy) { return ::OffsetRgn(m_hObject, dx, dy); }
    int GetRgnBox(RECT* box) const { return ::GetRgnBox(m_hObject, box); }
    BOOL PtInRegion(POINT p) const { return ::PtInRegion(m_hObject, p.x, p.y); }
    BOOL RectInRegion(const RECT* rect) const { return ::RectInRegion(m_hObject, rect); }
};
