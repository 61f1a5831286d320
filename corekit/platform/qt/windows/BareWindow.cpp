#include "corekit/platform/qt/windows/BareWindow.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Painting.h"
#include "corekit/platform/PopupMenus.h"
#include "corekit/platform/qt/windows/EventInHand.h"
#include "corekit/platform/qt/windows/ScrollBar.h"
#include "corekit/platform/qt/windows/WindowClass.h"
#include "corekit/platform/qt/windows/WindowState.h"

#include <QMenuBar>
#include <QPainter>
#include <QScrollBar>
#include <QVariant>

namespace corekit::detail {

namespace {

// The keys Tab and Shift+Tab are the window's own.
class BareWidget final : public QWidget {
public:
    explicit BareWidget(QWidget* parent) : QWidget(parent) {}

protected:
    bool focusNextPrevChild(bool) override { return false; }
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override
    {
        const Window* const window = Window::of(this);
        if (query == Qt::ImCursorRectangle && window) return caretPlace(*window);
        return QWidget::inputMethodQuery(query);
    }
};

} // namespace

BareWindow::BareWindow(QWidget* parent) : Window(new BareWidget(parent)) {}

BareWindow::~BareWindow() = default;

void BareWindow::begin(const CREATESTRUCTA& create)
{
    // What the procedure does not paint keeps what was there, as nothing else paints below it.
    if (!(exStyle() & WS_EX_TRANSPARENT)) {
        widget()->setAttribute(Qt::WA_OpaquePaintEvent);
        widget()->setAttribute(Qt::WA_NoSystemBackground);
    }
    widget()->setAttribute(Qt::WA_InputMethodEnabled, false);
    for (const int bar : {SB_HORZ, SB_VERT}) {
        auto* const shown = new QScrollBar(bar == SB_HORZ ? Qt::Horizontal : Qt::Vertical, widget());
        shown->setFocusPolicy(Qt::NoFocus);
        shown->hide();
        const UINT message = bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL;
        m_bars[bar] = std::make_unique<ScrollBar>(shown, [this, message](int code, int position) {
            send(message, MAKELONG(static_cast<WORD>(code), static_cast<WORD>(position)));
        });
    }
    layOut();
    if (!isChild() && create.hMenu) SetMenu(handle(), create.hMenu);
}

void BareWindow::styleChanged(DWORD formerStyle, DWORD formerExStyle)
{
    Window::styleChanged(formerStyle, formerExStyle);
    layOut();
}

ScrollBar* BareWindow::scrollBar(int bar)
{
    return bar == SB_HORZ || bar == SB_VERT ? m_bars[bar].get() : nullptr;
}

int BareWindow::border() const
{
    const bool framed = (style() & WS_CAPTION) == WS_CAPTION && !isChild(); // by the window manager
    if (exStyle() & WS_EX_CLIENTEDGE) return 2;
    if (exStyle() & WS_EX_STATICEDGE) return 1;
    return style() & (WS_BORDER | WS_DLGFRAME) && !framed ? 1 : 0;
}

QMargins BareWindow::nonClient() const
{
    const int edge = border();
    QMargins margins(edge, edge, edge, edge);
    if (style() & WS_VSCROLL && m_bars[SB_VERT])
        margins += QMargins(0, 0, m_bars[SB_VERT]->widget()->sizeHint().width(), 0);
    if (style() & WS_HSCROLL && m_bars[SB_HORZ])
        margins += QMargins(0, 0, 0, m_bars[SB_HORZ]->widget()->sizeHint().height());
    if (m_menuBar) margins += QMargins(0, m_menuBar->heightForWidth(widget()->width()), 0, 0);
    return margins;
}

void BareWindow::layOut()
{
    if (!widget() || !m_bars[SB_VERT]) return;
    const QRect inside = client();
    const int edge = border();
    const bool vertical = style() & WS_VSCROLL, horizontal = style() & WS_HSCROLL;
    QScrollBar* const down = m_bars[SB_VERT]->widget();
    QScrollBar* const across = m_bars[SB_HORZ]->widget();
    down->setGeometry(inside.right() + 1, inside.top(), down->sizeHint().width(), inside.height());
    across->setGeometry(inside.left(), inside.bottom() + 1, inside.width(), across->sizeHint().height());
    down->setVisible(vertical);
    across->setVisible(horizontal);
    if (m_menuBar)
        m_menuBar->setGeometry(edge, edge, widget()->width() - 2 * edge,
                               m_menuBar->heightForWidth(widget()->width()));
    tellPlace();
}

void BareWindow::setMenuBar(QMenuBar* bar)
{
    if (m_menuBar) m_menuBar->deleteLater();
    m_menuBar = bar;
    layOut();
    if (bar) bar->show();
}

void BareWindow::paintBorder(QPainter& painter) const
{
    const QMargins margins = nonClient();
    const QPalette& colours = widget()->palette();
    if (style() & WS_VSCROLL && style() & WS_HSCROLL) // the corner between the bars
        painter.fillRect(QRect(client().bottomRight() + QPoint(1, 1), widget()->rect().bottomRight()),
                         colours.window());
    const int edge = border();
    if (!edge || margins.isNull()) return;
    painter.setPen(colours.color(exStyle() & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE) ? QPalette::Mid
                                                                                   : QPalette::WindowText));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(widget()->rect().adjusted(0, 0, -1, -1));
    if (edge < 2) return;
    painter.setPen(colours.color(QPalette::Midlight));
    painter.drawRect(widget()->rect().adjusted(1, 1, -2, -2));
}

bool BareWindow::erase(HDC dc) const
{
    const HBRUSH brush = windowClass().background;
    if (!brush) return false;
    RECT all{0, 0, client().width(), client().height()};
    return FillRect(dc, &all, brush) != 0;
}

LRESULT BareWindow::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_ERASEBKGND:
        return erase(reinterpret_cast<HDC>(wParam));
    case WM_PAINT: {
        PAINTSTRUCT paint;
        const HWND self = handle();
        BeginPaint(self, &paint);
        EndPaint(self, &paint);
        return 0;
    }
    default:
        return commonDefault(*this, message, wParam, lParam);
    }
}

} // namespace corekit::detail
