#include "corekit/platform/qt/controls/ListModel.h"

#include <QBrush>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace corekit::detail {

namespace {

UINT markOf(WORD state) { return state >> 12; }

int alignmentOf(int format)
{
    switch (format & LVCFMT_JUSTIFYMASK) {
    case LVCFMT_RIGHT:
        return Qt::AlignRight | Qt::AlignVCenter;
    case LVCFMT_CENTER:
        return Qt::AlignCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

} // namespace

ListRow* ListModel::rowAt(int row)
{
    return !isVirtual && has(row) ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

ListCell& ListModel::cellAt(int row, int column)
{
    auto& cells = m_rows[static_cast<std::size_t>(row)].cells;
    if (static_cast<std::size_t>(column) >= cells.size()) cells.resize(static_cast<std::size_t>(column) + 1);
    return cells[static_cast<std::size_t>(column)];
}

void ListModel::insert(int row, ListRow what, WORD state)
{
    const bool isShown = row < m_published;
    if (isShown) {
        publish();
        beginInsertRows({}, row, row);
    }
    m_rows.insert(m_rows.begin() + row, std::move(what));
    m_states.insert(m_states.begin() + row, state);
    if (isShown) {
        ++m_published;
        endInsertRows();
    } else if (!m_publishing) {
        m_publishing = true;
        QMetaObject::invokeMethod(
            this, [this] { publish(); }, Qt::QueuedConnection);
    }
}

void ListModel::publish()
{
    m_publishing = false;
    if (m_published == count()) return;
    beginInsertRows({}, m_published, count() - 1);
    m_published = count();
    endInsertRows();
}

void ListModel::remove(int row)
{
    publish();
    beginRemoveRows({}, row, row);
    if (!isVirtual) m_rows.erase(m_rows.begin() + row);
    m_states.erase(m_states.begin() + row);
    --m_published;
    endRemoveRows();
}

void ListModel::clear()
{
    beginResetModel();
    m_rows.clear();
    m_states.clear();
    m_published = 0;
    endResetModel();
}

void ListModel::setCount(int rows)
{
    beginResetModel();
    m_states.resize(static_cast<std::size_t>(rows));
    m_published = rows;
    endResetModel();
}

void ListModel::reserve(int rows)
{
    constexpr int most = 1 << 20;
    m_rows.reserve(static_cast<std::size_t>(std::clamp(rows, 0, most)));
    m_states.reserve(static_cast<std::size_t>(std::clamp(rows, 0, most)));
}

void ListModel::changed(int first, int last)
{
    first = std::max(first, 0);
    last = std::min(last, m_published - 1);
    if (first <= last) dataChanged(index(first, 0), index(last, std::max(0, columnCount() - 1)));
}

void ListModel::reorder(const std::vector<int>& order)
{
    publish();
    layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<ListRow> rows;
    std::vector<WORD> states;
    std::vector<int> placeOf(order.size());
    for (std::size_t place = 0; place < order.size(); ++place) {
        const auto from = static_cast<std::size_t>(order[place]);
        if (!isVirtual) rows.push_back(std::move(m_rows[from]));
        states.push_back(m_states[from]);
        placeOf[from] = static_cast<int>(place);
    }
    if (!isVirtual) m_rows = std::move(rows);
    m_states = std::move(states);
    for (const QModelIndex& old : persistentIndexList())
        changePersistentIndex(old, index(placeOf[static_cast<std::size_t>(old.row())], old.column()));
    layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ListModel::insertColumn(int column, ListColumn what)
{
    beginInsertColumns({}, column, column);
    m_columns.insert(m_columns.begin() + column, std::move(what));
    for (ListRow& row : m_rows)
        if (columns() > 1 && static_cast<std::size_t>(column) < row.cells.size())
            row.cells.insert(row.cells.begin() + column, ListCell());
    endInsertColumns();
}

void ListModel::deleteColumn(int column)
{
    beginRemoveColumns({}, column, column);
    m_columns.erase(m_columns.begin() + column);
    for (ListRow& row : m_rows)
        if (static_cast<std::size_t>(column) < row.cells.size()) row.cells.erase(row.cells.begin() + column);
    endRemoveColumns();
}

void ListModel::columnChanged(int column)
{
    headerDataChanged(Qt::Horizontal, column, column);
    if (m_published > 0) dataChanged(index(0, column), index(m_published - 1, column));
}

QString ListModel::textOf(int row, int column) const
{
    const ListRow* const kept = rowAt(row);
    if (isVirtual) return askText ? askText(row, column) : QString();
    if (!kept || column < 0 || static_cast<std::size_t>(column) >= kept->cells.size()) return {};
    const ListCell& cell = kept->cells[static_cast<std::size_t>(column)];
    return cell.asks && askText ? askText(row, column) : cell.text;
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    if (parent.isValid()) return 0;
    return columns();
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || !has(index.row())) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return textOf(index.row(), index.column());
    case Qt::DecorationRole:
        return icon ? icon(index.row(), index.column()) : QVariant();
    case Qt::TextAlignmentRole:
        return hasColumn(index.column())
                   ? QVariant(alignmentOf(m_columns[static_cast<std::size_t>(index.column())].format))
                   : QVariant();
    case Qt::CheckStateRole:
        if (!showsMarks || index.column() != 0 || markOf(stateAt(index.row())) == 0) return {};
        return markOf(stateAt(index.row())) > 1 ? Qt::Checked : Qt::Unchecked;
    default:
        return look(index.row(), role);
    }
}

QVariant ListModel::look(int row, int role) const
{
    const WORD state = stateAt(row);
    const QPalette palette = QGuiApplication::palette();
    if (role == Qt::BackgroundRole && state & LVIS_DROPHILITED) return palette.highlight();
    if (role != Qt::ForegroundRole) return {};
    if (state & LVIS_DROPHILITED) return palette.highlightedText();
    return state & LVIS_CUT ? QVariant(palette.brush(QPalette::Disabled, QPalette::Text)) : QVariant();
}

bool ListModel::setData(const QModelIndex& index, const QVariant&, int role)
{
    if (role != Qt::CheckStateRole || !showsMarks || !has(index.row())) return false;
    if (marked) marked(index.row());
    return true;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || !hasColumn(section)) return {};
    const ListColumn& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.text;
    if (role == Qt::TextAlignmentRole) return alignmentOf(column.format);
    if (role == Qt::DecorationRole && headerIcon) return headerIcon(section);
    return {};
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    if (index.column() == 0 && showsMarks) flags |= Qt::ItemIsUserCheckable;
    if (index.column() == 0 && canEdit) flags |= Qt::ItemIsEditable;
    return flags;
}

} // namespace corekit::detail
