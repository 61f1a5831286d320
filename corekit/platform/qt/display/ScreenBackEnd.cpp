// The display back end on the toolkit's screens.
#include "corekit/platform/qt/display/ScreenSurface.h"
#include "corekit/platform/qt/display/ScreenWindow.h"
#include "corekit/platform/Toolkit.h"

#include <algorithm>
#include <cstring>
#include <QGuiApplication>
#include <QThread>

namespace corekit::detail {

namespace {

constexpr int largestSide = 16384;

bool isToolkitThread() { return qGuiApp && QThread::currentThread() == qGuiApp->thread(); }

// Maker and model; a screen that tells neither has its name or its number.
QByteArray descriptionOf(const QScreen& screen)
{
    QString text = (screen.manufacturer() + QLatin1Char(' ') + screen.model()).trimmed();
    if (text.isEmpty()) text = screen.name();
    if (text.isEmpty()) {
        const auto all = QGuiApplication::screens();
        const auto place = std::find(all.begin(), all.end(), &screen) - all.begin();
        text = QLatin1String("Display ") + QString::number(place + 1);
    }
    return text.toLocal8Bit();
}

// A screen is known by its name and description: the identifier is made from those.
GUID identifierOf(const QScreen& screen)
{
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const char c : screen.name().toUtf8() + descriptionOf(screen))
        hash = (hash ^ static_cast<BYTE>(c)) * 0x100000001B3u;
    GUID id{0x53437265, 0x656E, 0x4000, {}};
    std::memcpy(id.Data4, &hash, sizeof id.Data4);
    return id;
}

QScreen* screenOf(const GUID* driver)
{
    if (!driver) return QGuiApplication::primaryScreen();
    for (QScreen* const screen : QGuiApplication::screens())
        if (identifierOf(*screen) == *driver) return screen;
    return nullptr;
}

class ScreenDisplay final : public Counted<IDirectDraw2, IDirectDraw7> {
public:
    HRESULT QueryInterface(const GUID& id, void** out) override
    {
        *out = nullptr;
        if (id == IID_IDirectDraw2) *out = static_cast<IDirectDraw2*>(this);
        if (id == IID_IDirectDraw7) *out = static_cast<IDirectDraw7*>(this);
        if (!*out) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    HRESULT Initialize(GUID* driver) override
    {
        if (m_screen) return DDERR_INVALIDPARAMS;
        m_screen = screenOf(driver);
        if (!m_screen) return DDERR_INVALIDPARAMS;
        m_size = m_screen->size();
        return S_OK;
    }

    HRESULT SetCooperativeLevel(HWND, DWORD flags) override
    {
        const bool isExclusive = (flags & DDSCL_EXCLUSIVE) != 0;
        if (isExclusive ? !(flags & DDSCL_FULLSCREEN) : !(flags & DDSCL_NORMAL)) return DDERR_INVALIDPARAMS;
        m_level = flags;
        if (!isExclusive) m_window.reset();
        return S_OK;
    }

    // The screen keeps its own mode: what is shown is stretched to it.
    HRESULT SetDisplayMode(DWORD width, DWORD height, DWORD bits, DWORD, DWORD) override
    {
        if (!isExclusive()) return DDERR_NOEXCLUSIVEMODE;
        const bool isKnown = bits == 8 || bits == 16 || bits == 24 || bits == 32;
        if (!isKnown || !isSound(width, height)) return DDERR_INVALIDPARAMS;
        m_size = QSize(static_cast<int>(width), static_cast<int>(height));
        m_bits = bits;
        return S_OK;
    }

    HRESULT CreateSurface(DDSURFACEDESC* d, IDirectDrawSurface** out, IUnknown* outer) override
    {
        if (!d || !out || outer || d->dwSize != sizeof *d || !(d->dwFlags & DDSD_CAPS))
            return DDERR_INVALIDPARAMS;
        *out = nullptr;
        if (m_level == 0) return DDERR_NOCOOPERATIVELEVELSET;
        if (d->dwCaps & DDSCAPS_PRIMARYSURFACE) return createPrimary(*d, out);
        if (!(d->dwFlags & DDSD_WIDTH) || !(d->dwFlags & DDSD_HEIGHT) || !isSound(d->dwWidth, d->dwHeight))
            return DDERR_INVALIDPARAMS;
        *out = new ScreenSurface(
            {static_cast<int>(d->dwWidth), static_cast<int>(d->dwHeight), d->dwCaps, false, nullptr});
        return S_OK;
    }

    HRESULT CreatePalette(DWORD, PALETTEENTRY* entries, IDirectDrawPalette** out, IUnknown* outer) override
    {
        if (!entries || !out || outer) return DDERR_INVALIDPARAMS;
        if (m_level == 0) return DDERR_NOCOOPERATIVELEVELSET;
        *out = new ScreenPalette(entries);
        return S_OK;
    }

    HRESULT WaitForVerticalBlank(DWORD, HANDLE event) override
    {
        if (event) return DDERR_UNSUPPORTED;
        if (m_window)
            m_window->waitForBlank();
        else
            sleepUntilBlank(m_screen);
        return S_OK;
    }

private:
    bool isExclusive() const { return m_level & DDSCL_EXCLUSIVE; }
    static bool isSound(DWORD width, DWORD height)
    {
        return width > 0 && height > 0 && width <= largestSide && height <= largestSide;
    }

    HRESULT createPrimary(const DDSURFACEDESC& d, IDirectDrawSurface** out)
    {
        if (!isExclusive()) return DDERR_NOEXCLUSIVEMODE;
        if (!m_screen) return DDERR_WRONGMODE;
        if (m_window.use_count() > 1) return DDERR_PRIMARYSURFACEALREADYEXISTS;
        m_window = std::make_shared<ScreenWindow>(m_screen);
        const bool hasPalette = m_bits == 8;
        auto* const front =
            new ScreenSurface({m_size.width(), m_size.height(), d.dwCaps, hasPalette, m_window});
        if (d.dwFlags & DDSD_BACKBUFFERCOUNT && d.dwBackBufferCount > 0)
            front->attachBackBuffer(new ScreenSurface(
                {m_size.width(), m_size.height(), (d.dwCaps & ~DDSCAPS_PRIMARYSURFACE) | DDSCAPS_BACKBUFFER,
                 hasPalette, m_window}));
        *out = front;
        return S_OK;
    }

    QPointer<QScreen> m_screen;
    QSize m_size;
    DWORD m_bits = 32, m_level = 0;
    std::shared_ptr<ScreenWindow> m_window;
};

class ScreenBackEnd final : public DisplayBackEnd {
public:
    bool IsThere() const override { return ToolkitIsRunning() && QGuiApplication::primaryScreen(); }

