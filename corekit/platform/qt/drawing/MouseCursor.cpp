// The cursor that the mouse shows.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/IconObject.h"
#include "corekit/platform/Toolkit.h"

#include <QApplication>
#include <QPixmap>
#include <QWidget>
#include <utility>

using namespace corekit::detail;

namespace {

HCURSOR shown = nullptr;
int showCount = 0;

QWidget* widgetWithMouse()
{
    QWidget* const grabber = QWidget::mouseGrabber();
    return grabber ? grabber : QApplication::widgetAt(QCursor::pos());
}

} // namespace

namespace corekit::detail {

QCursor toolkitCursor(HCURSOR cursor)
{
    const Icon* const icon = cursor ? GdiTable::find<Icon>(cursor) : nullptr;
    if (!icon) return Qt::BlankCursor;
    if (icon->shape) return *icon->shape;
    return QCursor(QPixmap::fromImage(icon->at(icon->size(), 1)), icon->hotSpot.x(), icon->hotSpot.y());
}

} // namespace corekit::detail

HCURSOR SetCursor(HCURSOR cursor)
{
    if (!ToolkitIsRunning()) {
        SetLastError(ERROR_DEV_NOT_EXIST);
        return nullptr;
    }
    if (QWidget* const widget = widgetWithMouse()) widget->setCursor(toolkitCursor(cursor));
    return std::exchange(shown, cursor);
}

HCURSOR GetCursor() { return shown; }

int ShowCursor(BOOL show)
{
    const int before = showCount;
    showCount += show ? 1 : -1;
    if (!ToolkitIsRunning()) return showCount;
    if (before == 0 && showCount == -1) QGuiApplication::setOverrideCursor(Qt::BlankCursor);
    if (before == -1 && showCount == 0) QGuiApplication::restoreOverrideCursor();
    return showCount;
}
