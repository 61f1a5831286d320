#include "corekit/platform/qt/display/ScreenSurface.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/qt/display/ScreenWindow.h"
#include "corekit/platform/qt/drawing/ForeignPixels.h"

#include <algorithm>
#include <unordered_map>

namespace corekit::detail {

namespace {

constexpr std::uint32_t opaqueBlack = 0xFF000000u;

RECT wholeOf(int width, int height) { return {0, 0, width, height}; }

bool liesIn(const RECT& r, int width, int height)
{
    return r.left >= 0 && r.top >= 0 && r.left < r.right && r.top < r.bottom && r.right <= width &&
           r.bottom <= height;
}

} // namespace

ScreenPalette::ScreenPalette(const PALETTEENTRY* entries)
{
    for (std::size_t i = 0; i < m_colours.size(); ++i)
        m_colours[i] = qRgb(entries[i].peRed, entries[i].peGreen, entries[i].peBlue);
}

HRESULT ScreenPalette::QueryInterface(const GUID&, void** out)
{
    *out = nullptr;
    return E_NOINTERFACE;
}

QImage ScreenPalette::shown(const QImage& picture) const
{
    std::unordered_map<std::uint32_t, std::uint32_t> nearest;
    const auto distance = [](QRgb a, QRgb b) {
        const int r = qRed(a) - qRed(b), g = qGreen(a) - qGreen(b), u = qBlue(a) - qBlue(b);
        return r * r + g * g + u * u;
    };
    QImage result = picture.copy();
    for (int y = 0; y < result.height(); ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const auto [at, isNew] = nearest.try_emplace(row[x], 0);
            if (isNew)
                at->second = *std::ranges::min_element(
                    m_colours, {}, [&](std::uint32_t colour) { return distance(colour, row[x]); });
            row[x] = at->second;
        }
    }
    return result;
}

ScreenSurface::ScreenSurface(Place place)
    : m_place(std::move(place)),
      m_pixels(static_cast<std::size_t>(m_place.width) * static_cast<std::size_t>(m_place.height),
               opaqueBlack),
      m_work(newContext())
{
}

ScreenSurface::~ScreenSurface()
{
    if (m_back) m_back->Release();
    if (m_palette) m_palette->Release();
    if (isPrimary() && m_place.window) m_place.window->show(QImage());
    if (m_given) DeleteDC(m_given);
    DeleteDC(m_work);
}

HDC ScreenSurface::newContext()
{
    ForeignPixels on;
    on.pixels = m_pixels.data();
    on.width = m_place.width;
    on.height = m_place.height;
    on.stride = m_place.width;
    return makeForeignContext(on);
}

HRESULT ScreenSurface::QueryInterface(const GUID& id, void** out)
{
    *out = nullptr;
    if (id != IID_IDirectDrawSurface3) return E_NOINTERFACE;
    *out = static_cast<IDirectDrawSurface3*>(this);
    AddRef();
    return S_OK;
}

HRESULT ScreenSurface::GetSurfaceDesc(DDSURFACEDESC* d)
{
    if (!d || d->dwSize != sizeof *d) return DDERR_INVALIDPARAMS;
    d->dwFlags = DDSD_CAPS | DDSD_HEIGHT | DDSD_WIDTH;
    d->dwWidth = static_cast<DWORD>(m_place.width);
    d->dwHeight = static_cast<DWORD>(m_place.height);
    d->lPitch = m_place.width * 4;
    d->dwBackBufferCount = m_back ? 1 : 0;
    d->dwCaps = m_place.caps;
    return S_OK;
}

HRESULT ScreenSurface::GetAttachedSurface(const DWORD* caps, IDirectDrawSurface3** out)
{
    if (!caps || !out) return DDERR_INVALIDPARAMS;
    *out = m_back && (*caps & DDSCAPS_BACKBUFFER) ? m_back : nullptr;
    if (!*out) return DDERR_NOTFOUND;
    m_back->AddRef();
    return S_OK;
}

bool ScreenSurface::isLost()
{
    if (m_place.window && !m_place.window->isOnTop()) m_lost = true;
    return m_lost;
}

