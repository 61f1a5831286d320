#include "corekit/platform/qt/windows/ApplicationFilter.h"

#include "corekit/platform/Input.h"
#include "corekit/platform/posix/user/WindowTable.h"
#include "corekit/platform/qt/windows/BareWindow.h"
#include "corekit/platform/qt/windows/DropEvents.h"
#include "corekit/platform/qt/windows/ForeignDrags.h"
#include "corekit/platform/qt/windows/FrameDragging.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QApplication>
#include <QCursor>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QWindow>

#include <chrono>
#include <utility>

namespace corekit::detail {
namespace {

constinit PreTranslate preTranslate = nullptr;

bool isInputType(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

// Input for the surface of a disabled top window goes no further.
bool isRefused(const QObject* surface, const QEvent* event)
{
    if (!isInputType(event->type()) && event->type() != QEvent::TouchBegin) return false;
    for (const QWidget* const top : QApplication::topLevelWidgets()) {
        if (top->windowHandle() != surface) continue;
        const Window* const window = Window::of(top);
        return window && window->style() & WS_DISABLED;
    }
    return false;
}

HWND handleOf(const QWidget* widget)
{
    const Window* const window = Window::of(widget);
    return window ? window->handle() : nullptr;
}

void tellColours()
{
    for (const HWND handle : windowTables().handles()) {
        const Window* const window = windowTables().find(handle);
        if (window && !window->isChild()) SendMessageA(handle, WM_SYSCOLORCHANGE, 0, 0);
    }
}

void tellProgramActive(bool isActive)
{
    static constinit bool wasActive = false;
    if (std::exchange(wasActive, isActive) == isActive) return;
    for (const HWND handle : windowTables().handles()) {
        const Window* const window = windowTables().find(handle);
        if (window && !window->isChild()) SendMessageA(handle, WM_ACTIVATEAPP, isActive, 0);
    }
}

class Filter final : public QObject {
public:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (!receiver->isWidgetType()) {
            if (event->type() == QEvent::ApplicationPaletteChange && receiver == QCoreApplication::instance())
                tellColours();
            return receiver->isWindowType() &&
                   (isRefused(receiver, event) || passForeignDrag(receiver, event));
        }
        return isInputType(event->type()) ? input(static_cast<QWidget&>(*receiver), event)
                                          : fromWithin(static_cast<QWidget&>(*receiver), event);
    }

private:
    static bool input(QWidget& receiver, QEvent* event)
    {
        if (EventInHand::isPassing(&receiver, event)) return false;
        if (EventInHand::isRising(&receiver, event)) {
            event->accept();
            return true;
        }
        Window* const window = Window::of(&receiver);
        switch (event->type()) {
        case QEvent::KeyPress:
            if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && giveUpFrameDrag()) return true;
            [[fallthrough]];
        case QEvent::KeyRelease:
            return keyEvent(window && isPart(*window, receiver) ? nullptr : window, &receiver,
                            static_cast<QKeyEvent*>(event));
        case QEvent::InputMethod:
            return window && composedText(*window, static_cast<QInputMethodEvent*>(event));
        case QEvent::Wheel:
            return wheelEvent(receiver, event);
        case QEvent::ContextMenu:
            return window && contextMenuEvent(*window, &receiver, event);
        default:
            return mouseEvent(receiver, event);
        }
    }

    static bool fromWithin(QWidget& receiver, QEvent* event)
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride: // no shortcut of the toolkit comes before our windows
            if (!Window::of(&receiver)) return false;
            event->accept();
            return true;
        case QEvent::Paint:
            return paint(receiver, static_cast<QPaintEvent*>(event));
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            return focus(static_cast<QFocusEvent*>(event));
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::DragLeave:
        case QEvent::Drop: {
            Window* const window = Window::of(&receiver);
            return window && dropEvent(*window, receiver, event);
        }
        case QEvent::Leave:
            if (Window* const window = Window::of(&receiver)) leaveEvent(*window, receiver);
            return false;
        default:
            break;
        }
        Window* const window = windowTables().standingFor(&receiver);
        return window && place(*window, event);
    }

    static bool place(Window& window, QEvent* event)
    {
        switch (event->type()) {
        case QEvent::Resize:
        case QEvent::WindowStateChange:
            if (!window.paintsItself()) static_cast<BareWindow&>(window).layOut();
            if (Window* const still = windowTables().standingFor(window.widget())) still->tellPlace();
            return false;
        case QEvent::Move:
            if (window.isChild() || window.style() & WS_VISIBLE) window.tellPlace();
            return false;
        case QEvent::Close:
            event->ignore();
            SendMessageA(window.handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
            return true;
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
            if (!window.isChild()) moveActive(handleOf(QApplication::activeWindow()));
            return false;
        default:
            return false;
        }
    }

    static bool focus(const QFocusEvent* event)
    {
        if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason)
            return false;
        moveFocus(handleOf(QApplication::focusWidget()));
        return false;
    }

    static bool paint(QWidget& receiver, const QPaintEvent* event)
    {
        if (EventInHand::isPassing(&receiver, event)) return false;
        Window* const window = Window::of(&receiver);
        if (!window) return false;
        if (isPart(*window, receiver)) return false;
        if (window->paintsItself() &&
            GetWindowLongPtrA(window->handle(), GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&DefWindowProcA))
            return false;
        const EventInHand inHand(const_cast<QPaintEvent*>(event), &receiver, window->handle());
        paintWindow(*window, receiver, event->region());
        return true;
    }
};

} // namespace

bool installFilter()
{
    static QPointer<Filter> filter;
    if (filter || !QCoreApplication::instance()) return false;
    filter = new Filter;
    filter->setParent(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(filter);
    watchForeignDrags();
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, filter,
                     [](Qt::ApplicationState state) { tellProgramActive(state == Qt::ApplicationActive); });
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return true;
}

PreTranslate setPreTranslate(PreTranslate offered) { return std::exchange(preTranslate, offered); }

bool offer(MSG& message) { return preTranslate && preTranslate(&message); }

LRESULT offerAndSend(MSG& message, bool* wasConsumed)
{
    const bool consumed = offer(message);
    if (wasConsumed) *wasConsumed = consumed;
    return consumed ? 0 : DispatchMessageA(&message);
}

DWORD messageTime()
{
    using namespace std::chrono;
    return static_cast<DWORD>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

POINT pointerPlace()
{
    const QPoint place = QCursor::pos();
    return {place.x(), place.y()};
}

} // namespace corekit::detail
