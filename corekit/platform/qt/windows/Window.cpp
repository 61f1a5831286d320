#include "corekit/platform/qt/windows/Window.h"

#include "corekit/platform/CodePages.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/windows/EventInHand.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"

#include <QApplication>
#include <QThread>

#include <cassert>

namespace corekit::detail {

bool onToolkitThread()
{
    const QCoreApplication* const application = QCoreApplication::instance();
    if (!application || application->thread() == QThread::currentThread()) return true;
    assert(!"a window was asked for on a thread that has none");
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
}

Window::Window(QWidget* widget) : m_widget(widget) {}

Window::~Window() = default;

bool Window::isEnabled() const
{
    for (const Window* window = this; window; window = window->isChild() ? find(window->m_parent) : nullptr)
        if (window->m_style & WS_DISABLED) return false;
    return true;
}

void Window::styleChanged(DWORD formerStyle, DWORD)
{
    if (m_exStyle & WS_EX_ACCEPTFILES && m_widget) m_widget->setAcceptDrops(true);
    if ((formerStyle ^ m_style) & WS_DISABLED) showEnabled(!(m_style & WS_DISABLED));
}

void Window::setText(const QString& text)
{
    m_text = text;
    if (!m_widget) return;
    if (m_widget->isWindow())
        m_widget->setWindowTitle(text);
    else if (!text.isEmpty())
        m_widget->setAccessibleName(text); // seen nowhere, but said
}

LRESULT Window::send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageA(m_handle, message, wParam, lParam);
}

LRESULT Window::notifyParent(UINT code)
{
    if (!m_parent || !m_alive) return 0;
    return SendMessageA(m_parent, WM_COMMAND, MAKELONG(static_cast<WORD>(m_id), static_cast<WORD>(code)),
                        reinterpret_cast<LPARAM>(m_handle));
}

LRESULT Window::notifyParent(NMHDR& header, UINT code)
{
    if (!m_parent || !m_alive) return 0;
    header = {m_handle, m_id, code};
    return SendMessageA(m_parent, WM_NOTIFY, m_id, reinterpret_cast<LPARAM>(&header));
}

QRect Window::client() const
{
    if (!m_widget) return {};
    return m_widget->rect().marginsRemoved(nonClient());
}

QPoint Window::childOrigin() const { return client().topLeft(); }

QPoint Window::toWidget(POINT point) const { return client().topLeft() + QPoint(point.x, point.y); }

POINT Window::toClient(QPoint point) const
{
    const QPoint inside = point - client().topLeft();
    return {inside.x(), inside.y()};
}

void Window::tellPlace()
{
    if (!m_alive || !m_tells || m_ending || !m_widget) return;
    const QRect now = client();
    QPoint origin = m_widget->mapToGlobal(now.topLeft());
    if (const Window* const parent = isChild() ? find(m_parent) : nullptr)
        origin = m_widget->pos() + now.topLeft() - parent->childOrigin();
    const QSize size(std::max(now.width(), 0), std::max(now.height(), 0));
    const int how = m_widget->isMinimized()   ? static_cast<int>(SIZE_MINIMIZED)
                    : m_widget->isMaximized() ? static_cast<int>(SIZE_MAXIMIZED)
                                              : static_cast<int>(SIZE_RESTORED);
    const bool moved = !m_placeTold || origin != m_toldOrigin;
    const bool sized = !m_placeTold || size != m_toldSize || how != m_toldHow;
    m_placeTold = true;
    m_toldOrigin = origin;
    m_toldSize = size;
    m_toldHow = how;
    const auto packed = [](int x, int y) {
        return static_cast<LPARAM>(MAKELONG(static_cast<WORD>(x), static_cast<WORD>(y)));
    };
    const HWND handle = m_handle;
    if (sized) SendMessageA(handle, WM_SIZE, static_cast<WPARAM>(how), packed(size.width(), size.height()));
    if (moved && find(handle)) SendMessageA(handle, WM_MOVE, 0, packed(origin.x(), origin.y()));
}

bool Window::deliverCurrentEvent() { return EventInHand::deliverTo(m_handle); }

const QEvent* Window::currentEvent() { return EventInHand::event(); }

QString fromNarrow(const char* text)
{
    if (!text || !*text) return {};
    const int length = static_cast<int>(std::strlen(text));
    QString wide(length, QChar());
    const int units =
        MultiByteToWideChar(CP_ACP, 0, text, length, reinterpret_cast<WCHAR*>(wide.data()), length);
    wide.truncate(units);
    return wide;
}

std::string toNarrow(const QString& text)
{
    const auto* const units = reinterpret_cast<const WCHAR*>(text.utf16());
    const int count = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_ACP, 0, units, count, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(std::max(needed, 0)), '\0');
    WideCharToMultiByte(CP_ACP, 0, units, count, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}

} // namespace corekit::detail
