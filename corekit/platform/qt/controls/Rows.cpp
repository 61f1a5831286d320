#include "corekit/platform/qt/controls/Rows.h"

#include <algorithm>

namespace corekit::detail {

int compareTexts(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive); }
bool beginsWith(const QString& text, const QString& beginning)
{
    return text.startsWith(beginning, Qt::CaseInsensitive);
}

void Rows::insert(int index, Row row)
{
    beginInsertRows({}, index, index);
    m_rows.insert(m_rows.begin() + index, std::move(row));
    endInsertRows();
}

void Rows::remove(int index)
{
    beginRemoveRows({}, index, index);
    m_rows.erase(m_rows.begin() + index);
    endRemoveRows();
}

void Rows::clear()
{
    if (m_rows.empty()) return;
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

void Rows::setCount(int count)
{
    beginResetModel();
    m_rows.clear();
    m_rows.resize(static_cast<std::size_t>(count));
    endResetModel();
}

void Rows::changed(int row)
{
    const QModelIndex changedIndex = index(row);
    dataChanged(changedIndex, changedIndex);
}

void Rows::allChanged()
{
    if (!m_rows.empty()) dataChanged(index(0), index(count() - 1));
}

int Rows::placeOf(const Row& row, const std::function<int(const Row&, const Row&)>& compare) const
{
    int low = 0, high = count();
    while (low < high && high <= count()) {
        const int middle = low + (high - low) / 2;
        if (compare(row, at(middle)) < 0)
            high = middle;
        else
            low = middle + 1;
    }
    return std::min(low, count());
}

int Rows::find(int after, const std::function<bool(const Row&)>& fits) const
{
    const int rows = count();
    if (after < -1 || after >= rows) after = -1;
    for (int step = 1; step <= rows; ++step) {
        const int index = (after + step) % rows;
        if (fits(at(index))) return index;
    }
    return -1;
}

void Rows::showMarks(int states)
{
    m_markStates = states;
    allChanged();
}

QVariant Rows::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= count()) return {};
    const Row& row = at(index.row());
    if (role == Qt::DisplayRole || role == Qt::EditRole) return row.text;
    if (role != Qt::CheckStateRole || m_markStates < 0) return {};
    return row.check == 0 ? Qt::Unchecked : row.check == 1 ? Qt::Checked : Qt::PartiallyChecked;
}

bool Rows::setData(const QModelIndex& index, const QVariant&, int role)
{
    if (role != Qt::CheckStateRole || m_markStates <= 0 || !index.isValid()) return false;
    signed char& check = at(index.row()).check;
    check = static_cast<signed char>((check + 1) % m_markStates);
    changed(index.row());
    headerDataChanged(Qt::Vertical, index.row(), index.row());
    return true;
}

Qt::ItemFlags Rows::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (index.isValid() && index.row() < count() && at(index.row()).isEnabled) flags |= Qt::ItemIsEnabled;
    if (m_markStates >= 0) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

} // namespace corekit::detail
