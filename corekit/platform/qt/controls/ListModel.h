// Rows and columns of a list view, or the columns of a header, as a model of the toolkit's.
//
// Rows that are appended one by one are shown to the toolkit together, once it is back in its loop or
// somebody asks where they are: telling it of each would cost more than the row.
#pragma once

#include "corekit/platform/ListViews.h"

#include <QAbstractTableModel>
#include <QString>

#include <functional>
#include <vector>

namespace corekit::detail {

struct ListCell {
    QString text;
    int image = 0;
    bool asks = false; // for its text
};

struct ListRow {
    std::vector<ListCell> cells; // as many as have been set
    LPARAM data = 0;
    int indent = 0;
};

struct ListColumn {
    QString text;
    int width = 10;
    int format = LVCFMT_LEFT;
    int image = -1;
    int subItem = 0;
    LPARAM data = 0;
};

class ListModel final : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    bool isVirtual = false; // rows are only counted
    bool showsMarks = false, canEdit = false;
    int count() const { return static_cast<int>(m_states.size()); }
    bool has(int row) const { return row >= 0 && row < count(); }
    ListRow* rowAt(int row); // null of a virtual list
    const ListRow* rowAt(int row) const { return const_cast<ListModel*>(this)->rowAt(row); }
    ListCell& cellAt(int row, int column); // not of a virtual list
    WORD& stateAt(int row) { return m_states[static_cast<std::size_t>(row)]; }
    WORD stateAt(int row) const { return m_states[static_cast<std::size_t>(row)]; }

    void insert(int row, ListRow what, WORD state);
    void remove(int row);
    void clear();
    void setCount(int rows); // of a virtual list
    void reserve(int rows);
    void publish(); // shows the toolkit all rows
    void changed(int first, int last);
    void reorder(const std::vector<int>& order);

    int columns() const { return static_cast<int>(m_columns.size()); }
    bool hasColumn(int column) const { return column >= 0 && column < columns(); }
    ListColumn& columnAt(int column) { return m_columns[static_cast<std::size_t>(column)]; }
    void insertColumn(int column, ListColumn what);
    void deleteColumn(int column);
    void columnChanged(int column);

    // Asked for what is not kept here, and told of what the user changes.
    std::function<QString(int row, int column)> askText;
    std::function<QVariant(int row, int column)> icon;
    std::function<QVariant(int column)> headerIcon;
    std::function<void(int row)> marked;
    QString textOf(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_published; }
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVariant look(int row, int role) const;

    std::vector<ListRow> m_rows; // empty of a virtual list
    std::vector<WORD> m_states;  // LVIS_ but for the focus
    std::vector<ListColumn> m_columns;
    int m_published = 0;
    bool m_publishing = false;
};

} // namespace corekit::detail
