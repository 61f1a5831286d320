#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/OwnerDraw.h"
#include "corekit/platform/qt/controls/Picture.h"
#include "corekit/platform/Statics.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextOption>

#include <functional>

namespace corekit::detail {

namespace {

// A label whose picture is ours: the toolkit's would take & for a character where no other control is named
// by it.
class StaticFace final : public QLabel {
public:
    explicit StaticFace(QWidget* parent) : QLabel(parent)
    {
        setTextFormat(Qt::PlainText);
        setFocusPolicy(Qt::NoFocus);
    }
    std::function<void(QPainter&)> draw;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QFrame::paintEvent(event);
        QPainter painter(this);
        if (draw) draw(painter);
    }
};

class Static final : public Control {
public:
    explicit Static(QWidget* parent) : Control(new StaticFace(parent))
    {
        face()->draw = [this](QPainter& painter) { draw(painter); };
    }
    ~Static() override
    {
        if (face()) face()->draw = nullptr;
    }
    void begin(const CREATESTRUCTA&) override { followStyle(); }
    void styleChanged(DWORD style, DWORD exStyle) override
    {
        Control::styleChanged(style, exStyle);
        followStyle();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override { return m_text; }
    void setText(const QString& text) override;

protected:
    UINT dialogCode() const override { return DLGC_STATIC; }
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    StaticFace* face() const { return as<StaticFace>(); }
    DWORD kind() const { return style() & SS_TYPEMASK; }
    void followStyle();
    void draw(QPainter& painter);
    void drawText(QPainter& painter, const QRect& rect) const;
    void drawShape(QPainter& painter, const QRect& rect) const;
    void drawPicture(QPainter& painter, const QRect& rect) const;
    int textFlags() const;
    LRESULT setPicture(UINT type, HANDLE handle);

    QString m_text;
    HANDLE m_picture = nullptr;
};

void Static::followStyle()
{
    if (!face()) return;
    constexpr auto etchedLine = [](QFrame::Shape shape) { return static_cast<int>(shape) | QFrame::Sunken; };
    int frame = style() & SS_SUNKEN || exStyle() & WS_EX_STATICEDGE ? etchedLine(QFrame::Panel) : 0;
    if (kind() == SS_ETCHEDHORZ) frame = etchedLine(QFrame::HLine);
    if (kind() == SS_ETCHEDVERT) frame = etchedLine(QFrame::VLine);
    if (kind() == SS_ETCHEDFRAME) frame = etchedLine(QFrame::StyledPanel);
    if (style() & WS_BORDER) frame = static_cast<int>(QFrame::Box) | QFrame::Plain;
    face()->setFrameStyle(frame);
    // Without SS_NOTIFY the mouse belongs to what lies under the text.
    face()->setAttribute(Qt::WA_TransparentForMouseEvents, !(style() & SS_NOTIFY));
    face()->update();
}

void Static::setText(const QString& text)
{
    m_text = text;
    if (!face()) return;
    face()->setText(style() & SS_NOPREFIX ? text : withoutMnemonic(text));
    if (QWidget* const named = face()->buddy()) named->setAccessibleName(face()->text());
    face()->update();
}

LRESULT Static::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case STM_SETICON:
        return setPicture(IMAGE_ICON, reinterpret_cast<HANDLE>(wParam));
    case STM_SETIMAGE:
        return setPicture(static_cast<UINT>(wParam), reinterpret_cast<HANDLE>(lParam));
    case STM_GETICON:
        return kind() == SS_ICON ? reinterpret_cast<LRESULT>(m_picture) : 0;
    case STM_GETIMAGE:
        return kind() == (wParam == IMAGE_BITMAP ? SS_BITMAP : SS_ICON) ? reinterpret_cast<LRESULT>(m_picture)
                                                                        : 0;
    case WM_ENABLE:
        if (style() & SS_NOTIFY) tell(wParam ? STN_ENABLE : STN_DISABLE);
        return 0;
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

LRESULT Static::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (style() & SS_NOTIFY) {
        if (message == WM_LBUTTONDOWN && !tell(STN_CLICKED)) return 0;
        if (message == WM_LBUTTONDBLCLK && !tell(STN_DBLCLK)) return 0;
    }
    return Control::input(message, wParam, lParam);
}

LRESULT Static::setPicture(UINT type, HANDLE handle)
{
    if (kind() != (type == IMAGE_BITMAP ? SS_BITMAP : SS_ICON)) return 0;
    const HANDLE former = std::exchange(m_picture, handle);
    const QSize size = pictureSize(type, handle);
    if (!size.isEmpty() && !(style() & (SS_CENTERIMAGE | SS_REALSIZECONTROL)))
        SetWindowPos(this->handle(), nullptr, 0, 0, size.width(), size.height(),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (face()) face()->update();
    return reinterpret_cast<LRESULT>(former);
}

void Static::draw(QPainter& painter)
{
    const QRect rect = face()->contentsRect();
    switch (kind()) {
    case SS_OWNERDRAW: {
        DRAWITEMSTRUCT parts{};
        parts.CtlType = ODT_STATIC;
        parts.itemAction = ODA_DRAWENTIRE;
        if (!face()->isEnabled()) parts.itemState = ODS_DISABLED;
        return sendDrawItem(*this, painter, rect, parts);
    }
    case SS_ICON:
    case SS_BITMAP:
        return drawPicture(painter, rect);
    case SS_LEFT:
    case SS_CENTER:
    case SS_RIGHT:
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP:
        return drawText(painter, rect);
    default:
        return drawShape(painter, rect);
    }
}

int Static::textFlags() const
{
    int flags = Qt::TextExpandTabs | Qt::AlignTop;
    const bool oneLine = style() & (SS_CENTERIMAGE | SS_ELLIPSISMASK);
    if (style() & SS_CENTERIMAGE) flags = Qt::TextExpandTabs | Qt::AlignVCenter;
    if (kind() <= SS_RIGHT && !oneLine) flags |= Qt::TextWordWrap;
    if (oneLine || kind() == SS_SIMPLE) flags |= Qt::TextSingleLine;
    if (!(style() & SS_NOPREFIX))
        flags |= face()->style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, face())
                     ? Qt::TextShowMnemonic
                     : Qt::TextHideMnemonic;
    if (kind() == SS_CENTER) return flags | Qt::AlignHCenter;
    const auto side = kind() == SS_RIGHT ? Qt::AlignRight : Qt::AlignLeft;
    return flags | static_cast<int>(QStyle::visualAlignment(face()->layoutDirection(), side));
}

void Static::drawText(QPainter& painter, const QRect& rect) const
{
    QString text = m_text;
    if (const DWORD cut = style() & SS_ELLIPSISMASK)
        text = face()->fontMetrics().elidedText(
            text, cut == SS_PATHELLIPSIS ? Qt::ElideMiddle : Qt::ElideRight, rect.width(), textFlags());
    painter.setClipRect(rect);
    face()->style()->drawItemText(&painter, rect, textFlags(), face()->palette(), face()->isEnabled(), text,
                                  QPalette::WindowText);
}

void Static::drawShape(QPainter& painter, const QRect& rect) const
{
    const QPalette& palette = face()->palette();
    switch (kind()) {
    case SS_BLACKRECT:
        return painter.fillRect(rect, palette.color(QPalette::WindowText));
    case SS_GRAYRECT:
        return painter.fillRect(rect, palette.color(QPalette::Dark));
    case SS_WHITERECT:
        return painter.fillRect(rect, palette.color(QPalette::Base));
    case SS_BLACKFRAME:
        painter.setPen(palette.color(QPalette::WindowText));
        break;
    case SS_GRAYFRAME:
        painter.setPen(palette.color(QPalette::Dark));
        break;
    case SS_WHITEFRAME:
        painter.setPen(palette.color(QPalette::Base));
        break;
    default:
        return;
    }
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

void Static::drawPicture(QPainter& painter, const QRect& rect) const
{
    const UINT type = kind() == SS_ICON ? IMAGE_ICON : IMAGE_BITMAP;
    const QSize size = pictureSize(type, m_picture);
    if (size.isEmpty()) return;
    QRect target(rect.topLeft(), style() & SS_REALSIZECONTROL ? rect.size() : size);
    if (style() & SS_CENTERIMAGE) target.moveCenter(rect.center());
    painter.setClipRect(rect);
    painter.drawImage(target, pictureOf(type, m_picture));
}

} // namespace

std::unique_ptr<Window> makeStatic(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<Static>(parent);
}

} // namespace corekit::detail
