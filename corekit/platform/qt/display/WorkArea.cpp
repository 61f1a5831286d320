// Tells core the free part of the main screen.
#include "corekit/platform/SystemInfo.h"

#include <QGuiApplication>
#include <QScreen>

namespace {
bool WorkArea(RECT& area)
{
    const QScreen* screen = qGuiApp ? QGuiApplication::primaryScreen() : nullptr;
    if (!screen) return false;
    const QRect free = screen->availableGeometry();
    area = {free.left(), free.top(), free.left() + free.width(), free.top() + free.height()};
    return true;
}

[[gnu::constructor]] void Start() { corekit::detail::SetWorkAreaSource(&WorkArea); }
[[gnu::destructor]] void Stop() { corekit::detail::SetWorkAreaSource(nullptr); }
} // namespace
