#include "corekit/platform/qt/controls/ComboFaces.h"

#include <QStylePainter>
#include <QVBoxLayout>

namespace corekit::detail {

DropFace::DropFace(QWidget* parent) : QComboBox(parent)
{
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void DropFace::showPopup()
{
    const QPointer<DropFace> self = this;
    if (opening) opening();
    if (self) QComboBox::showPopup();
}

void DropFace::hidePopup()
{
    const bool wasOpen = view()->isVisible();
    const QPointer<DropFace> self = this;
    QComboBox::hidePopup();
    if (self && wasOpen && closed) closed();
}

void DropFace::paintEvent(QPaintEvent* event)
{
    if (!drawField || isEditable()) return QComboBox::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    drawField(painter,
              style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this));
}

SimpleFace::SimpleFace(QWidget* parent)
    : QWidget(parent), m_line(new LineFace(this)), m_list(new QListView(this))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_line);
    column->addWidget(m_list, 1);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setUniformItemSizes(true);
    m_list->setFocusPolicy(Qt::ClickFocus);
    setFocusProxy(m_line);
}

} // namespace corekit::detail