    HRESULT Create(const GUID& interfaceId, void** out) override
    {
        if (!isToolkitThread()) return DDERR_UNSUPPORTED;
        auto* const display = new ScreenDisplay;
        const HRESULT result = display->QueryInterface(interfaceId, out);
        display->Release();
        return result;
    }

    HRESULT Enumerate(LPDDENUMCALLBACKEXA callback, void* context, DWORD flags) override
    {
        QScreen* const primary = QGuiApplication::primaryScreen();
        const auto tell = [&](QScreen* screen, GUID* driver) {
            QByteArray description = descriptionOf(*screen), name = screen->name().toLocal8Bit();
            return callback(driver, description.data(), name.data(), context, nullptr) != 0;
        };
        if (!tell(primary, nullptr) || !(flags & DDENUM_ATTACHEDSECONDARYDEVICES)) return S_OK;
        for (QScreen* const screen : QGuiApplication::screens()) {
            GUID driver = identifierOf(*screen);
            if (screen != primary && !tell(screen, &driver)) break;
        }
        return S_OK;
    }
};

constinit ScreenBackEnd theBackEnd;

[[gnu::constructor]] void start() { SetDisplayBackEnd(&theBackEnd); }
[[gnu::destructor]] void stop() { SetDisplayBackEnd(nullptr); }

} // namespace

} // namespace corekit::detail
