// A window of a registered class: a widget that shows what its procedure paints, and round it what its style
// asks for: a border, the two standard scroll bars, and a menu bar.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

#include <QMenuBar>

#include <memory>

namespace corekit::detail {

class ScrollBar;

class BareWindow final : public Window {
public:
    explicit BareWindow(QWidget* parent);
    ~BareWindow() override;

    void begin(const CREATESTRUCTA& create) override;
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void styleChanged(DWORD formerStyle, DWORD formerExStyle) override;
    QMargins nonClient() const override;
    ScrollBar* scrollBar(int bar) override;
    bool paintsItself() const override { return false; }

    // Puts bars where they belong after the widget, or what it holds, has changed.
    void layOut();
    void paintBorder(QPainter& painter) const;
    // Null takes it away; the bar belongs to the widget.
    void setMenuBar(QMenuBar* bar);
    QMenuBar* menuBar() const { return m_menuBar; }

private:
    int border() const;
    bool erase(HDC dc) const;

    std::unique_ptr<ScrollBar> m_bars[2]; // SB_HORZ, SB_VERT
    QPointer<QMenuBar> m_menuBar;
};

// What every window does with a message that is not its class's own business.
LRESULT commonDefault(Window& window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace corekit::detail
