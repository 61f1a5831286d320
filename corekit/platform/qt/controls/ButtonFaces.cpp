#include "corekit/platform/qt/controls/ButtonFaces.h"

#include <QButtonGroup>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace corekit::detail {

namespace {

// The text in its rectangle, wrapped and aligned as the theme would not.
void drawText(QStylePainter& painter, const QWidget& face, const QStyleOptionButton& option,
              const QRect& rect, const ButtonText& how, int otherwise, QPalette::ColorRole role)
{
    int flags = how.alignment;
    if (!(flags & Qt::AlignHorizontal_Mask)) flags |= otherwise & Qt::AlignHorizontal_Mask;
    if (!(flags & Qt::AlignVertical_Mask)) flags |= otherwise & Qt::AlignVertical_Mask;
    flags |= how.wraps ? Qt::TextWordWrap : Qt::TextSingleLine;
    flags |= face.style()->styleHint(QStyle::SH_UnderlineShortcut, &option, &face) ? Qt::TextShowMnemonic
                                                                                   : Qt::TextHideMnemonic;
    painter.drawItemText(rect, flags, option.palette, face.isEnabled(), option.text, role);
}

template <QStyle::ControlElement element, QStyle::SubElement contents>
void drawMarked(const QWidget& face, QStylePainter& painter, QStyleOptionButton option, const ButtonText& how)
{
    if (how.isPlain()) return painter.drawControl(element, option);
    const QString text = std::exchange(option.text, QString());
    painter.drawControl(element, option);
    option.text = text;
    drawText(painter, face, option, face.style()->subElementRect(contents, &option, &face), how,
             Qt::AlignLeft | Qt::AlignVCenter, QPalette::WindowText);
}

} // namespace

PushFace::PushFace(QWidget* parent) : QPushButton(parent) { setAutoDefault(false); }

void PushFace::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    if (draw) return draw(painter);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (how.isPlain() || !icon().isNull()) return painter.drawControl(QStyle::CE_PushButton, option);
    const QString text = std::exchange(option.text, QString());
    painter.drawControl(QStyle::CE_PushButton, option);
    option.text = text;
    const QRect contents = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    drawText(painter, *this, option, contents, how, Qt::AlignCenter, QPalette::ButtonText);
}

void CheckFace::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    drawMarked<QStyle::CE_CheckBox, QStyle::SE_CheckBoxContents>(*this, painter, option, how);
}

RadioFace::RadioFace(QWidget* parent) : QRadioButton(parent)
{
    // In a group of its own it leaves its neighbours alone, and is still read out as what it is.
    auto* const alone = new QButtonGroup(this);
    alone->setExclusive(false);
    alone->addButton(this);
}

void RadioFace::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    drawMarked<QStyle::CE_RadioButton, QStyle::SE_RadioButtonContents>(*this, painter, option, how);
}

} // namespace corekit::detail
