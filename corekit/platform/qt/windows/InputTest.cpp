#include "corekit/platform/InputTest.h"

#include "corekit/platform/Keyboard.h"
#include "corekit/platform/MessageLoop.h"
#include "corekit/platform/qt/windows/KeyCodes.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/Window.h"

#include "corekit/platform/Gdi.h"

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QThread>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cstring>

// How the toolkit's own tests hand in what devices would; exported by its library, declared in no header.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow*, QEvent::Type, int, Qt::KeyboardModifiers, const QString&, bool,
                                    ushort);
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow*, const QPointF&, const QPointF&, Qt::MouseButtons,
                                      Qt::MouseButton, QEvent::Type, Qt::KeyboardModifiers, int);
QT_END_NAMESPACE

namespace corekit::test {
namespace {

using detail::Window;

constinit int eventTime = 1000; // milliseconds

Qt::KeyboardModifiers modifiersOf(std::initializer_list<int> held)
{
    Qt::KeyboardModifiers modifiers;
    for (const int key : held) {
        if (key == VK_SHIFT || key == VK_LSHIFT || key == VK_RSHIFT) modifiers |= Qt::ShiftModifier;
        if (key == VK_CONTROL || key == VK_LCONTROL || key == VK_RCONTROL) modifiers |= Qt::ControlModifier;
        if (key == VK_MENU || key == VK_LMENU || key == VK_RMENU) modifiers |= Qt::AltModifier;
    }
    return modifiers;
}

// What a United States layout prints; 0 for keys that print nothing.
struct PrintingKey {
    int virtualKey;
    char plain, shifted;
};
constexpr PrintingKey printingKeys[] = {
    {VK_SPACE, ' ', ' '},    {'1', '1', '!'},          {'2', '2', '@'},          {'3', '3', '#'},
    {'4', '4', '$'},         {'5', '5', '%'},          {'6', '6', '^'},          {'7', '7', '&'},
    {'8', '8', '*'},         {'9', '9', '('},          {'0', '0', ')'},          {VK_OEM_1, ';', ':'},
    {VK_OEM_PLUS, '=', '+'}, {VK_OEM_COMMA, ',', '<'}, {VK_OEM_MINUS, '-', '_'}, {VK_OEM_PERIOD, '.', '>'},
    {VK_OEM_2, '/', '?'},    {VK_OEM_3, '`', '~'},     {VK_OEM_4, '[', '{'},     {VK_OEM_5, '\\', '|'},
    {VK_OEM_6, ']', '}'},    {VK_OEM_7, '\'', '"'},    {VK_BACK, '\b', '\b'},    {VK_RETURN, '\r', '\r'},
    {0x09, '\t', '\t'},      {0x1B, '\x1B', '\x1B'},   {0x2E, '\x7F', '\x7F'},
};

struct Stroke {
    int virtualKey = 0;
    bool isShifted = false;
};

Stroke strokeOf(char16_t c)
{
    if (c == '\n') c = '\r';
    if (c >= 'a' && c <= 'z') return {c - 'a' + 'A', false};
    if (c >= 'A' && c <= 'Z') return {c, true};
    for (const PrintingKey& key : printingKeys) {
        if (c == static_cast<char16_t>(key.plain)) return {key.virtualKey, false};
        if (c == static_cast<char16_t>(key.shifted)) return {key.virtualKey, true};
    }
    return {};
}

QString textOf(int virtualKey, Qt::KeyboardModifiers held)
{
    const bool isShifted = held & Qt::ShiftModifier;
    if (virtualKey >= 'A' && virtualKey <= 'Z') {
        if (held & Qt::ControlModifier) return QString(QChar(virtualKey - 'A' + 1));
        return QString(QChar(isShifted ? virtualKey : virtualKey + 32));
    }
    for (const PrintingKey& key : printingKeys)
        if (key.virtualKey == virtualKey)
            return QString(QChar(QLatin1Char(isShifted ? key.shifted : key.plain)));
    return {};
}

QWindow* keyWindow()
{
    if (QWindow* const focused = QGuiApplication::focusWindow()) return focused;
    const QWidget* const active = QApplication::activeWindow();
    return active ? active->windowHandle() : nullptr;
}

void sendKey(QEvent::Type type, int virtualKey, Qt::KeyboardModifiers held)
{
    QWindow* const window = keyWindow();
    if (!window || !detail::onToolkitThread()) return;
    int key = detail::toolkitKeyOf(virtualKey);
    if (virtualKey == 0x09 && held & Qt::ShiftModifier) key = Qt::Key_Backtab;
    qt_handleKeyEvent(window, type, key, held, textOf(virtualKey, held), false, 1);
}

void sendHeld(QEvent::Type type, std::initializer_list<int> held)
{
    Qt::KeyboardModifiers now;
    for (const int key : held) {
        if (type == QEvent::KeyPress) now |= modifiersOf({key});
        sendKey(type, key == VK_LSHIFT || key == VK_RSHIFT ? VK_SHIFT : key, now);
    }
}

Qt::MouseButton toolkitButton(Button button)
{
    return button == Button::left    ? Qt::LeftButton
           : button == Button::right ? Qt::RightButton
                                     : Qt::MiddleButton;
}

constinit Qt::MouseButtons pressedButtons{};

// A button is let go where it was pressed, even if the control there has gone.
void releaseWhereItWas(Qt::MouseButton button, Qt::KeyboardModifiers held)
{
    QWindow* const under = keyWindow();
    if (!(pressedButtons & button) || !under) return;
    pressedButtons &= ~Qt::MouseButtons(button);
    eventTime += 20;
    const QPoint place = QCursor::pos();
    qt_handleMouseEvent(under, under->mapFromGlobal(place), place, pressedButtons, button,
                        QEvent::MouseButtonRelease, held, eventTime);
}

void sendMouse(HWND handle, POINT point, QEvent::Type type, Qt::MouseButton button,
               Qt::KeyboardModifiers held)
{
    const Window* const window = Window::find(handle);
    if (type == QEvent::MouseButtonRelease && !window) return releaseWhereItWas(button, held);
    if (!window || !window->widget()) return;
    QWidget* const top = window->widget()->window();
    if (!top->windowHandle()) return;
    if (type == QEvent::MouseButtonPress) pressedButtons |= button;
    if (type == QEvent::MouseButtonRelease) pressedButtons &= ~Qt::MouseButtons(button);
    const QPoint local = window->widget()->mapTo(top, window->toWidget(point));
    eventTime += 20;
    qt_handleMouseEvent(top->windowHandle(), local, top->mapToGlobal(local), pressedButtons, button, type,
                        held, eventTime);
}

} // namespace

void KeyDown(int virtualKey, std::initializer_list<int> held)
{
    sendHeld(QEvent::KeyPress, held);
    sendKey(QEvent::KeyPress, virtualKey, modifiersOf(held));
    RunWaiting();
}

void KeyUp(int virtualKey, std::initializer_list<int> held)
{
    sendKey(QEvent::KeyRelease, virtualKey, modifiersOf(held));
    sendHeld(QEvent::KeyRelease, held);
    RunWaiting();
}

void PressKey(int virtualKey, std::initializer_list<int> held)
{
    KeyDown(virtualKey, held);
    KeyUp(virtualKey, held);
}

void TypeText(std::u16string_view text)
{
    std::u16string composed;
    for (const char16_t c : text) {
        const Stroke stroke = strokeOf(c);
        if (!stroke.virtualKey) {
            composed += c;
            continue;
        }
        if (!composed.empty()) ComposeText(std::exchange(composed, {}));
        stroke.isShifted ? PressKey(stroke.virtualKey, {VK_SHIFT}) : PressKey(stroke.virtualKey);
    }
    if (!composed.empty()) ComposeText(composed);
}

namespace {
void sendComposed(std::u16string_view unfinished, std::u16string_view final)
{
    QWidget* const widget = detail::onToolkitThread() ? QApplication::focusWidget() : nullptr;
    if (!widget) return;
    const auto wide = [](std::u16string_view text) {
        return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
    };
    QInputMethodEvent event(wide(unfinished), {});
    event.setCommitString(wide(final));
    QCoreApplication::sendEvent(widget, &event);
    RunWaiting();
}
} // namespace

void ComposeText(std::u16string_view text) { sendComposed({}, text); }
void ComposeUnfinished(std::u16string_view text) { sendComposed(text, {}); }

void MouseDown(HWND window, POINT point, Button button, std::initializer_list<int> held)
{
    sendMouse(window, point, QEvent::MouseMove, Qt::NoButton, modifiersOf(held));
    sendMouse(window, point, QEvent::MouseButtonPress, toolkitButton(button), modifiersOf(held));
    RunWaiting();
}

void MouseUp(HWND window, POINT point, Button button, std::initializer_list<int> held)
{
    sendMouse(window, point, QEvent::MouseButtonRelease, toolkitButton(button), modifiersOf(held));
    RunWaiting();
}

void Click(HWND window, POINT point, Button button, Clicks clicks, std::initializer_list<int> held)
{
    eventTime += 10000; // no double click with what came before
    for (int i = clicks == Clicks::two ? 2 : 1; i > 0; --i) {
        MouseDown(window, point, button, held);
        MouseUp(window, point, button, held);
    }
}

void MoveMouse(HWND window, POINT point)
{
    sendMouse(window, point, QEvent::MouseMove, Qt::NoButton, {});
    RunWaiting();
}

void Drag(HWND window, POINT from, POINT to, Button button)
{
    constexpr int steps = 4;
    eventTime += 10000;
    MouseDown(window, from, button);
    for (int i = 1; i <= steps; ++i)
        MoveMouse(window, {from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
    MouseUp(window, to, button);
}

void TurnWheel(HWND handle, POINT point, int delta)
{
    const Window* const window = Window::find(handle);
    if (!window || !window->widget()) return;
    QWidget* const top = window->widget()->window();
    const QPoint local = window->widget()->mapTo(top, window->toWidget(point));
    if (!top->windowHandle()) return;
    QWheelEvent event(local, top->mapToGlobal(local), {}, {0, delta}, pressedButtons, {}, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(top->windowHandle(), &event);
    RunWaiting();
}

void RunWaiting()
{
    for (int i = 0; i < 3; ++i) detail::runWaitingMessages();
}

void RunFor(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < milliseconds) {
        detail::runWaitingMessages();
        QThread::msleep(1);
    }
}

HBITMAP PictureOf(HWND handle)
{
    const Window* const window = Window::find(handle);
    if (!window || !window->widget()) return nullptr;
    RunWaiting();
    const QImage picture =
        window->widget()->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    BITMAPINFO info{
        {sizeof(BITMAPINFOHEADER), picture.width(), -picture.height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) return nullptr;
    for (int y = 0; y < picture.height(); ++y)
        std::memcpy(static_cast<std::uint32_t*>(bits) + static_cast<std::ptrdiff_t>(y) * picture.width(),
                    picture.constScanLine(y), static_cast<std::size_t>(picture.width()) * 4);
    return bitmap;
}

} // namespace corekit::test
