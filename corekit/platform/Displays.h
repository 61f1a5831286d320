// Full-screen output: displays, surfaces in their memory, palettes.
//
// The interfaces are those of a back end: the window library brings one that drives the screens of the
// toolkit, and ScriptedDisplays.h has one for tests. All of it belongs to the thread that drives the display,
// for the former the user-interface thread. Failures are HRESULT values below 0.
#pragma once

#include "corekit/platform/Com.h"

// The class for CoCreateInstance, then interfaces.
inline constexpr GUID CLSID_DirectDraw = {
    0xD7B70EE0, 0x4340, 0x11CF, {0xB0, 0x63, 0x00, 0x20, 0xAF, 0xC2, 0xCD, 0x35}};
inline constexpr GUID IID_IDirectDraw2 = {
    0xB3A6F3E0, 0x2B43, 0x11CF, {0xA2, 0xDE, 0x00, 0xAA, 0x00, 0xB9, 0x33, 0x56}};
inline constexpr GUID IID_IDirectDraw7 = {
    0x15E65EC0, 0x3B9C, 0x11D2, {0xB9, 0x2F, 0x00, 0x60, 0x97, 0x97, 0xEA, 0x5B}};
inline constexpr GUID IID_IDirectDrawSurface3 = {
    0xDA044E00, 0x69B2, 0x11D0, {0xA1, 0xD5, 0x00, 0xAA, 0x00, 0xB8, 0xDF, 0xBB}};

inline constexpr HRESULT DDERR_INVALIDPARAMS = static_cast<HRESULT>(0x80070057); // an argument makes no sense
inline constexpr HRESULT DDERR_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
// Not done, or not on this thread.
inline constexpr HRESULT DDERR_UNSUPPORTED = static_cast<HRESULT>(0x80004001);
inline constexpr HRESULT DDERR_INVALIDRECT = static_cast<HRESULT>(0x88760096); // does not lie in its surface
// SetCooperativeLevel first.
inline constexpr HRESULT DDERR_NOCOOPERATIVELEVELSET = static_cast<HRESULT>(0x887600D4);
inline constexpr HRESULT DDERR_NOEXCLUSIVEMODE = static_cast<HRESULT>(0x887600E1); // needs DDSCL_EXCLUSIVE
inline constexpr HRESULT DDERR_NOTFOUND = static_cast<HRESULT>(0x887600FF);    // no such surface hangs here
inline constexpr HRESULT DDERR_SURFACELOST = static_cast<HRESULT>(0x887601C2); // Restore, and draw anew
// One a display.
inline constexpr HRESULT DDERR_PRIMARYSURFACEALREADYEXISTS = static_cast<HRESULT>(0x88760234);
inline constexpr HRESULT DDERR_NOTFLIPPABLE = static_cast<HRESULT>(0x88760246); // no back buffer
// Initialize first, or the screen has gone.
inline constexpr HRESULT DDERR_WRONGMODE = static_cast<HRESULT>(0x8876024B);
inline constexpr HRESULT DDERR_DCALREADYCREATED = static_cast<HRESULT>(0x8876026C); // a context is out

inline constexpr DWORD DDSCL_FULLSCREEN = 0x1; // with DDSCL_EXCLUSIVE
inline constexpr DWORD DDSCL_NORMAL = 0x8;     // shares the screen
inline constexpr DWORD DDSCL_EXCLUSIVE = 0x10; // the whole screen

// Which members of a description count.
inline constexpr DWORD DDSD_CAPS = 0x1;
inline constexpr DWORD DDSD_HEIGHT = 0x2;
inline constexpr DWORD DDSD_WIDTH = 0x4;
inline constexpr DWORD DDSD_BACKBUFFERCOUNT = 0x20;

// What a surface is for.
inline constexpr DWORD DDSCAPS_BACKBUFFER = 0x4;       // shown by the next Flip
inline constexpr DWORD DDSCAPS_COMPLEX = 0x8;          // several that belong together
inline constexpr DWORD DDSCAPS_FLIP = 0x10;            // can be flipped
inline constexpr DWORD DDSCAPS_OFFSCREENPLAIN = 0x40;  // memory to copy from
inline constexpr DWORD DDSCAPS_PRIMARYSURFACE = 0x200; // what the screen shows
inline constexpr DWORD DDSCAPS_VIDEOMEMORY = 0x4000;   // accepted

inline constexpr DWORD DDBLT_ROP = 0x20000; // by DDBLTFX::dwROP

struct DDSURFACEDESC {
    DWORD dwSize;            // of this record
    DWORD dwFlags;           // DDSD_
    DWORD dwHeight, dwWidth; // pixels
    LONG lPitch;             // out: bytes of a row
    DWORD dwBackBufferCount; // 0 or 1
    DWORD notUsed[20];
    DWORD dwCaps; // DDSCAPS_
};
static_assert(sizeof(DDSURFACEDESC) == 108);

