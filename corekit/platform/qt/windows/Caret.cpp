// The caret turns the pixels under it over, and back: what the window painted there stays as it is.
#include "corekit/platform/Caret.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/windows/PaintInHand.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QApplication>
#include <QBackingStore>
#include <QInputMethod>
#include <QPainter>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace corekit::detail {
namespace {

class Caret {
public:
    void create(Window& window, int width, int height)
    {
        destroy();
        m_window = window.handle();
        m_size = QSize(std::max(width, 1), std::max(height, 1));
        m_place = {};
        m_hidden = 1;
        compose(window, true);
    }

    void destroy()
    {
        turnOff();
        m_timer.stop();
        if (Window* const window = Window::find(m_window)) compose(*window, false);
        m_window = nullptr;
    }

    bool isOf(HWND window) const { return m_window && (!window || window == m_window); }
    HWND window() const { return m_window; }
    QPoint place() const { return m_place; }
    bool isOn() const { return m_isOn; }

    void moveTo(QPoint place)
    {
        if (place == m_place) return;
        const bool wasOn = m_isOn;
        turnOff();
        m_place = place;
        if (wasOn || isShown()) turnOn(); // a caret that moves is seen
        restart();
        if (Window::find(m_window)) QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle);
    }

    void show()
    {
        if (m_hidden > 0 && --m_hidden == 0) {
            turnOn();
            restart();
        }
    }
    void hide()
    {
        if (m_hidden++ == 0) {
            turnOff();
            m_timer.stop();
        }
    }

    // In the widget.
    QRect area(const Window& window) const { return {window.toWidget({m_place.x(), m_place.y()}), m_size}; }

    // After its window has painted the part that the painter is clipped to, the caret is missing there.
    void repaint(const Window& window, QPainter& painter) const
    {
        if (m_isOn && isOf(window.handle())) turnOver(painter, area(window) & window.client());
    }

    void setBlinkTime(UINT milliseconds)
    {
        m_blinkTime = static_cast<int>(std::min<UINT>(milliseconds, 0x7FFFFFFF));
        restart();
    }
    UINT blinkTime() const
    {
        if (m_blinkTime >= 0) return static_cast<UINT>(m_blinkTime);
        const int flash = QCoreApplication::instance() ? QApplication::cursorFlashTime() : 1060;
        return flash > 0 ? static_cast<UINT>(flash / 2) : 0xFFFFFFFF;
    }

private:
    bool isShown() const { return m_window && m_hidden == 0; }

    static void turnOver(QPainter& painter, const QRect& part)
    {
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
        painter.fillRect(part, Qt::white);
    }

    void turnOn()
    {
        if (!m_isOn && isShown()) m_isOn = drawNow();
    }
    void turnOff()
    {
        if (m_isOn) drawNow();
        m_isOn = false;
    }

    // On the picture that is on the screen; false if there is none, or it is being painted: then the paint
    // brings the caret.
    bool drawNow() const
    {
        const Window* const window = Window::find(m_window);
        if (!window || !window->widget() || !window->widget()->isVisible()) return false;
        if (PaintInHand::isAny()) {
            window->widget()->update(area(*window));
            return true;
        }
        QBackingStore* const store = window->widget()->backingStore();
        QWidget* const top = window->widget()->window();
        QPaintDevice* const device = shownBy(store);
        if (!device || device->devType() != QInternal::Image || device->width() == 0) return false;
        if (!top->windowHandle()) return false;
        const QPoint shift = window->widget()->mapTo(top, QPoint());
        const QRegion part =
            (window->widget()->visibleRegion() & area(*window) & window->client()).translated(shift);
        if (part.isEmpty()) return true;
        QPainter painter(device);
        painter.setClipRegion(part);
        turnOver(painter, part.boundingRect());
        painter.end();
        store->flush(part, top->windowHandle());
        return true;
    }

    void restart()
    {
        m_timer.stop();
        const UINT time = blinkTime();
        if (!isShown() || time == 0xFFFFFFFF || time == 0) return;
        if (!m_isConnected) {
            QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { m_isOn ? turnOff() : turnOn(); });
            m_isConnected = true;
        }
        m_timer.start(static_cast<int>(time));
    }

    // A window with a caret takes text, so input methods are on for it.
    static void compose(Window& window, bool takesText)
    {
        if (!window.widget()) return;
        window.widget()->setAttribute(Qt::WA_InputMethodEnabled, takesText);
        QGuiApplication::inputMethod()->update(Qt::ImEnabled);
    }

    HWND m_window = nullptr;
    QPoint m_place;
    QSize m_size;
    int m_hidden = 1, m_blinkTime = -1;
    bool m_isOn = false, m_isConnected = false;
    QTimer m_timer;
};

Caret& caret()
{
    static auto* const only = new Caret; // lives on: windows may close after the program's own objects
    return *only;
}

// The caret, if it is the window's.
bool requireCaret(HWND window)
{
    if (!onToolkitThread()) return false;
    if (QCoreApplication::instance() && caret().isOf(window)) return true;
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
}

} // namespace

void forgetCaret(HWND window)
{
    if (QCoreApplication::instance() && window && caret().window() == window) caret().destroy();
}

void paintCaret(Window& window, QPainter& painter) { caret().repaint(window, painter); }

QRect caretPlace(const Window& window)
{
    return caret().isOf(window.handle()) ? caret().area(window) : QRect();
}

CaretHidden::CaretHidden(HWND window) : m_wasShown(caret().isOf(window) && window)
{
    if (m_wasShown) caret().hide();
}

CaretHidden::~CaretHidden()
{
    if (m_wasShown) caret().show();
}

} // namespace corekit::detail

using namespace corekit::detail;

BOOL CreateCaret(HWND handle, HBITMAP, int width, int height)
{
    Window* const window = requireWindow(handle);
    if (!window) return FALSE;
    caret().create(*window, width, height);
    return TRUE;
}

BOOL DestroyCaret()
{
    if (!requireCaret(nullptr)) return FALSE;
    caret().destroy();
    return TRUE;
}

BOOL SetCaretPos(int x, int y)
{
    if (!requireCaret(nullptr)) return FALSE;
    caret().moveTo({x, y});
    return TRUE;
}

BOOL GetCaretPos(POINT* point)
{
    if (!point) return FALSE;
    *point = {};
    if (QCoreApplication::instance() && caret().isOf(nullptr))
        *point = {caret().place().x(), caret().place().y()};
    return TRUE;
}

BOOL ShowCaret(HWND window)
{
    if (!requireCaret(window)) return FALSE;
    caret().show();
    return TRUE;
}

BOOL HideCaret(HWND window)
{
    if (!requireCaret(window)) return FALSE;
    caret().hide();
    return TRUE;
}

UINT GetCaretBlinkTime() { return caret().blinkTime(); }

BOOL SetCaretBlinkTime(UINT milliseconds)
{
    if (!onToolkitThread()) return FALSE;
    caret().setBlinkTime(milliseconds);
    return TRUE;
}
