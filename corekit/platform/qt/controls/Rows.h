// The rows of list boxes and combo boxes, as a model of the toolkit's.
#pragma once

#include "corekit/platform/Types.h"

#include <QAbstractListModel>
#include <QString>

#include <functional>
#include <vector>

namespace corekit::detail {

struct Row {
    QString text;
    UINT_PTR data = 0;
    int height = 0; // 0: that of all rows
    signed char check = 0;
    bool isEnabled = true;
};

class Rows final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int count() const { return static_cast<int>(m_rows.size()); }
    bool has(WPARAM index) const { return index < m_rows.size(); }
    Row& at(int index) { return m_rows[static_cast<std::size_t>(index)]; }
    const Row& at(int index) const { return m_rows[static_cast<std::size_t>(index)]; }

    void insert(int index, Row row);
    void remove(int index);
    void clear();
    void setCount(int count); // empty rows
    void reserve(std::size_t rows) { m_rows.reserve(rows); }
    void changed(int index);
    void allChanged();

    // The place that keeps rows in order. `compare` answers below 0 if the first belongs before the second.
    int placeOf(const Row& row, const std::function<int(const Row&, const Row&)>& compare) const;
    // The next row behind `after` that fits, going round; -1 for none.
    int find(int after, const std::function<bool(const Row&)>& fits) const;

    // Check marks: -1 there are none, else how many states the user can go through. A mark that the user has
    // changed is reported by headerDataChanged, which a list without headers has no other use for.
    void showMarks(int states);

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count(); }
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<Row> m_rows;
    int m_markStates = -1;
};

// Without regard to case, as the list controls compare.
int compareTexts(const QString& a, const QString& b);
bool beginsWith(const QString& text, const QString& beginning);

} // namespace corekit::detail
