// Tells core the free part of the main screen, and whether the desktop is one that moves things about.
#include "corekit/platform/posix/processor/DesktopSource.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>

namespace {
bool workArea(RECT& area)
{
    const QScreen* screen = qGuiApp ? QGuiApplication::primaryScreen() : nullptr;
    if (!screen) return false;
    const QRect free = screen->availableGeometry();
    area = {free.left(), free.top(), free.left() + free.width(), free.top() + free.height()};
    return true;
}

bool animates()
{
    const auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    return !application || QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

constexpr corekit::DesktopSource source{&workArea, &animates};
[[gnu::constructor]] void start() { corekit::setDesktopSource(&source); }
[[gnu::destructor]] void stop() { corekit::setDesktopSource(nullptr); }
} // namespace
