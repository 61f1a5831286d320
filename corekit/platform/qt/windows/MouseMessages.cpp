// Mouse and wheel become messages.
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/qt/windows/FrameDragging.h"
#include "corekit/platform/qt/windows/WindowClass.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <set>

namespace corekit::detail {
namespace {

std::set<HWND>& trackedWindows()
{
    static auto* const tracked = new std::set<HWND>;
    return *tracked;
}

WPARAM flagsOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers held)
{
    WPARAM flags = 0;
    if (buttons & Qt::LeftButton) flags |= MK_LBUTTON;
    if (buttons & Qt::RightButton) flags |= MK_RBUTTON;
    if (buttons & Qt::MiddleButton) flags |= MK_MBUTTON;
    if (held & Qt::ShiftModifier) flags |= MK_SHIFT;
    if (held & Qt::ControlModifier) flags |= MK_CONTROL;
    return flags;
}

// The first message of the button's three; 0 for buttons without.
UINT firstMessageOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return WM_LBUTTONDOWN;
    case Qt::RightButton:
        return WM_RBUTTONDOWN;
    case Qt::MiddleButton:
        return WM_MBUTTONDOWN;
    case Qt::BackButton:
    case Qt::ForwardButton:
        return WM_XBUTTONDOWN;
    default:
        return 0;
    }
}

UINT messageOf(const QMouseEvent& event, const Window& window)
{
    const UINT first = firstMessageOf(event.button());
    switch (event.type()) {
    case QEvent::MouseMove:
        return WM_MOUSEMOVE;
    case QEvent::MouseButtonRelease:
        return first ? first + 1 : 0;
    case QEvent::MouseButtonDblClick:
        return first && window.windowClass().style & CS_DBLCLKS ? first + 2 : first;
    default:
        return first;
    }
}