HRESULT ScreenSurface::copy(const RECT& to, IDirectDrawSurface3* from, const RECT* part, DWORD operation)
{
    auto* const source = dynamic_cast<ScreenSurface*>(from);
    if (!source) return DDERR_INVALIDPARAMS;
    if (isLost() || source->isLost()) return DDERR_SURFACELOST;
    const RECT cut = part ? *part : wholeOf(source->m_place.width, source->m_place.height);
    if (!liesIn(to, m_place.width, m_place.height) ||
        !liesIn(cut, source->m_place.width, source->m_place.height))
        return DDERR_INVALIDRECT;
    StretchBlt(m_work, to.left, to.top, to.right - to.left, to.bottom - to.top, source->m_work, cut.left,
               cut.top, cut.right - cut.left, cut.bottom - cut.top, operation);
    if (isPrimary()) present();
    return S_OK;
}

HRESULT ScreenSurface::BltFast(DWORD x, DWORD y, IDirectDrawSurface3* from, RECT* part, DWORD flags)
{
    constexpr DWORD colourKeys = 3;
    const auto* const source = dynamic_cast<ScreenSurface*>(from);
    if (!source || x > static_cast<DWORD>(m_place.width) || y > static_cast<DWORD>(m_place.height))
        return DDERR_INVALIDPARAMS;
    if (flags & colourKeys) return DDERR_UNSUPPORTED;
    const RECT cut = part ? *part : wholeOf(source->m_place.width, source->m_place.height);
    if (!liesIn(cut, source->m_place.width, source->m_place.height)) return DDERR_INVALIDRECT;
    const auto left = static_cast<LONG>(x), top = static_cast<LONG>(y);
    return copy({left, top, left + cut.right - cut.left, top + cut.bottom - cut.top}, from, &cut, SRCCOPY);
}

HRESULT ScreenSurface::Blt(RECT* to, IDirectDrawSurface3* source, RECT* part, DWORD flags, DDBLTFX* effects)
{
    const bool byOperation = (flags & DDBLT_ROP) != 0;
    if (byOperation && (!effects || effects->dwSize != sizeof *effects)) return DDERR_INVALIDPARAMS;
    return copy(to ? *to : wholeOf(m_place.width, m_place.height), source, part,
                byOperation ? effects->dwROP : SRCCOPY);
}

void ScreenSurface::present()
{
    const QImage picture(reinterpret_cast<const uchar*>(m_pixels.data()), m_place.width, m_place.height,
                         std::ptrdiff_t{m_place.width} * 4, QImage::Format_RGB32);
    m_place.window->show(m_place.hasPalette && m_palette ? m_palette->shown(picture) : picture);
}

HRESULT ScreenSurface::Flip(IDirectDrawSurface3* target, DWORD)
{
    if (!m_back || target) return DDERR_NOTFLIPPABLE;
    if (isLost()) return DDERR_SURFACELOST;
    if (m_given || m_back->m_given) return DDERR_DCALREADYCREATED;
    std::swap(m_pixels, m_back->m_pixels);
    std::swap(m_work, m_back->m_work); // each draws on the pixels that it was made for
    present();
    return S_OK;
}

HRESULT ScreenSurface::GetDC(HDC* dc)
{
    if (!dc) return DDERR_INVALIDPARAMS;
    *dc = nullptr;
    if (isLost()) return DDERR_SURFACELOST;
    if (m_given) return DDERR_DCALREADYCREATED;
    m_given = newContext();
    if (!m_given) return DDERR_OUTOFMEMORY;
    *dc = m_given;
    return S_OK;
}

HRESULT ScreenSurface::ReleaseDC(HDC dc)
{
    if (!dc || dc != m_given) return DDERR_INVALIDPARAMS;
    DeleteDC(std::exchange(m_given, nullptr));
    if (isLost()) return DDERR_SURFACELOST;
    if (isPrimary()) present();
    return S_OK;
}

HRESULT ScreenSurface::SetPalette(IDirectDrawPalette* given)
{
    auto* const palette = dynamic_cast<ScreenPalette*>(given);
    if (given && !palette) return DDERR_INVALIDPARAMS;
    if (isLost()) return DDERR_SURFACELOST;
    if (palette) palette->AddRef();
    if (m_palette) m_palette->Release();
    m_palette = palette;
    if (isPrimary()) present();
    return S_OK;
}

HRESULT ScreenSurface::Restore()
{
    if (!isLost()) return S_OK;
    if (m_place.window && !m_place.window->raiseAgain()) return DDERR_WRONGMODE;
    std::ranges::fill(m_pixels, opaqueBlack);
    m_lost = false;
    return m_back ? m_back->Restore() : S_OK;
}

} // namespace corekit::detail
