#include "corekit/platform/qt/controls/LabelDelegate.h"

#include "corekit/platform/Edits.h"
#include "corekit/platform/qt/controls/ViewControl.h"

#include <QLineEdit>

namespace corekit::detail {

LabelDelegate::LabelDelegate(ViewControl& control, QObject* parent)
    : QStyledItemDelegate(parent), m_control(control)
{
}

QWidget* LabelDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const
{
    const QPersistentModelIndex item = index;
    if (m_editor || !begin || !begin(index) || !item.isValid()) return nullptr;
    m_taken = false;
    m_editor = CreateWindowExA(0, WC_EDITA, "", WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, 0, 0, 0,
                               0, m_control.handle(), nullptr, nullptr, nullptr);
    Window* const made = Window::find(m_editor);
    if (!made) return nullptr;
    made->widget()->setParent(parent);
    return made->widget();
}

void LabelDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* const line = static_cast<QLineEdit*>(editor);
    line->setText(index.data(Qt::EditRole).toString());
    line->selectAll();
}

void LabelDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const
{
    const QString text = static_cast<QLineEdit*>(editor)->text();
    m_taken = true;
    if (end) end(index, &text);
}

void LabelDelegate::destroyEditor(QWidget*, const QModelIndex& index) const
{
    const HWND editor = std::exchange(m_editor, nullptr);
    if (!m_taken && end && index.isValid()) end(index, nullptr);
    DestroyWindow(editor);
}

bool LabelDelegate::finish(bool drop)
{
    const Window* const editor = Window::find(m_editor);
    if (!editor || !editor->widget()) return false;
    if (!drop) commitData(editor->widget());
    if (m_editor) closeEditor(editor->widget(), QAbstractItemDelegate::NoHint);
    return true;
}

QSize LabelDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (rowHeight) size.setHeight(rowHeight);
    return size;
}

void LabelDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (adjust) adjust(*option, index);
}

} // namespace corekit::detail