LPARAM packed(POINT point)
{
    return static_cast<LPARAM>(MAKELONG(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

// The nearest window upwards that takes input; null if the top one does not.
Window* enabledFrom(Window* window)
{
    while (window && !window->isEnabled())
        window = window->isChild() ? Window::find(window->parent()) : nullptr;
    return window;
}

// Where the pointer is, while a pressed button holds the toolkit's events to another window.
Window* underPointer(Window* held, const QMouseEvent& event, QPoint inWidget)
{
    if (held->paintsItself() || held->widget()->rect().contains(inWidget) ||
        event.type() == QEvent::MouseButtonPress)
        return held;
    return Window::of(QApplication::widgetAt(event.globalPosition().toPoint()));
}

// Whether the click may go on to the window.
bool mayClick(Window& window, UINT message, int part = HTCLIENT)
{
    const HWND handle = window.handle();
    const LRESULT answer =
        SendMessageA(handle, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(GetAncestor(handle, GA_ROOT)),
                     static_cast<LPARAM>(MAKELONG(static_cast<WORD>(part), static_cast<WORD>(message))));
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT && IsWindow(handle);
}

bool isButtonDown(UINT message) { return message != WM_MOUSEMOVE && (message - WM_LBUTTONDOWN) % 3 != 1; }

void send(Window& window, QWidget& receiver, QMouseEvent& event, UINT message, QPoint inWidget)
{
    const HWND handle = window.handle();
    WPARAM wParam = flagsOf(event.buttons(), event.modifiers());
    if (message >= WM_XBUTTONDOWN && message <= WM_XBUTTONDBLCLK)
        wParam |= static_cast<WPARAM>(event.button() == Qt::BackButton ? 1 : 2) << 16;
    const QPoint global = event.globalPosition().toPoint();
    MSG made{
        handle, message, wParam, packed(window.toClient(inWidget)), messageTime(), {global.x(), global.y()}};
    EventInHand inHand(&event, &receiver, handle);
    if (!GetCapture()) {
        if (isButtonDown(message) && !mayClick(window, message)) return;
        SendMessageA(handle, WM_SETCURSOR, reinterpret_cast<WPARAM>(handle),
                     static_cast<LPARAM>(MAKELONG(HTCLIENT, static_cast<WORD>(message))));
        if (!IsWindow(handle)) return;
    }
    offerAndSend(made);
}

constexpr UINT toFrame =
    WM_NCMOUSEMOVE - WM_MOUSEMOVE; // from a message of the client area to that of the frame

// A part that is not the client area has messages of its own; the default drags by it.
void sendToFrame(Window& window, QMouseEvent& event, UINT message, int part)
{
    const HWND handle = window.handle();
    if (isButtonDown(message) && !mayClick(window, message, part)) return;
    SendMessageA(handle, WM_SETCURSOR, reinterpret_cast<WPARAM>(handle),
                 static_cast<LPARAM>(MAKELONG(static_cast<WORD>(part), static_cast<WORD>(message))));
    if (!IsWindow(handle)) return;
    const QPoint global = event.globalPosition().toPoint();
    const POINT at{global.x(), global.y()};
    MSG made{handle, message + toFrame, static_cast<WPARAM>(part), packed(at), messageTime(), at};
    offerAndSend(made);
}

} // namespace

void followHeldKeys(Qt::KeyboardModifiers held, int except);

bool mouseEvent(QWidget& receiver, QEvent* raw)
{
    auto* const event = static_cast<QMouseEvent*>(raw);
    Window* const captured = Window::find(GetCapture());
    Window* const hit = Window::of(&receiver);
    if (!captured && (!hit || (isPart(*hit, receiver) && hit->isEnabled()))) return false;
    followHeldKeys(event->modifiers(), 0);
    event->accept();
    if (dragFrame(*event)) return true;
    Window* target = captured ? captured : enabledFrom(hit);
    if (!target || !target->widget()) return true;
    QPoint place = target == hit || target->widget()->isAncestorOf(&receiver)
                       ? receiver.mapTo(target->widget(), event->position().toPoint())
                       : target->widget()->mapFromGlobal(event->globalPosition().toPoint());
    if (!captured) {
        target = enabledFrom(underPointer(target, *event, place));
        if (!target || !target->widget()) return true;
    }
    const UINT message = messageOf(*event, *target);
    if (!message) return true;
    if (!captured) {
        const std::shared_ptr<Window> asked = Window::share(target->handle());
        const int part = partUnder(*target, event->globalPosition().toPoint());
        if (!asked || !asked->isAlive()) return true;
        if (part != HTCLIENT && part != HTTRANSPARENT && part != HTNOWHERE)
            return sendToFrame(*asked, *event, message, part), true;
    }
    if (target == hit) {
        send(*target, receiver, *event, message, place);
        return true;
    }
    place = target->widget()->mapFromGlobal(event->globalPosition().toPoint());
    QMouseEvent moved(event->type(), place, event->globalPosition(), event->button(), event->buttons(),
                      event->modifiers());
    send(*target, *target->widget(), moved, message, place);
    return true;
}

bool wheelEvent(QWidget& receiver, QEvent* raw)
{
    auto* const event = static_cast<QWheelEvent*>(raw);
    Window* const hit = Window::of(&receiver);
    if (!hit || (isPart(*hit, receiver) && hit->isEnabled())) return false;
    followHeldKeys(event->modifiers(), 0);
    event->accept();
    Window* const target = enabledFrom(hit);
    if (!target) return true;
    const HWND handle = target->handle();
    const QPoint turned = event->angleDelta(), global = event->globalPosition().toPoint();
    EventInHand inHand(event, &receiver, handle);
    for (const UINT message : {WM_MOUSEWHEEL, WM_MOUSEHWHEEL}) {
        const int delta = message == WM_MOUSEWHEEL ? turned.y() : -turned.x();
        if (!delta || !IsWindow(handle)) continue;
        const WPARAM word = MAKELONG(static_cast<WORD>(flagsOf(event->buttons(), event->modifiers())),
                                     static_cast<WORD>(delta));
        MSG made{
            handle, message, word, packed({global.x(), global.y()}), messageTime(), {global.x(), global.y()}};
        offerAndSend(made);
    }
    return true;
}

void leaveEvent(Window& window, const QWidget& receiver)
{
    if (window.widget() == &receiver && trackedWindows().erase(window.handle())) window.send(WM_MOUSELEAVE);
}

bool contextMenuEvent(Window& window, QObject* receiver, QEvent* raw)
{
    raw->accept();
    if (!window.paintsItself() || !window.isEnabled()) return true; // made from the button's own messages
    const auto* const event = static_cast<QContextMenuEvent*>(raw);
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    EventInHand inHand(raw, receiver, window.handle());
    window.send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.handle()),
                byKey ? -1 : packed({event->globalX(), event->globalY()}));
    return true;
}

} // namespace corekit::detail

using namespace corekit::detail;

BOOL TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    if (!track || !IsWindow(track->hwndTrack)) return FALSE;
    if (track->dwFlags & TME_CANCEL)
        trackedWindows().erase(track->hwndTrack);
    else if (track->dwFlags & TME_LEAVE)
        trackedWindows().insert(track->hwndTrack);
    return TRUE;
}
