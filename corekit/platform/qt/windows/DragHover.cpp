#include "corekit/platform/DragHover.h"

#include "corekit/platform/qt/windows/Window.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QTimer>

namespace corekit::detail {

namespace {

constexpr int restInterval = 100; // milliseconds; the toolkit is silent while the mouse rests

// Hangs on the window's widget.
class HoverFilter final : public QObject {
public:
    HoverFilter(QWidget* widget, DragHoverTarget& target) : QObject(widget), m_target(target)
    {
        widget->setAcceptDrops(true);
        widget->installEventFilter(this);
        m_rest.setInterval(restInterval);
        connect(&m_rest, &QTimer::timeout, this, [this] { m_target.DragOver(m_point); });
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::DragEnter:
            accept(*static_cast<QDragEnterEvent*>(event));
            m_rest.start();
            m_target.DragEnter(m_point);
            return true;
        case QEvent::DragMove:
            accept(*static_cast<QDragMoveEvent*>(event));
            m_target.DragOver(m_point);
            return true;
        case QEvent::DragLeave:
        case QEvent::Drop:
            m_rest.stop();
            m_target.DragLeave();
            return true;
        default:
            return false;
        }
    }

private:
    // Accepted, or the toolkit would send no movements; with an action that lets nothing be dropped.
    void accept(QDropEvent& event)
    {
        const QPoint at = event.position().toPoint();
        m_point = {at.x(), at.y()};
        event.setDropAction(Qt::IgnoreAction);
        event.accept();
    }

    DragHoverTarget& m_target;
    QTimer m_rest;
    POINT m_point{};
};

} // namespace

} // namespace corekit::detail

BOOL SetDragHoverTarget(HWND window, DragHoverTarget* target)
{
    using namespace corekit::detail;
    const Window* const found = Window::find(window);
    QWidget* const widget = found ? found->widget() : nullptr;
    if (!widget) return FALSE;
    for (QObject* const child : widget->children())
        if (auto* const filter = dynamic_cast<HoverFilter*>(child)) delete filter;
    widget->setAcceptDrops(target != nullptr);
    if (target) new HoverFilter(widget, *target);
    return TRUE;
}
