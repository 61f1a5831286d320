#include "corekit/platform/qt/controls/TreeFace.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>

#include <utility>

namespace corekit::detail {

void TreeSelection::moveTo(const QModelIndex& index)
{
    m_moving = true;
    if (index.isValid())
        QItemSelectionModel::setCurrentIndex(index, ClearAndSelect | Rows);
    else
        QItemSelectionModel::clear();
    m_moving = false;
}

void TreeSelection::moveByUser(const QModelIndex& index)
{
    if (!index.isValid() || index == currentIndex()) return;
    const QPersistentModelIndex wanted = index;
    if (mayMove && !mayMove(index)) return;
    if (!wanted.isValid()) return;
    moveTo(wanted);
    if (moved) moved();
}

void TreeSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command)
{
    if (m_moving) return QItemSelectionModel::setCurrentIndex(index, command);
    // Without a selection to follow it is only the focus that arrives, and changes nothing.
    m_asked = command != NoUpdate ? index : QModelIndex();
    if (command != NoUpdate) moveByUser(index);
}

void TreeSelection::select(const QModelIndex& index, SelectionFlags command)
{
    if (m_moving)
        QItemSelectionModel::select(index, command);
    else if (command & (Select | Toggle))
        moveByUser(index);
}

void TreeSelection::select(const QItemSelection& selection, SelectionFlags command)
{
    if (m_moving)
        QItemSelectionModel::select(selection, command);
    else if (command & (Select | Toggle) && !selection.isEmpty())
        if (const QModelIndex wanted = selection.first().topLeft();
            wanted != std::exchange(m_asked, QPersistentModelIndex()))
            moveByUser(wanted);
}

TreeFace::TreeFace(QWidget* parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
}

bool TreeFace::isOnButton(QPoint point) const
{
    const QModelIndex index = indexAt(point);
    if (!hasButtons || !index.isValid() || !model()->hasChildren(index)) return false;
    if (!rootIsDecorated() && !index.parent().isValid()) return false;
    const QRect item = visualRect(index);
    return isRightToLeft() ? point.x() > item.right() && point.x() <= item.right() + indentation()
                           : point.x() < item.left() && point.x() >= item.left() - indentation();
}

QStyleOptionViewItem TreeFace::optionFor(const QModelIndex& index) const
{
    struct Delegate : QStyledItemDelegate {
        using QStyledItemDelegate::initStyleOption;
    };
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    Delegate().initStyleOption(&option, index);
    return option;
}

QRect TreeFace::rectOfText(const QModelIndex& index) const
{
    const QStyleOptionViewItem option = optionFor(index);
    QRect text = style()->subElementRect(QStyle::SE_ItemViewItemText, &option, this);
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, this) + 1;
    const int width = option.fontMetrics.horizontalAdvance(option.text) + 2 * margin;
    if (isRightToLeft())
        text.setLeft(std::max(text.left(), text.right() - width + 1));
    else
        text.setWidth(std::min(text.width(), width));
    return text;
}

QRect TreeFace::rectOfIcon(const QModelIndex& index) const
{
    const QStyleOptionViewItem option = optionFor(index);
    if (!(option.features & QStyleOptionViewItem::HasDecoration)) return {};
    return style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &option, this);
}

QRect TreeFace::rectOfMark(const QModelIndex& index) const
{
    const QStyleOptionViewItem option = optionFor(index);
    if (!(option.features & QStyleOptionViewItem::HasCheckIndicator)) return {};
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

void TreeFace::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->position().toPoint();
    if (event->button() == Qt::LeftButton && isOnButton(m_pressed) && toggle)
        return toggle(indexAt(m_pressed), Toggle::other);
    QTreeView::mousePressEvent(event);
}

void TreeFace::mouseDoubleClickEvent(QMouseEvent* event)
{
    // Twice on the button is a press twice.
    if (event->button() == Qt::LeftButton && isOnButton(event->position().toPoint()))
        return mousePressEvent(event);
    QTreeView::mouseDoubleClickEvent(event);
}

void TreeFace::keyPressEvent(QKeyEvent* event)
{
    const QModelIndex current = currentIndex();
    const bool hasBelow = current.isValid() && model()->hasChildren(current);
    int key = event->key();
    if (isRightToLeft() && key == Qt::Key_Left)
        key = Qt::Key_Right;
    else if (isRightToLeft() && key == Qt::Key_Right)
        key = Qt::Key_Left;
    const bool opens = key == Qt::Key_Right || key == Qt::Key_Plus;
    const bool closes = key == Qt::Key_Left || key == Qt::Key_Minus;
    if (toggle && hasBelow && opens && !isExpanded(current)) return toggle(current, Toggle::open);
    if (toggle && hasBelow && closes && isExpanded(current)) return toggle(current, Toggle::close);
    if (key == Qt::Key_Plus || key == Qt::Key_Minus || key == Qt::Key_Asterisk) return event->ignore();
    // The toolkit moves the focus by these and selects behind it.
    QTreeView::keyPressEvent(event);
}

void TreeFace::startDrag(Qt::DropActions)
{
    if (beginDrag) beginDrag(m_pressed);
}

void TreeFace::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const
{
    if (hasButtons) QTreeView::drawBranches(painter, rect, index);
}

} // namespace corekit::detail
