#include "corekit/platform/qt/controls/ListFaces.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>

namespace corekit::detail {

ReportFace::ReportFace(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(true);
    header()->setMinimumSectionSize(0);
}

QRect ReportFace::rowRect(const QModelIndex& index) const
{
    const QRect first = visualRect(index.siblingAtColumn(header()->logicalIndex(0)));
    return {-header()->offset(), first.top(), header()->length(), first.height()};
}

void ReportFace::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    if (drawWhole) {
        QStyleOptionViewItem whole = option;
        whole.rect = rowRect(index);
        if (selectionModel()->isSelected(index)) whole.state |= QStyle::State_Selected;
        if (index.row() == currentIndex().row() && hasFocus())
            whole.state |= QStyle::State_HasFocus;
        else
            whole.state &= ~QStyle::State_HasFocus;
        drawWhole(*painter, whole, index);
    } else
        QTreeView::drawRow(painter, option, index);
    if (!hasGrid) return;
    painter->setPen(palette().color(QPalette::Midlight));
    const QRect row = rowRect(index);
    painter->drawLine(row.bottomLeft(), row.bottomRight());
    for (int section = 0; section < header()->count(); ++section) {
        const int right = header()->sectionViewportPosition(section) + header()->sectionSize(section) - 1;
        painter->drawLine(right, row.top(), right, row.bottom());
    }
}

void ReportFace::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->position().toPoint();
    QTreeView::mousePressEvent(event);
}

void ReportFace::startDrag(Qt::DropActions)
{
    if (beginDrag) beginDrag(m_pressed);
}

void IconFace::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->position().toPoint();
    QListView::mousePressEvent(event);
}

void IconFace::startDrag(Qt::DropActions)
{
    if (beginDrag) beginDrag(m_pressed);
}

} // namespace corekit::detail
