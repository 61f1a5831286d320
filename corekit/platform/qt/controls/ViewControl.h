// What tree views and list views have in common: a view of the toolkit, and the clicks and keys that it tells
// of by WM_NOTIFY.
#pragma once

#include "corekit/platform/qt/controls/Control.h"

#include <QAbstractItemView>

#include <functional>

namespace corekit::detail {

class ViewControl : public Control {
public:
    using Control::Control;
    QMargins nonClient() const override; // frame, scroll bars, header

protected:
    enum class Click { left, doubleLeft, right, doubleRight, enter };

    QAbstractItemView* view() const { return as<QAbstractItemView>(); }
    UINT dialogCode() const override { return DLGC_WANTARROWS | DLGC_WANTCHARS; }
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;
    void character(char16_t c) override { view()->keyboardSearch(QString(QChar(c))); }
    void focusChanged(bool gained) override { tellPlain(gained ? NM_SETFOCUS : NM_KILLFOCUS); }

    // Tells of it; an answer other than 0 keeps the control from doing what it would.
    virtual LRESULT clicked(Click click, POINT point);
    // *_KEYDOWN
    virtual void keyPressed(WORD key) = 0;
    // What a double click or Enter does if the parent leaves it to the control.
    virtual void activated(Click) {}

    bool isByUser() const { return m_program == 0; }
    bool isByMouse() const { return m_byMouse; }
    QPoint inView(POINT client) const { return view()->viewport()->mapFrom(view(), toWidget(client)); }
    RECT inClient(const QRect& viewRect) const
    {
        return documentedRect(viewRect.translated(view()->viewport()->pos() - client().topLeft()));
    }

    int m_program = 0;

private:
    bool m_byMouse = false;
};

// What a host's callback orders: sorts numbers 0 to count - 1. Whatever the callback answers, each number
// stands in the result once.
std::vector<int> sortedOrder(int count, const std::function<bool(int, int)>& isBefore);

} // namespace corekit::detail
