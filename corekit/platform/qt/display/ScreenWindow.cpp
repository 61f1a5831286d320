#include "corekit/platform/qt/display/ScreenWindow.h"

#include "corekit/platform/qt/windows/NeverDestroyed.h"

#include <algorithm>
#include <QGuiApplication>
#include <QPainter>
#include <thread>
#include <vector>

namespace corekit::detail {

namespace {

constexpr double commonRate = 60;

// The lowest first.
std::vector<ScreenWindow*>& stack()
{
    static NeverDestroyed<std::vector<ScreenWindow*>> windows;
    return windows.get();
}

} // namespace

std::chrono::nanoseconds refreshPeriod(const QScreen* screen)
{
    const double told = screen ? screen->refreshRate() : 0;
    return std::chrono::nanoseconds(static_cast<std::int64_t>(1e9 / (told >= 1 ? told : commonRate)));
}

void sleepUntilBlank(const QScreen* screen)
{
    const auto period = refreshPeriod(screen);
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    std::this_thread::sleep_for(period - since % period);
}

ScreenWindow::ScreenWindow(QScreen* screen) : m_screen(screen)
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    setGeometry(screen->geometry());
    setScreen(screen);
    stack().push_back(this);
    showFullScreen();
}

ScreenWindow::~ScreenWindow() { std::erase(stack(), this); }

void ScreenWindow::show(const QImage& picture)
{
    m_picture = picture;
    m_isPending = true;
    update();
}

void ScreenWindow::waitForBlank()
{
    if (m_isPending) repaint();
    sleepUntilBlank(m_screen);
}

bool ScreenWindow::isOnTop() const
{
    if (!m_screen || isMinimized() || !isVisible()) return false;
    const auto top = std::find_if(stack().rbegin(), stack().rend(), [&](const ScreenWindow* w) {
        return w->m_screen == m_screen && w->isVisible();
    });
    return top != stack().rend() && *top == this;
}

bool ScreenWindow::raiseAgain()
{
    if (!m_screen) return false;
    std::erase(stack(), this);
    stack().push_back(this);
    setGeometry(m_screen->geometry());
    showFullScreen();
    raise();
    return true;
}

void ScreenWindow::paintEvent(QPaintEvent*)
{
    m_isPending = false;
    QPainter painter(this);
    if (m_picture.isNull())
        painter.fillRect(rect(), Qt::black);
    else
        painter.drawImage(rect(), m_picture);
}

} // namespace corekit::detail
