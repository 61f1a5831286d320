#include "corekit/platform/Monitors.h"

#include "corekit/platform/Errors.h"

#include <algorithm>
#include <cstring>
#include <QGuiApplication>
#include <QScreen>

namespace {

RECT rectOf(const QRect& r) { return {r.left(), r.top(), r.left() + r.width(), r.top() + r.height()}; }

bool cut(RECT& part, const RECT& by)
{
    part = {std::max(part.left, by.left), std::max(part.top, by.top), std::min(part.right, by.right),
            std::min(part.bottom, by.bottom)};
    return part.left < part.right && part.top < part.bottom;
}

QList<QScreen*> screens() { return qGuiApp ? QGuiApplication::screens() : QList<QScreen*>(); }

} // namespace

BOOL EnumDisplayMonitors(HDC dc, const RECT* clip, MONITORENUMPROC callback, LPARAM data)
{
    const QList<QScreen*> all = screens();
    if (dc || !callback || all.isEmpty()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    for (QScreen* const screen : all) {
        RECT part = rectOf(screen->geometry());
        if (clip && !cut(part, *clip)) continue;
        if (!callback(reinterpret_cast<HMONITOR>(screen), nullptr, &part, data)) return FALSE;
    }
    return TRUE;
}

BOOL GetMonitorInfoA(HMONITOR monitor, MONITORINFOEXA* info)
{
    const QList<QScreen*> all = screens();
    const auto found = std::ranges::find(all, reinterpret_cast<QScreen*>(monitor));
    if (found == all.end() || !info || info->cbSize != sizeof *info) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const QScreen& screen = **found;
    info->rcMonitor = rectOf(screen.geometry());
    info->rcWork = rectOf(screen.availableGeometry());
    info->dwFlags = &screen == QGuiApplication::primaryScreen() ? MONITORINFOF_PRIMARY : 0;
    const QByteArray name = screen.name().toLocal8Bit().left(sizeof info->szDevice - 1);
    std::memset(info->szDevice, 0, sizeof info->szDevice);
    std::memcpy(info->szDevice, name.constData(), static_cast<std::size_t>(name.size()));
    return TRUE;
}
