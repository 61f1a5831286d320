#include "corekit/graphics/DirectDraw.h"

#include <utility>

IMPLEMENT_DYNAMIC(CDirectDraw, CObject)
IMPLEMENT_DYNAMIC(CDirectDrawSurface, CObject)
IMPLEMENT_DYNAMIC(CDirectDrawPalette, CObject)

namespace {

template <typename Interface>
void giveUp(Interface*& object)
{
    if (Interface* const held = std::exchange(object, nullptr)) held->Release();
}

// Holds another object in place of the one before, which may be the same.
template <typename Interface>
void hold(Interface*& object, Interface* other)
{
    other->AddRef();
    giveUp(object);
    object = other;
}

} // namespace

HRESULT CDirectDraw::Initialise(GUID* driver)
{
    Shutdown();
    const HRESULT created = CoCreateInstance(CLSID_DirectDraw, nullptr, CLSCTX_ALL, IID_IDirectDraw2,
                                             reinterpret_cast<void**>(&m_directDraw));
    if (FAILED(created)) {
        m_directDraw = nullptr;
        return created;
    }
    const HRESULT initialised = m_directDraw->Initialize(driver);
    if (SUCCEEDED(initialised)) return S_OK;
    Shutdown();
    return initialised;
}

HRESULT CDirectDraw::SetCooperativeLevel(HWND window, DWORD flags)
{
    const HRESULT result = m_directDraw->SetCooperativeLevel(window, flags);
    return SUCCEEDED(result) ? S_OK : result;
}

HRESULT CDirectDraw::SetDisplayMode(DWORD width, DWORD height, DWORD bits, DWORD refresh, DWORD flags)
{
    const HRESULT result = m_directDraw->SetDisplayMode(width, height, bits, refresh, flags);
    if (FAILED(result)) return result;
    m_width = width;
    m_height = height;
    return S_OK;
}

HRESULT CDirectDraw::CreateSurface(DDSURFACEDESC& description, CDirectDrawSurface& out)
{
    description.dwSize = sizeof description;
    IDirectDrawSurface* first = nullptr;
    HRESULT result = m_directDraw->CreateSurface(&description, &first, nullptr);
    if (FAILED(result)) return result;
    IDirectDrawSurface3* surface = nullptr;
    result = first->QueryInterface(IID_IDirectDrawSurface3, reinterpret_cast<void**>(&surface));
    first->Release();
    if (FAILED(result)) return result;
    result = out.AttachInterface(surface);
    surface->Release();
    return result;
}

HRESULT CDirectDraw::CreateFlipChain(int, CDirectDrawSurface& out)
{
    DDSURFACEDESC description{};
    description.dwFlags = DDSD_CAPS | DDSD_BACKBUFFERCOUNT;
    description.dwBackBufferCount = 1;
    description.dwCaps = DDSCAPS_PRIMARYSURFACE | DDSCAPS_FLIP | DDSCAPS_COMPLEX | DDSCAPS_VIDEOMEMORY;
    return CreateSurface(description, out);
}

HRESULT CDirectDraw::CreateMemorySurface(int width, int height, CDirectDrawSurface& out)
{
    DDSURFACEDESC description{};
    description.dwFlags = DDSD_CAPS | DDSD_HEIGHT | DDSD_WIDTH;
    description.dwWidth = static_cast<DWORD>(width);
    description.dwHeight = static_cast<DWORD>(height);
    description.dwCaps = DDSCAPS_OFFSCREENPLAIN;
    return CreateSurface(description, out);
}

HRESULT CDirectDraw::CreatePalette(DWORD flags, PALETTEENTRY* entries, CDirectDrawPalette& out)
{
    IDirectDrawPalette* palette = nullptr;
    const HRESULT result = m_directDraw->CreatePalette(flags, entries, &palette, nullptr);
    if (FAILED(result)) return result;
    out.AttachInterface(palette);
    palette->Release();
    return S_OK;
}

HRESULT CDirectDraw::WaitForVBlank(DWORD flags) { return m_directDraw->WaitForVerticalBlank(flags, nullptr); }

void CDirectDraw::Shutdown() { giveUp(m_directDraw); }

HRESULT CDirectDrawSurface::AttachInterface(IDirectDrawSurface3* surface)
{
    hold(m_surface, surface);
    DDSURFACEDESC description{};
    description.dwSize = sizeof description;
    return m_surface->GetSurfaceDesc(&description);
}

HRESULT CDirectDrawSurface::AttachBackBuffer(CDirectDrawSurface& front, int)
{
    const DWORD caps = DDSCAPS_BACKBUFFER;
    IDirectDrawSurface3* back = nullptr;
    const HRESULT result = front.m_surface->GetAttachedSurface(&caps, &back);
    SafeDelete();
    if (FAILED(result)) return result;
    m_surface = back;
    m_autoRestore = 0;
    return S_OK;
}

template <typename Call>
HRESULT CDirectDrawSurface::Recovering(Call call)
{
    const HRESULT result = call();
    if (result != DDERR_SURFACELOST || !m_autoRestore) return result;
    const HRESULT restored = Restore();
    return FAILED(restored) ? restored : call();
}

HRESULT CDirectDrawSurface::BlitFast(int x, int y, CDirectDrawSurface& source, RECT* sourceRect, DWORD flags)
{
    return Recovering([&] {
        return m_surface->BltFast(static_cast<DWORD>(x), static_cast<DWORD>(y), source.m_surface, sourceRect,
                                  flags);
    });
}

HRESULT CDirectDrawSurface::BlitROP(CRect dest, CDirectDrawSurface& source, CPoint sourceAt, DWORD flags,
                                    DWORD rop)
{
    CRect part(sourceAt, dest.Size());
    DDBLTFX effects{};
    effects.dwSize = sizeof effects;
    effects.dwROP = rop;
    return Recovering(
        [&] { return m_surface->Blt(&dest, source.m_surface, &part, flags | DDBLT_ROP, &effects); });
}

HRESULT CDirectDrawSurface::Flip(DWORD flags)
{
    return Recovering([&] { return m_surface->Flip(nullptr, flags); });
}

HDC CDirectDrawSurface::GetDC(HRESULT* error)
{
    HDC dc = nullptr;
    const HRESULT result = Recovering([&] { return m_surface->GetDC(&dc); });
    if (SUCCEEDED(result)) return dc;
    if (error) *error = result;
    return nullptr;
}

HRESULT CDirectDrawSurface::ReleaseDC(HDC dc)
{
    return Recovering([&] { return m_surface->ReleaseDC(dc); });
}

HRESULT CDirectDrawSurface::SetPalette(CDirectDrawPalette& palette)
{
    return Recovering([&] { return m_surface->SetPalette(palette); });
}

HRESULT CDirectDrawSurface::Restore() { return m_surface->Restore(); }

void CDirectDrawSurface::Delete() { giveUp(m_surface); }

void CDirectDrawSurface::SafeDelete() { giveUp(m_surface); }

void CDirectDrawPalette::AttachInterface(IDirectDrawPalette* palette) { hold(m_palette, palette); }

void CDirectDrawPalette::Delete() { giveUp(m_palette); }

void CDirectDrawPalette::SafeDelete() { giveUp(m_palette); }
