// Full-screen output on a prompting display: the display, surfaces that recover by themselves, palettes.
//
// Thin owners of the platform's interfaces, each with one reference, given up by Delete or Shutdown and not
// by the destructor: an object may outlive its display. Operations need an initialised object, SafeDelete
// apart. Nothing throws; results are the platform's, 0 for success. The thread that drives the display.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/COMPointer.h"
#include "corekit/framework/Geometry.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Displays.h"

class COREKIT_API CDirectDrawPalette : public CObject {
    DECLARE_DYNAMIC(CDirectDrawPalette)
public:
    void AttachInterface(IDirectDrawPalette* palette);
    void Delete();
    void SafeDelete();
    operator IDirectDrawPalette*() const { return m_palette; }

private:
    IDirectDrawPalette* m_palette = nullptr;
};

class COREKIT_API CDirectDrawSurface : public CObject {
    DECLARE_DYNAMIC(CDirectDrawSurface)
public:
    // The answer of the surface when it is asked for its description.
    HRESULT AttachInterface(IDirectDrawSurface3* surface);
    // With it, an operation on a lost surface restores it and is tried once more.
    void SetAutoRestore(int restore) { m_autoRestore = static_cast<DWORD>(restore); }
    HRESULT AttachBackBuffer(CDirectDrawSurface& front, int unused = 0);

    HRESULT BlitFast(int x, int y, CDirectDrawSurface& source, RECT* sourceRect, DWORD flags);
    // From `sourceAt` on, as much as `dest` is large, by a raster operation.
    HRESULT BlitROP(CRect dest, CDirectDrawSurface& source, CPoint sourceAt, DWORD flags, DWORD rop);
    HRESULT Flip(DWORD flags);
    // Null on failure; the result goes to `error` then, unless that is null.
    HDC GetDC(HRESULT* error);
    HRESULT ReleaseDC(HDC dc);
    HRESULT SetPalette(CDirectDrawPalette& palette);
    HRESULT Restore();
    void Delete();
    void SafeDelete();

private:
    template <typename Call>
    HRESULT Recovering(Call call);

    IDirectDrawSurface3* m_surface = nullptr;
    DWORD m_autoRestore = 0;
};

class COREKIT_API CDirectDraw : public CObject {
    DECLARE_DYNAMIC(CDirectDraw)
public:
    // Null: the primary display.
    HRESULT Initialise(GUID* driver);
    HRESULT SetCooperativeLevel(HWND window, DWORD flags);
    HRESULT SetDisplayMode(DWORD width, DWORD height, DWORD bits, DWORD refresh, DWORD flags);
    // What is shown, with one back buffer, whatever number is asked for.
    HRESULT CreateFlipChain(int backBuffers, CDirectDrawSurface& out);
    HRESULT CreateMemorySurface(int width, int height, CDirectDrawSurface& out);
    HRESULT CreatePalette(DWORD flags, PALETTEENTRY* entries, CDirectDrawPalette& out);
    HRESULT WaitForVBlank(DWORD flags);
    void Shutdown();

    static CString GetErrorString(HRESULT code);
    DWORD GetWidth() const { return m_width; } // as SetDisplayMode set them last
    DWORD GetHeight() const { return m_height; }

private:
    HRESULT CreateSurface(DDSURFACEDESC& description, CDirectDrawSurface& out);

    IDirectDraw2* m_directDraw = nullptr;
    DWORD m_width = 0, m_height = 0;
};

struct CDXDisplay {
    GUID m_driver{}; // all 0: the primary display
    CString m_description;
    CString m_name;
};

class COREKIT_API CDXDisplayArray : public CArray<CDXDisplay, const CDXDisplay&> {};

// Binds the display back end for the life of the process; false where there is no display.
COREKIT_API bool dxutil_BindDirectDrawLibrary();
COREKIT_API bool dxutil_CreateDirectDraw(GUID* driver, TCOMPointer<IDirectDraw7>& out);
// The displays of the machine in place of what the array held. The primary one has to come first to be
// listed.
COREKIT_API bool dxutil_EnumDisplays(CDXDisplayArray& out, bool attachedSecondary, bool detachedSecondary);
