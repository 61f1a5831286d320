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

// A palette, made by CDirectDraw::CreatePalette and given to a surface.
class COREKIT_API CDirectDrawPalette : public CObject {
    DECLARE_DYNAMIC(CDirectDrawPalette)
public:
    // Takes a reference of its own, and gives that of the interface before up.
    void AttachInterface(IDirectDrawPalette* palette);
    // Gives the reference up; afterwards the object may be used for another interface. SafeDelete may also
    // be called on an object that has none.
    void Delete();
    void SafeDelete();

    operator IDirectDrawPalette*() const { return m_palette; }

private:
    IDirectDrawPalette* m_palette = nullptr;
};

// A rectangle of pixels that can be shown or copied from. A surface may be lost to another program that
// takes the display; its operations then give DDERR_SURFACELOST until it is restored.
class COREKIT_API CDirectDrawSurface : public CObject {
    DECLARE_DYNAMIC(CDirectDrawSurface)
public:
    // Takes a reference of its own. The answer of the surface when it is asked for its description.
    HRESULT AttachInterface(IDirectDrawSurface3* surface);
    // With a value other than 0 an operation on a lost surface restores it and is tried once more; its
    // pixels are lost all the same. Off at first.
    void SetAutoRestore(int restore) { m_autoRestore = static_cast<DWORD>(restore); }
    // Becomes the back buffer of a flip chain's front surface, with its own reference and without
    // auto-restore.
    HRESULT AttachBackBuffer(CDirectDrawSurface& front, int unused = 0);

    // Copies a rectangle of the source, null being all of it, to (x, y) in pixels, where it must fit.
    // `flags` pass to the platform as they are, here and below.
    HRESULT BlitFast(int x, int y, CDirectDrawSurface& source, RECT* sourceRect, DWORD flags);
    // From `sourceAt` on, as much as `dest` is large, by a raster operation.
    HRESULT BlitROP(CRect dest, CDirectDrawSurface& source, CPoint sourceAt, DWORD flags, DWORD rop);
    // Shows the back buffer of a front surface, and makes what was shown the back buffer.
    HRESULT Flip(DWORD flags);
    // A device context on the surface, to be given back by ReleaseDC before any other operation. Null on
    // failure; the result goes to `error` then, unless that is null.
    HDC GetDC(HRESULT* error);
    HRESULT ReleaseDC(HDC dc);
    // The surface holds a reference of its own from now on, in place of the palette that it had.
    HRESULT SetPalette(CDirectDrawPalette& palette);

    HRESULT Restore(); // makes a lost surface usable; its pixels are undefined
    void Delete();
    void SafeDelete();

private:
    // Runs the operation, and once more after Restore where that is asked for.
    template <typename Call>
    HRESULT Recovering(Call call);

    IDirectDrawSurface3* m_surface = nullptr;
    DWORD m_autoRestore = 0;
};

// One display. Surfaces and palettes that it made may outlive it.
class COREKIT_API CDirectDraw : public CObject {
    DECLARE_DYNAMIC(CDirectDraw)
public:
    // Opens the display of that identifier, as dxutil_EnumDisplays gives it; null is the primary one. An
    // object that is initialised must be shut down first.
    HRESULT Initialise(GUID* driver);
    // Claims the display for a window; `flags` are DDSCL_, DDSCL_EXCLUSIVE with DDSCL_FULLSCREEN for
    // full-screen output.
    HRESULT SetCooperativeLevel(HWND window, DWORD flags);
    // Pixels, bits a pixel, and refreshes a second with 0 for any. The display must have been claimed for
    // this program alone.
    HRESULT SetDisplayMode(DWORD width, DWORD height, DWORD bits, DWORD refresh, DWORD flags);
    // Makes `out` what is shown, with one back buffer, whatever number is asked for.
    HRESULT CreateFlipChain(int backBuffers, CDirectDrawSurface& out);
    // Makes `out` an off-screen surface of that many pixels, in the format of the display.
    HRESULT CreateMemorySurface(int width, int height, CDirectDrawSurface& out);
    // A palette of the 256 entries, which are copied. The display must have been claimed before.
    HRESULT CreatePalette(DWORD flags, PALETTEENTRY* entries, CDirectDrawPalette& out);

    HRESULT WaitForVBlank(DWORD flags); // blocks until the display's vertical blank
    void Shutdown();                    // gives the display up

    static CString GetErrorString(HRESULT code); // the name of a result for a log or a message box
    DWORD GetWidth() const { return m_width; }   // as SetDisplayMode set them last
    DWORD GetHeight() const { return m_height; }

private:
    HRESULT CreateSurface(DDSURFACEDESC& description, CDirectDrawSurface& out);

    IDirectDraw2* m_directDraw = nullptr;
    DWORD m_width = 0, m_height = 0;
};

// One display of the machine, as dxutil_EnumDisplays lists it.
struct CDXDisplay {
    GUID m_driver{};       // all 0: the primary display
    CString m_description; // for the user
    CString m_name;        // of the system's device
};

class COREKIT_API CDXDisplayArray : public CArray<CDXDisplay, const CDXDisplay&> {};

// Binds the display back end for the life of the process; false where there is no display. The two
// functions below do it themselves.
COREKIT_API bool dxutil_BindDirectDrawLibrary();
// The interface of a display, null being the primary one; false when it cannot be had.
COREKIT_API bool dxutil_CreateDirectDraw(GUID* driver, TCOMPointer<IDirectDraw7>& out);
// The displays of the machine in place of what the array held. The primary one has to come first to be
// listed.
COREKIT_API bool dxutil_EnumDisplays(CDXDisplayArray& out, bool attachedSecondary, bool detachedSecondary);
