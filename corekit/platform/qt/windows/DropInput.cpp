// Drops as a user would make them, for tests and demonstrations.
#include "corekit/platform/InputTest.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/Window.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QMimeData>
#include <QUrl>

namespace corekit::test {

namespace {

// The widget under the point that takes drops, as the toolkit looks for it.
class Target {
public:
    Target(HWND handle, POINT point)
    {
        const detail::Window* const window =
            detail::onToolkitThread() ? detail::Window::find(handle) : nullptr;
        if (!window || !window->widget()) return;
        const QPoint place = window->toWidget(point);
        QWidget* const child = window->widget()->childAt(place);
        m_widget = child ? child : window->widget();
        while (m_widget && !m_widget->acceptDrops())
            m_widget = m_widget->isWindow() ? nullptr : m_widget->parentWidget();
        if (m_widget)
            m_place = m_widget->mapFrom(window->widget()->window(),
                                        window->widget()->mapTo(window->widget()->window(), place));
    }

    bool enter(const QMimeData& data)
    {
        send<QDragEnterEvent>(data);
        return send<QDragMoveEvent>(data);
    }
    bool drop(const QMimeData& data) { return send<QDropEvent>(data); }
    void leave()
    {
        QDragLeaveEvent event;
        if (m_widget) QCoreApplication::sendEvent(m_widget, &event);
    }

private:
    template <class Event>
    bool send(const QMimeData& data)
    {
        if (!m_widget) return false;
        constexpr Qt::DropActions all = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
        Event event(m_place, all, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_widget, &event);
        return event.isAccepted() && event.dropAction() != Qt::IgnoreAction;
    }

    QPointer<QWidget> m_widget;
    QPoint m_place;
};

bool dropOn(HWND window, POINT point, const QMimeData& data)
{
    Target target(window, point);
    const bool isTaken = target.enter(data) ? target.drop(data) : (target.leave(), false);
    RunWaiting();
    return isTaken;
}

QString wide(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

} // namespace

bool DropText(HWND window, POINT point, std::u16string_view text)
{
    QMimeData data;
    data.setText(wide(text));
    return dropOn(window, point, data);
}

bool DropFiles(HWND window, POINT point, std::initializer_list<const char*> names)
{
    QList<QUrl> urls;
    for (const char* const name : names) urls += QUrl::fromLocalFile(QString::fromLocal8Bit(name));
    QMimeData data;
    data.setUrls(urls);
    return dropOn(window, point, data);
}

void HoldTextOver(HWND window, POINT point, std::u16string_view text, const std::function<bool()>& until)
{
    QMimeData data;
    data.setText(wide(text));
    Target target(window, point);
    target.enter(data);
    const QDeadlineTimer end(30'000);
    while (!until() && !end.hasExpired()) RunFor(10);
    target.leave();
    RunWaiting();
}

void DragTextAcross(HWND window, POINT point, std::u16string_view text)
{
    HoldTextOver(window, point, text, [] { return true; });
}

} // namespace corekit::test
