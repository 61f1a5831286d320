#include "corekit/platform/qt/controls/RowDelegate.h"

#include "corekit/platform/qt/controls/OwnerDraw.h"

#include <algorithm>

namespace corekit::detail {

RowDelegate::RowDelegate(Window& control, Rows& rows, UINT type, QObject* parent)
    : QStyledItemDelegate(parent), m_control(control), m_rows(rows), m_type(type)
{
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!isOwnerDrawn) return QStyledItemDelegate::paint(painter, option, index);
    if (index.row() >= m_rows.count()) return;
    DRAWITEMSTRUCT parts{};
    parts.CtlType = m_type;
    parts.itemID = static_cast<UINT>(index.row());
    parts.itemAction = ODA_DRAWENTIRE;
    parts.itemState = drawStateOf(option.state);
    parts.itemData = m_rows.at(index.row()).data;
    sendDrawItem(m_control, *painter, option.rect, parts);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int own = index.row() < m_rows.count() ? m_rows.at(index.row()).height : 0;
    const int height = own ? own : rowHeight;
    QSize size = isOwnerDrawn && height ? QSize(0, height) : QStyledItemDelegate::sizeHint(option, index);
    if (height) size.setHeight(height);
    if (columnWidth) size.setWidth(columnWidth);
    size.setWidth(std::max(size.width(), widestRow));
    return size;
}

} // namespace corekit::detail
