// The toolkit's tree under a program's say: whether an item is selected or expanded is asked first.
#pragma once

#include <QItemSelectionModel>
#include <QTreeView>

#include <functional>

namespace corekit::detail {

// The selection is the current item. Where the user moves it, `mayMove` is asked; a program moves it by
// moveTo.
class TreeSelection final : public QItemSelectionModel {
public:
    using QItemSelectionModel::QItemSelectionModel;

    std::function<bool(const QModelIndex&)> mayMove; // may take the tree down, and answers false then
    std::function<void()> moved;
    void moveTo(const QModelIndex& index);

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;
    void select(const QModelIndex& index, SelectionFlags command) override;
    void select(const QItemSelection& selection, SelectionFlags command) override;

private:
    void moveByUser(const QModelIndex& index);
    bool m_moving = false;
    QPersistentModelIndex m_asked; // by a key, which selects behind the move: a refusal is asked for once
};

class TreeFace final : public QTreeView {
public:
    explicit TreeFace(QWidget* parent);

    enum class Toggle { open, close, other };
    std::function<void(const QModelIndex&, Toggle)> toggle; // by the user
    std::function<void(QPoint)> beginDrag;
    bool hasButtons = false;

    bool isOnButton(QPoint point) const;
    QRect rectOfText(const QModelIndex& index) const;
    QRect rectOfIcon(const QModelIndex& index) const;
    QRect rectOfMark(const QModelIndex& index) const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions) override;
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;

private:
    QStyleOptionViewItem optionFor(const QModelIndex& index) const;
    QPoint m_pressed;
};

} // namespace corekit::detail
