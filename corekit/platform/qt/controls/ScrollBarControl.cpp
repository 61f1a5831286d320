#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/windows/ScrollBar.h"

#include <QScrollBar>

namespace corekit::detail {

namespace {

constexpr DWORD verticalStyle = 1; // SBS_VERT

class ScrollBarControl final : public Control {
public:
    explicit ScrollBarControl(QWidget* parent)
        : Control(new QScrollBar(parent)),
          m_bar(as<QScrollBar>(), [this](int code, int position) { tellScroll(code, position); })
    {
    }
    void begin(const CREATESTRUCTA&) override
    {
        as<QScrollBar>()->setOrientation(isVertical() ? Qt::Vertical : Qt::Horizontal);
    }
    ScrollBar* scrollBar(int bar) override { return bar == SB_CTL ? &m_bar : nullptr; }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    UINT dialogCode() const override { return DLGC_WANTARROWS; }

private:
    bool isVertical() const { return style() & verticalStyle; }
    void tellScroll(int code, int position)
    {
        if (!isAlive() || !parent()) return;
        SendMessageA(parent(), isVertical() ? WM_VSCROLL : WM_HSCROLL,
                     MAKELONG(static_cast<WORD>(code), static_cast<WORD>(position)),
                     reinterpret_cast<LPARAM>(handle()));
    }
    SCROLLINFO now() const
    {
        SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
        m_bar.get(info);
        return info;
    }

    ScrollBar m_bar;
};

LRESULT ScrollBarControl::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!widget()) return Control::defaultProcedure(message, wParam, lParam);
    SCROLLINFO info = now();
    switch (message) {
    case SBM_SETSCROLLINFO:
        return lParam ? m_bar.set(*reinterpret_cast<const SCROLLINFO*>(lParam)) : 0;
    case SBM_GETSCROLLINFO:
        return lParam && m_bar.get(*reinterpret_cast<SCROLLINFO*>(lParam));
    case SBM_SETPOS: {
        const int former = info.nPos;
        info.fMask = SIF_POS;
        info.nPos = static_cast<int>(wParam);
        m_bar.set(info);
        return former;
    }
    case SBM_GETPOS:
        return info.nPos;
    case SBM_SETRANGE: {
        const int former = info.nPos;
        info.fMask = SIF_RANGE;
        info.nMin = static_cast<int>(wParam);
        info.nMax = static_cast<int>(lParam);
        m_bar.set(info);
        return now().nPos == former ? 0 : former;
    }
    case SBM_GETRANGE:
        if (auto* const low = reinterpret_cast<int*>(wParam)) *low = info.nMin;
        if (auto* const high = reinterpret_cast<int*>(lParam)) *high = info.nMax;
        return 0;
    case SBM_ENABLE_ARROWS:
        EnableWindow(handle(), wParam != ESB_DISABLE_BOTH);
        return 1;
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

} // namespace

std::unique_ptr<Window> makeScrollBar(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<ScrollBarControl>(parent);
}

} // namespace corekit::detail
