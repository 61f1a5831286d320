// The items of a tree view, as a model of the toolkit's.
#pragma once

#include "corekit/platform/TreeViews.h"

#include <QAbstractItemModel>
#include <QString>

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace corekit::detail {

struct TreeNode {
    HTREEITEM handle = nullptr;
    TreeNode* parent = nullptr; // the model's root above the topmost items
    int row = 0;
    std::vector<std::unique_ptr<TreeNode>> children;
    QString text;
    bool asksForText = false;
    int image = 0, selectedImage = 0;
    int childrenTold = 0;
    UINT state = 0; // those that the view does not know: cut, bold, drop target, once expanded, state image
    LPARAM data = 0;
};

// Handles are numbers that are not used twice, so that one of a deleted item is known for what it is.
class TreeModel final : public QAbstractItemModel {
public:
    explicit TreeModel(QObject* parent);
    ~TreeModel() override;

    TreeNode& root() { return m_root; }
    TreeNode* find(HTREEITEM handle) const; // null for null and TVI_ROOT, too
    TreeNode* nodeOf(const QModelIndex& index) const
    {
        return index.isValid() ? static_cast<TreeNode*>(index.internalPointer()) : nullptr;
    }
    QModelIndex indexOf(const TreeNode* node) const;
    int count() const { return static_cast<int>(m_nodes.size()); }

    TreeNode& insert(TreeNode& parent, int row, std::unique_ptr<TreeNode> node);
    // With all below it.
    void remove(TreeNode& node);
    void clear();
    void changed(const TreeNode& node);
    void sort(TreeNode& parent, const std::function<bool(const TreeNode&, const TreeNode&)>& isBefore);

    // Asked for what is not kept here.
    std::function<QString(const TreeNode&)> askText;
    std::function<bool(const TreeNode&)> askChildren;
    std::function<QVariant(const TreeNode&)> icon;
    bool showsMarks = false;
    bool canEdit = false;

    QString textOf(const TreeNode& node) const;

    using QAbstractItemModel::parent;
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    TreeNode& nodeAt(const QModelIndex& index) const;
    void forget(const TreeNode& node);

    mutable TreeNode m_root;
    std::unordered_map<HTREEITEM, TreeNode*> m_nodes;
    UINT_PTR m_lastHandle = 0;
};

} // namespace corekit::detail
