// Draws the rows of list boxes and combo boxes, or has their parent draw them.
#pragma once

#include "corekit/platform/qt/controls/Rows.h"

#include <QStyledItemDelegate>

namespace corekit::detail {

class Window;

class RowDelegate final : public QStyledItemDelegate {
public:
    // type: ODT_
    RowDelegate(Window& control, Rows& rows, UINT type, QObject* parent);

    bool isOwnerDrawn = false;
    int rowHeight = 0;   // of all rows; 0: the theme's
    int widestRow = 0;   // pixels that a row takes at least
    int columnWidth = 0; // exactly

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    Window& m_control;
    Rows& m_rows;
    const UINT m_type;
};

} // namespace corekit::detail
