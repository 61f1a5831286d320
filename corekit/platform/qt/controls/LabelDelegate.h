// Draws the items of trees and lists, and lets the user edit a label in an edit control of ours.
#pragma once

#include "corekit/platform/Types.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

namespace corekit::detail {

class ViewControl;

class LabelDelegate final : public QStyledItemDelegate {
public:
    LabelDelegate(ViewControl& control, QObject* parent);

    int rowHeight = 0;                                           // 0: the theme's
    std::function<bool(const QModelIndex&)> begin;               // false refuses
    std::function<void(const QModelIndex&, const QString*)> end; // null: dropped
    std::function<void(QStyleOptionViewItem&, const QModelIndex&)> adjust;

    HWND editor() const { return m_editor; } // null unless a label is edited
    bool finish(bool drop);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    ViewControl& m_control;
    mutable HWND m_editor = nullptr;
    mutable bool m_taken = false; // the text has been told of
};

} // namespace corekit::detail