struct DDBLTFX {
    DWORD dwSize; // of this record
    DWORD dwDDFX;
    DWORD dwROP; // raster operation (GdiBitmaps.h)
    DWORD notUsed[22];
};
static_assert(sizeof(DDBLTFX) == 100);

struct PALETTEENTRY {
    BYTE peRed, peGreen, peBlue, peFlags; // 0 to 255 each; flags are not used
};

struct IDirectDrawPalette : IUnknown {};

struct IDirectDrawSurface : IUnknown {};

struct IDirectDrawSurface3 : IUnknown {
    // Size, abilities, bytes of a row.
    virtual HRESULT GetSurfaceDesc(DDSURFACEDESC* description) = 0;
    // The surface that hangs on this one and has these abilities, with a reference.
    virtual HRESULT GetAttachedSurface(const DWORD* caps, IDirectDrawSurface3** out) = 0;
    // Copies a part (null: all) to that place, where it must fit.
    virtual HRESULT BltFast(DWORD x, DWORD y, IDirectDrawSurface3* source, RECT* part, DWORD flags) = 0;
    // Copies a part to a rectangle of any size, by a raster operation with DDBLT_ROP.
    virtual HRESULT Blt(RECT* to, IDirectDrawSurface3* source, RECT* part, DWORD flags, DDBLTFX* effects) = 0;
    // Shows the back buffer, and what was shown becomes the back buffer.
    virtual HRESULT Flip(IDirectDrawSurface3* target, DWORD flags) = 0;
    // A context on the surface's pixels; one at a time.
    virtual HRESULT GetDC(HDC* dc) = 0;
    // Ends the context; a primary surface shows what was drawn.
    virtual HRESULT ReleaseDC(HDC dc) = 0;
    // Of 256 colours, for 8 bits; null takes it away.
    virtual HRESULT SetPalette(IDirectDrawPalette* palette) = 0;
    // Makes a lost surface usable again; its picture is gone.
    virtual HRESULT Restore() = 0;
};

struct IDirectDraw2 : IUnknown {
    // The display: null for the primary one. Once, before anything else.
    virtual HRESULT Initialize(GUID* driver) = 0;
    // DDSCL_NORMAL, or DDSCL_EXCLUSIVE with DDSCL_FULLSCREEN.
    virtual HRESULT SetCooperativeLevel(HWND window, DWORD flags) = 0;
    // In pixels, 8 to 32 bits; the screen keeps its own mode and stretches. `refresh` and `flags` do
    // nothing.
    virtual HRESULT SetDisplayMode(DWORD width, DWORD height, DWORD bits, DWORD refresh, DWORD flags) = 0;
    // A primary one, with a back buffer if asked for, or memory; black. `outer` is null.
    virtual HRESULT CreateSurface(DDSURFACEDESC* description, IDirectDrawSurface** out, IUnknown* outer) = 0;
    // Copies 256 entries.
    virtual HRESULT CreatePalette(DWORD flags, PALETTEENTRY* entries, IDirectDrawPalette** out,
                                  IUnknown* outer) = 0;
    // Returns at the next one; `event` must be null.
    virtual HRESULT WaitForVerticalBlank(DWORD flags, HANDLE event) = 0;
};

// The newer form of the same object.
struct IDirectDraw7 : IUnknown {};

inline constexpr DWORD DDENUM_ATTACHEDSECONDARYDEVICES = 1;
inline constexpr DWORD DDENUM_DETACHEDSECONDARYDEVICES = 2; // accepted

// Gets each display: its identifier (null: the primary one), description and name. 0 ends the enumeration.
using LPDDENUMCALLBACKEXA = BOOL (*)(GUID* driver, char* description, char* name, void* context,
                                     HANDLE monitor);

class DisplayBackEnd {
public:
    virtual ~DisplayBackEnd() = default;
    // Whether there is a display at all.
    virtual bool IsThere() const = 0;
    // An object that Initialize has not been called for.
    virtual HRESULT Create(const GUID& interfaceId, void** out) = 0;
    virtual HRESULT Enumerate(LPDDENUMCALLBACKEXA callback, void* context, DWORD flags) = 0;
};

// The one in force from now on, which must outlive its use; returns the former one. Null: none.
COREKIT_API DisplayBackEnd* SetDisplayBackEnd(DisplayBackEnd* backEnd);
COREKIT_API DisplayBackEnd* GetDisplayBackEnd();

// By the back end in force; DDERR_UNSUPPORTED without one.
COREKIT_API HRESULT DirectDrawCreateEx(GUID* driver, void** out, const GUID& interfaceId, IUnknown* outer);
COREKIT_API HRESULT DirectDrawEnumerateExA(LPDDENUMCALLBACKEXA callback, void* context, DWORD flags);
