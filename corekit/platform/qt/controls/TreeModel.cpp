#include "corekit/platform/qt/controls/TreeModel.h"

#include "corekit/platform/qt/controls/ViewControl.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

namespace corekit::detail {

namespace {

void renumber(TreeNode& parent, int from)
{
    for (std::size_t row = static_cast<std::size_t>(from); row < parent.children.size(); ++row)
        parent.children[row]->row = static_cast<int>(row);
}

UINT markOf(const TreeNode& node) { return node.state >> 12 & 0xF; }

} // namespace

TreeModel::TreeModel(QObject* parent) : QAbstractItemModel(parent) {}

TreeModel::~TreeModel() = default;

TreeNode* TreeModel::find(HTREEITEM handle) const
{
    const auto found = m_nodes.find(handle);
    return found == m_nodes.end() ? nullptr : found->second;
}

QModelIndex TreeModel::indexOf(const TreeNode* node) const
{
    if (!node || node == &m_root) return {};
    return createIndex(node->row, 0, const_cast<TreeNode*>(node));
}

TreeNode& TreeModel::nodeAt(const QModelIndex& index) const
{
    TreeNode* const node = nodeOf(index);
    return node ? *node : m_root;
}

TreeNode& TreeModel::insert(TreeNode& parent, int row, std::unique_ptr<TreeNode> node)
{
    beginInsertRows(indexOf(&parent), row, row);
    node->handle = reinterpret_cast<HTREEITEM>(++m_lastHandle << 4);
    node->parent = &parent;
    m_nodes.emplace(node->handle, node.get());
    const auto place = parent.children.insert(parent.children.begin() + row, std::move(node));
    TreeNode& inserted = **place;
    renumber(parent, row);
    endInsertRows();
    return inserted;
}

void TreeModel::forget(const TreeNode& node)
{
    for (const auto& child : node.children) forget(*child);
    m_nodes.erase(node.handle);
}

void TreeModel::remove(TreeNode& node)
{
    TreeNode& parent = *node.parent;
    const int row = node.row;
    beginRemoveRows(indexOf(&parent), row, row);
    forget(node);
    const std::unique_ptr<TreeNode> gone = std::move(parent.children[static_cast<std::size_t>(row)]);
    parent.children.erase(parent.children.begin() + row);
    renumber(parent, row);
    endRemoveRows();
}

void TreeModel::clear()
{
    beginResetModel();
    m_nodes.clear();
    m_root.children.clear();
    endResetModel();
}

void TreeModel::changed(const TreeNode& node)
{
    const QModelIndex index = indexOf(&node);
    dataChanged(index, index);
}

void TreeModel::sort(TreeNode& parent, const std::function<bool(const TreeNode&, const TreeNode&)>& isBefore)
{
    auto& children = parent.children;
    const std::vector<int> order = sortedOrder(static_cast<int>(children.size()), [&](int a, int b) {
        return isBefore(*children[static_cast<std::size_t>(a)], *children[static_cast<std::size_t>(b)]);
    });
    const QList<QPersistentModelIndex> below{QPersistentModelIndex(indexOf(&parent))};
    layoutAboutToBeChanged(parent.parent ? below : QList<QPersistentModelIndex>());
    std::vector<std::unique_ptr<TreeNode>> sorted;
    sorted.reserve(children.size());
    for (const int from : order) sorted.push_back(std::move(children[static_cast<std::size_t>(from)]));
    children = std::move(sorted);
    renumber(parent, 0);
    for (const QModelIndex& old : persistentIndexList()) {
        TreeNode* const node = nodeOf(old);
        if (node && node->parent == &parent) changePersistentIndex(old, indexOf(node));
    }
    layoutChanged(parent.parent ? below : QList<QPersistentModelIndex>());
}

QString TreeModel::textOf(const TreeNode& node) const
{
    return node.asksForText && askText ? askText(node) : node.text;
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    const TreeNode& above = nodeAt(parent);
    if (column != 0 || row < 0 || static_cast<std::size_t>(row) >= above.children.size()) return {};
    return createIndex(row, 0, above.children[static_cast<std::size_t>(row)].get());
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
    const TreeNode* const node = nodeOf(index);
    return node ? indexOf(node->parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(nodeAt(parent).children.size());
}

bool TreeModel::hasChildren(const QModelIndex& parent) const
{
    const TreeNode& node = nodeAt(parent);
    if (!node.children.empty()) return true;
    if (node.childrenTold == I_CHILDRENCALLBACK) return askChildren && askChildren(node);
    return node.childrenTold > 0;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    const TreeNode* const node = nodeOf(index);
    if (!node) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return textOf(*node);
    case Qt::DecorationRole:
        return icon ? icon(*node) : QVariant();
    case Qt::CheckStateRole:
        if (!showsMarks || markOf(*node) == 0) return {};
        return markOf(*node) > 1 ? Qt::Checked : Qt::Unchecked;
    case Qt::FontRole: {
        if (!(node->state & TVIS_BOLD)) return {};
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    case Qt::BackgroundRole:
        return node->state & TVIS_DROPHILITED ? QVariant(QGuiApplication::palette().highlight()) : QVariant();
    case Qt::ForegroundRole:
        if (node->state & TVIS_DROPHILITED) return QGuiApplication::palette().highlightedText();
        return node->state & TVIS_CUT
                   ? QVariant(QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                   : QVariant();
    default:
        return {};
    }
}

bool TreeModel::setData(const QModelIndex& index, const QVariant&, int role)
{
    TreeNode* const node = nodeOf(index);
    if (!node || role != Qt::CheckStateRole || !showsMarks) return false;
    node->state = (node->state & ~TVIS_STATEIMAGEMASK) | INDEXTOSTATEIMAGEMASK(markOf(*node) > 1 ? 1 : 2);
    changed(*node);
    return true;
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    if (showsMarks) flags |= Qt::ItemIsUserCheckable;
    if (canEdit && index.isValid()) flags |= Qt::ItemIsEditable;
    return flags;
}

} // namespace corekit::detail
