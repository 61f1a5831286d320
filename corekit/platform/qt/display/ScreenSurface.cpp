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
    for (std::size_t i = 0; i < colours_.size(); ++i)
        colours_[i] = qRgb(entries[i].peRed, entries[i].peGreen, entries[i].peBlue);
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
                    colours_, {}, [&](std::uint32_t colour) { return distance(colour, row[x]); });
            row[x] = at->second;
        }
    }
    return result;
}

ScreenSurface::ScreenSurface(Place place)
    : place_(std::move(place)),
      pixels_(static_cast<std::size_t>(place_.width) * static_cast<std::size_t>(place_.height), opaqueBlack),
      work_(newContext())
{
}

ScreenSurface::~ScreenSurface()
{
    if (back_) back_->Release();
    if (palette_) palette_->Release();
    if (isPrimary() && place_.window) place_.window->show(QImage());
    if (given_) DeleteDC(given_);
    DeleteDC(work_);
}

HDC ScreenSurface::newContext()
{
    ForeignPixels on;
    on.pixels = pixels_.data();
    on.width = place_.width;
    on.height = place_.height;
    on.stride = place_.width;
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
    d->dwWidth = static_cast<DWORD>(place_.width);
    d->dwHeight = static_cast<DWORD>(place_.height);
    d->lPitch = place_.width * 4;
    d->dwBackBufferCount = back_ ? 1 : 0;
    d->dwCaps = place_.caps;
    return S_OK;
}

HRESULT ScreenSurface::GetAttachedSurface(const DWORD* caps, IDirectDrawSurface3** out)
{
    if (!caps || !out) return DDERR_INVALIDPARAMS;
    *out = back_ && (*caps & DDSCAPS_BACKBUFFER) ? back_ : nullptr;
    if (!*out) return DDERR_NOTFOUND;
    back_->AddRef();
    return S_OK;
}

bool ScreenSurface::isLost()
{
    if (place_.window && !place_.window->isOnTop()) lost_ = true;
    return lost_;
}

HRESULT ScreenSurface::copy(const RECT& to, IDirectDrawSurface3* from, const RECT* part, DWORD operation)
{
    auto* const source = dynamic_cast<ScreenSurface*>(from);
    if (!source) return DDERR_INVALIDPARAMS;
    if (isLost() || source->isLost()) return DDERR_SURFACELOST;
    const RECT cut = part ? *part : wholeOf(source->place_.width, source->place_.height);
    if (!liesIn(to, place_.width, place_.height) || !liesIn(cut, source->place_.width, source->place_.height))
        return DDERR_INVALIDRECT;
    StretchBlt(work_, to.left, to.top, to.right - to.left, to.bottom - to.top, source->work_, cut.left,
               cut.top, cut.right - cut.left, cut.bottom - cut.top, operation);
    if (isPrimary()) present();
    return S_OK;
}

HRESULT ScreenSurface::BltFast(DWORD x, DWORD y, IDirectDrawSurface3* from, RECT* part, DWORD flags)
{
    constexpr DWORD colourKeys = 3;
    const auto* const source = dynamic_cast<ScreenSurface*>(from);
    if (!source || x > static_cast<DWORD>(place_.width) || y > static_cast<DWORD>(place_.height))
        return DDERR_INVALIDPARAMS;
    if (flags & colourKeys) return DDERR_UNSUPPORTED;
    const RECT cut = part ? *part : wholeOf(source->place_.width, source->place_.height);
    if (!liesIn(cut, source->place_.width, source->place_.height)) return DDERR_INVALIDRECT;
    const auto left = static_cast<LONG>(x), top = static_cast<LONG>(y);
    return copy({left, top, left + cut.right - cut.left, top + cut.bottom - cut.top}, from, &cut, SRCCOPY);
}

HRESULT ScreenSurface::Blt(RECT* to, IDirectDrawSurface3* source, RECT* part, DWORD flags, DDBLTFX* effects)
{
    const bool byOperation = (flags & DDBLT_ROP) != 0;
    if (byOperation && (!effects || effects->dwSize != sizeof *effects)) return DDERR_INVALIDPARAMS;
    return copy(to ? *to : wholeOf(place_.width, place_.height), source, part,
                byOperation ? effects->dwROP : SRCCOPY);
}

void ScreenSurface::present()
{
    const QImage picture(reinterpret_cast<const uchar*>(pixels_.data()), place_.width, place_.height,
                         std::ptrdiff_t{place_.width} * 4, QImage::Format_RGB32);
    place_.window->show(place_.hasPalette && palette_ ? palette_->shown(picture) : picture);
}

HRESULT ScreenSurface::Flip(IDirectDrawSurface3* target, DWORD)
{
    if (!back_ || target) return DDERR_NOTFLIPPABLE;
    if (isLost()) return DDERR_SURFACELOST;
    if (given_ || back_->given_) return DDERR_DCALREADYCREATED;
    std::swap(pixels_, back_->pixels_);
    std::swap(work_, back_->work_); // each draws on the pixels that it was made for
    present();
    return S_OK;
}

HRESULT ScreenSurface::GetDC(HDC* dc)
{
    if (!dc) return DDERR_INVALIDPARAMS;
    *dc = nullptr;
    if (isLost()) return DDERR_SURFACELOST;
    if (given_) return DDERR_DCALREADYCREATED;
    given_ = newContext();
    if (!given_) return DDERR_OUTOFMEMORY;
    *dc = given_;
    return S_OK;
}

HRESULT ScreenSurface::ReleaseDC(HDC dc)
{
    if (!dc || dc != given_) return DDERR_INVALIDPARAMS;
    DeleteDC(std::exchange(given_, nullptr));
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
    if (palette_) palette_->Release();
    palette_ = palette;
    if (isPrimary()) present();
    return S_OK;
}

HRESULT ScreenSurface::Restore()
{
    if (!isLost()) return S_OK;
    if (place_.window && !place_.window->raiseAgain()) return DDERR_WRONGMODE;
    std::ranges::fill(pixels_, opaqueBlack);
    lost_ = false;
    return back_ ? back_->Restore() : S_OK;
}

} // namespace corekit::detail
