// The toolkit's views of a list view: a report of columns, or icons.
#pragma once

#include <QListView>
#include <QTreeView>

#include <functional>

namespace corekit::detail {

class ReportFace final : public QTreeView {
public:
    explicit ReportFace(QWidget* parent);

    std::function<void(QPainter&, const QStyleOptionViewItem&, const QModelIndex&)>
        drawWhole; // by the parent
    std::function<void(QPoint)> beginDrag;
    bool hasGrid = false;
    // Of a row, over all columns.
    QRect rowRect(const QModelIndex& index) const;

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void startDrag(Qt::DropActions) override;

private:
    QPoint m_pressed;
};

class IconFace final : public QListView {
public:
    using QListView::QListView;
    std::function<void(QPoint)> beginDrag;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void startDrag(Qt::DropActions) override;

private:
    QPoint m_pressed;
};

} // namespace corekit::detail
