// Surfaces and palettes of the screens' back end.
#pragma once

#include "corekit/platform/Displays.h"

#include <array>
#include <memory>
#include <QImage>
#include <vector>

namespace corekit::detail {

class ScreenWindow;

// Counts its users; starts with one.
template <typename... Interfaces>
class Counted : public Interfaces... {
public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    DWORD AddRef() final { return ++m_users; }
    DWORD Release() final
    {
        const DWORD left = --m_users;
        if (left == 0) delete this;
        return left;
    }

private:
    DWORD m_users = 1;
};

class ScreenPalette final : public Counted<IDirectDrawPalette> {
public:
    explicit ScreenPalette(const PALETTEENTRY* entries);
    HRESULT QueryInterface(const GUID& id, void** out) override;
    // The picture as a display with these colours and no others shows it.
    QImage shown(const QImage& picture) const;

private:
    std::array<std::uint32_t, 256> m_colours;
};

class ScreenSurface final : public Counted<IDirectDrawSurface, IDirectDrawSurface3> {
public:
    struct Place {
        int width, height;
        DWORD caps;
        bool hasPalette;                      // colours are those of a palette
        std::shared_ptr<ScreenWindow> window; // of a primary surface and its back buffer
    };
    explicit ScreenSurface(Place place);
    ~ScreenSurface() override;
    void attachBackBuffer(ScreenSurface* back) { m_back = back; } // takes the reference over

    HRESULT QueryInterface(const GUID& id, void** out) override;
    HRESULT GetSurfaceDesc(DDSURFACEDESC* description) override;
    HRESULT GetAttachedSurface(const DWORD* caps, IDirectDrawSurface3** out) override;
    HRESULT BltFast(DWORD x, DWORD y, IDirectDrawSurface3* source, RECT* part, DWORD flags) override;
    HRESULT Blt(RECT* to, IDirectDrawSurface3* source, RECT* part, DWORD flags, DDBLTFX* effects) override;
    HRESULT Flip(IDirectDrawSurface3* target, DWORD flags) override;
    HRESULT GetDC(HDC* dc) override;
    HRESULT ReleaseDC(HDC dc) override;
    HRESULT SetPalette(IDirectDrawPalette* palette) override;
    HRESULT Restore() override;

private:
    bool isLost();
    bool isPrimary() const { return m_place.caps & DDSCAPS_PRIMARYSURFACE; }
    HDC newContext();
    void present();
    HRESULT copy(const RECT& to, IDirectDrawSurface3* source, const RECT* part, DWORD operation);

    Place m_place;
    std::vector<std::uint32_t> m_pixels;
    HDC m_work = nullptr;  // for copies
    HDC m_given = nullptr; // to the user
    ScreenSurface* m_back = nullptr;
    ScreenPalette* m_palette = nullptr;
    bool m_lost = false;
};

} // namespace corekit::detail
