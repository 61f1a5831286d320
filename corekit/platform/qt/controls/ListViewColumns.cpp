#include "corekit/platform/qt/controls/Header.h"
#include "corekit/platform/qt/controls/ListView.h"

#include <QHeaderView>

#include <algorithm>

namespace corekit::detail {

LRESULT ListView::columns(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int column = static_cast<int>(wParam);
    switch (message) {
    case LVM_INSERTCOLUMNA:
        return insertColumn(column, reinterpret_cast<const LVCOLUMNA*>(lParam));
    case LVM_INSERTCOLUMNW:
        return insertColumn(column, reinterpret_cast<const LVCOLUMNW*>(lParam));
    case LVM_SETCOLUMNA:
        return setColumn(column, reinterpret_cast<const LVCOLUMNA*>(lParam));
    case LVM_SETCOLUMNW:
        return setColumn(column, reinterpret_cast<const LVCOLUMNW*>(lParam));
    case LVM_GETCOLUMNA:
        return getColumn(column, reinterpret_cast<LVCOLUMNA*>(lParam));
    case LVM_GETCOLUMNW:
        return getColumn(column, reinterpret_cast<LVCOLUMNW*>(lParam));
    case LVM_DELETECOLUMN:
        if (!report() || !m_model.hasColumn(column)) return 0;
        m_model.deleteColumn(column);
        return 1;
    case LVM_GETCOLUMNWIDTH:
        return report() && m_model.hasColumn(column) ? report()->columnWidth(column) : 0;
    case LVM_SETCOLUMNWIDTH:
        return setWidth(column, static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam))));
    case LVM_SETCOLUMNORDERARRAY:
    case LVM_GETCOLUMNORDERARRAY:
        return order(wParam, reinterpret_cast<int*>(lParam), message == LVM_SETCOLUMNORDERARRAY);
    case LVM_GETHEADER:
        return reinterpret_cast<LRESULT>(header());
    default:
        return places(message, wParam, lParam);
    }
}

template <typename Char>
LRESULT ListView::insertColumn(int column, const ListViewColumn<Char>* what)
{
    if (!report() || !what || column < 0) return -1;
    column = std::min(column, m_model.columns());
    m_model.insertColumn(column, {});
    setColumn(column, what);
    if (!(what->mask & LVCF_WIDTH)) report()->setColumnWidth(column, m_model.columnAt(column).width);
    syncLater();
    return column;
}

template <typename Char>
LRESULT ListView::setColumn(int column, const ListViewColumn<Char>* what)
{
    if (!report() || !what || !m_model.hasColumn(column)) return 0;
    ListColumn& kept = m_model.columnAt(column);
    if (what->mask & LVCF_TEXT) kept.text = textFrom(what->pszText);
    if (what->mask & LVCF_FMT) kept.format = what->fmt;
    if (what->mask & LVCF_SUBITEM) kept.subItem = what->iSubItem;
    if (what->mask & LVCF_IMAGE) kept.image = what->iImage;
    if (what->mask & LVCF_WIDTH) setWidth(column, what->cx);
    if (what->mask & LVCF_ORDER && m_model.hasColumn(what->iOrder))
        report()->header()->moveSection(report()->header()->visualIndex(column), what->iOrder);
    m_model.columnChanged(column);
    return 1;
}

template <typename Char>
LRESULT ListView::getColumn(int column, ListViewColumn<Char>* what) const
{
    if (!report() || !what || !m_model.hasColumn(column)) return 0;
    const ListColumn& kept = m_model.columnAt(column);
    if (what->mask & LVCF_TEXT) copyText(kept.text, what->pszText, what->cchTextMax);
    if (what->mask & LVCF_FMT) what->fmt = kept.format;
    if (what->mask & LVCF_SUBITEM) what->iSubItem = kept.subItem;
    if (what->mask & LVCF_IMAGE) what->iImage = kept.image;
    if (what->mask & LVCF_WIDTH) what->cx = report()->columnWidth(column);
    if (what->mask & LVCF_ORDER) what->iOrder = report()->header()->visualIndex(column);
    return 1;
}

LRESULT ListView::setWidth(int column, int width)
{
    if (!report() || !m_model.hasColumn(column)) return 0;
    if (width >= 0) {
        report()->setColumnWidth(column, width);
        return 1;
    }
    m_model.publish();
    const bool takesRest = width == LVSCW_AUTOSIZE_USEHEADER && column == m_model.columns() - 1;
    const int position = report()->header()->sectionPosition(column);
    report()->resizeColumnToContents(column);
    const int rest = report()->viewport()->width() - position;
    if (takesRest && rest > report()->columnWidth(column)) report()->setColumnWidth(column, rest);
    return 1;
}

LRESULT ListView::order(WPARAM count, int* columns, bool sets)
{
    if (!report() || !columns || count != static_cast<WPARAM>(m_model.columns())) return 0;
    return sets ? setHeaderOrder(*report()->header(), columns) : getHeaderOrder(*report()->header(), columns);
}

HWND ListView::header()
{
    if (!report() || IsWindow(m_header)) return report() ? m_header : nullptr;
    m_header = adoptHeader(handle(), *report()->header(), m_model);
    return m_header;
}

} // namespace corekit::detail
