// The measures of the desktop's style.
#include "corekit/platform/SystemColours.h"
#include "corekit/platform/Toolkit.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <QStyle>
#include <QStyleHints>

namespace {

int pixelMetric(QStyle::PixelMetric which, int withoutToolkit)
{
    return ToolkitIsRunning() ? QApplication::style()->pixelMetric(which) : withoutToolkit;
}

int dragDistance() { return ToolkitIsRunning() ? QApplication::startDragDistance() : 4; }

// How far a second click may lie from the first.
int clickDistance()
{
    return ToolkitIsRunning() ? QGuiApplication::styleHints()->mouseDoubleClickDistance() : 5;
}

int menuHeight()
{
    if (!ToolkitIsRunning()) return 20;
    return QFontMetrics(QApplication::font()).height() + 2 * pixelMetric(QStyle::PM_MenuBarVMargin, 2) + 4;
}

QRect primaryScreen()
{
    const QScreen* const screen = ToolkitIsRunning() ? QGuiApplication::primaryScreen() : nullptr;
    return screen ? screen->geometry() : QRect(0, 0, 640, 480);
}

QRect allScreens()
{
    const QScreen* const screen = ToolkitIsRunning() ? QGuiApplication::primaryScreen() : nullptr;
    return screen ? screen->virtualGeometry() : QRect(0, 0, 640, 480);
}

int screenCount() { return ToolkitIsRunning() ? static_cast<int>(QGuiApplication::screens().size()) : 0; }

// 0 for a number that is nobody's measure.
int screenMetric(int index)
{
    switch (index) {
    case SM_CXSCREEN:
        return primaryScreen().width();
    case SM_CYSCREEN:
        return primaryScreen().height();
    case SM_XVIRTUALSCREEN:
        return allScreens().x();
    case SM_YVIRTUALSCREEN:
        return allScreens().y();
    case SM_CXVIRTUALSCREEN:
        return allScreens().width();
    case SM_CYVIRTUALSCREEN:
        return allScreens().height();
    case SM_CMONITORS:
        return screenCount();
    default:
        return 0;
    }
}

int motionMetric(int index)
{
    switch (index) {
    case SM_CXDRAG:
    case SM_CYDRAG:
        return dragDistance();
    case SM_CXDOUBLECLK:
    case SM_CYDOUBLECLK:
        return clickDistance();
    default:
        return screenMetric(index);
    }
}

} // namespace

int GetSystemMetrics(int index)
{
    switch (index) {
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CYVSCROLL:
    case SM_CXHSCROLL:
        return pixelMetric(QStyle::PM_ScrollBarExtent, 16);
    case SM_CYCAPTION:
        return pixelMetric(QStyle::PM_TitleBarHeight, 24);
    case SM_CYSMCAPTION:
        return pixelMetric(QStyle::PM_DockWidgetTitleMargin, 2) * 2 + 16;
    case SM_CXBORDER:
    case SM_CYBORDER:
        return 1;
    case SM_CXDLGFRAME:
    case SM_CYDLGFRAME:
    case SM_CXFRAME:
    case SM_CYFRAME:
        return pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, 4);
    case SM_CXEDGE:
    case SM_CYEDGE:
        return 2;
    case SM_CXICON:
    case SM_CYICON:
    case SM_CXCURSOR:
    case SM_CYCURSOR:
        return 32;
    case SM_CXSMICON:
    case SM_CYSMICON:
        return 16;
    case SM_CXMENUCHECK:
    case SM_CYMENUCHECK:
        return pixelMetric(QStyle::PM_IndicatorWidth, 15);
    case SM_CYMENU:
        return menuHeight();
    default:
        return motionMetric(index);
    }
}
