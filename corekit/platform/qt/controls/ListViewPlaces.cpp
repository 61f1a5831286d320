#include "corekit/platform/qt/controls/ImageListObject.h"
#include "corekit/platform/qt/controls/ListView.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace corekit::detail {

namespace {

QColor colourOf(COLORREF c)
{
    return QColor(static_cast<int>(c & 0xFF), static_cast<int>(c >> 8 & 0xFF),
                  static_cast<int>(c >> 16 & 0xFF));
}
QSize shownSize(HIMAGELIST list) { return iconSizeOf(list).expandedTo({0, 0}); }
QSize sideBySide(QSize first, QSize second)
{
    return {first.width() + second.width(), std::max(first.height(), second.height())};
}
COLORREF documentedColour(const QColor& c)
{
    return RGB(static_cast<BYTE>(c.red()), static_cast<BYTE>(c.green()), static_cast<BYTE>(c.blue()));
}

} // namespace

LRESULT ListView::places(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message < LVM_GETBKCOLOR || message > LVM_SETITEMTEXTW)
        return Control::defaultProcedure(message, wParam, lParam);
    m_model.publish();
    const int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_GETITEMRECT:
        return lParam ? itemRect(row, -1, *reinterpret_cast<RECT*>(lParam)) : 0;
    case LVM_GETSUBITEMRECT: {
        auto* const rect = reinterpret_cast<RECT*>(lParam);
        return rect ? itemRect(row, rect->top, *rect) : 0;
    }
    case LVM_HITTEST:
    case LVM_SUBITEMHITTEST:
        return lParam ? hitTest(*reinterpret_cast<LVHITTESTINFO*>(lParam), message == LVM_SUBITEMHITTEST)
                      : -1;
    default:
        return scrolling(message, wParam, lParam);
    }
}

LRESULT ListView::scrolling(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_ENSUREVISIBLE:
        if (!m_model.has(row)) return 0;
        view()->scrollTo(m_model.index(row, 0));
        return 1;
    case LVM_SCROLL:
        view()->horizontalScrollBar()->setValue(view()->horizontalScrollBar()->value() + row);
        view()->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        view()->verticalScrollBar()->setValue(view()->verticalScrollBar()->value() +
                                              static_cast<int>(lParam));
        return 1;
    case LVM_REDRAWITEMS:
        m_model.changed(row, static_cast<int>(lParam));
        return 1;
    case LVM_UPDATE:
        m_model.changed(row, row);
        return m_model.has(row);
    case LVM_GETTOPINDEX:
        return report() ? std::max(0, view()->indexAt({1, 1}).row()) : 0;
    case LVM_GETCOUNTPERPAGE: {
        const int height = std::max(1, view()->sizeHintForRow(0));
        return report() ? view()->viewport()->height() / height : m_model.count();
    }
    case LVM_GETSTRINGWIDTHA:
        return view()->fontMetrics().horizontalAdvance(textFrom(reinterpret_cast<const char*>(lParam)));
    case LVM_GETSTRINGWIDTHW:
        return view()->fontMetrics().horizontalAdvance(textFrom(reinterpret_cast<const WCHAR*>(lParam)));
    default:
        return looks(message, wParam, lParam);
    }
}

LRESULT ListView::looks(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case LVM_SETIMAGELIST:
        if (wParam > LVSIL_STATE) return 0;
        return reinterpret_cast<LRESULT>(setImageList(wParam, reinterpret_cast<HIMAGELIST>(lParam)));
    case LVM_GETIMAGELIST:
        return wParam <= LVSIL_STATE ? reinterpret_cast<LRESULT>(m_images[wParam]) : 0;
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
        return setExtendedStyle(wParam ? static_cast<DWORD>(wParam) : ~DWORD{0}, static_cast<DWORD>(lParam));
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
        return m_extended;
    default:
        return colours(message, wParam, lParam);
    }
}

LRESULT ListView::colours(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case LVM_SETBKCOLOR:
        return setColour(QPalette::Base, m_back, lParam);
    case LVM_SETTEXTCOLOR:
        return setColour(QPalette::Text, m_text, lParam);
    case LVM_SETTEXTBKCOLOR:
        m_textBack = static_cast<COLORREF>(lParam); // text stands on the rows' own colour
        return 1;
    case LVM_GETBKCOLOR:
        return documentedColour(view()->palette().color(QPalette::Base));
    case LVM_GETTEXTCOLOR:
        return documentedColour(view()->palette().color(QPalette::Text));
    case LVM_GETTEXTBKCOLOR:
        return m_textBack;
    case LVM_EDITLABELA:
        if (!(style() & LVS_EDITLABELS) || !m_model.has(static_cast<int>(wParam))) return 0;
        view()->edit(m_model.index(static_cast<int>(wParam), 0));
        return reinterpret_cast<LRESULT>(m_labels.editor());
    case LVM_GETEDITCONTROL:
        return reinterpret_cast<LRESULT>(m_labels.editor());
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

HIMAGELIST ListView::setImageList(WPARAM which, HIMAGELIST list)
{
    const HIMAGELIST former = std::exchange(m_images[which], list);
    const QSize size = sideBySide(shownSize(m_images[LVSIL_STATE]), shownSize(m_images[rowImages()]));
    if (!size.isEmpty()) view()->setIconSize(size);
    view()->doItemsLayout();
    return former;
}

// With check boxes, those are the pictures of the states.
QIcon ListView::stateIcon(int row) const
{
    const int image = (m_model.stateAt(row) >> 12) - 1;
    return m_extended & LVS_EX_CHECKBOXES ? QIcon() : iconFrom(m_images[LVSIL_STATE], image);
}

QVariant ListView::iconOf(int row, int column)
{
    if (column > 0 && !(m_extended & LVS_EX_SUBITEMIMAGES)) return {};
    const QIcon state = column > 0 ? QIcon() : stateIcon(row);
    const HIMAGELIST list = m_images[rowImages()];
    const QIcon icon = list ? iconFrom(list, imageOf(row, column)) : QIcon();
    if (!isAlive()) return {};
    if (state.isNull()) return icon.isNull() ? QVariant() : QVariant(icon);
    const QSize first = shownSize(m_images[LVSIL_STATE]), second = shownSize(list);
    const double scale = view()->devicePixelRatioF();
    QPixmap both(sideBySide(first, second) * scale);
    both.setDevicePixelRatio(scale);
    both.fill(Qt::transparent);
    QPainter painter(&both);
    painter.drawPixmap(0, (sideBySide(first, second).height() - first.height()) / 2,
                       state.pixmap(first, scale));
    if (!icon.isNull()) painter.drawPixmap(first.width(), 0, icon.pixmap(second, scale));
    return QIcon(both);
}

LRESULT ListView::setColour(QPalette::ColorRole role, COLORREF& kept, LPARAM colour)
{
    kept = static_cast<COLORREF>(colour);
    QPalette palette = view()->palette();
    if (kept == CLR_DEFAULT || kept == CLR_NONE)
        palette.setBrush(role, QGuiApplication::palette().brush(role));
    else
        palette.setColor(role, colourOf(kept));
    view()->setPalette(palette);
    return 1;
}

LRESULT ListView::setExtendedStyle(DWORD mask, DWORD style)
{
    const DWORD former = m_extended;
    m_extended = (m_extended & ~mask) | (style & mask);
    m_model.showsMarks = m_extended & LVS_EX_CHECKBOXES;
    if (m_extended & ~former & LVS_EX_CHECKBOXES)
        for (int row = 0; row < m_model.count(); ++row)
            if (!(m_model.stateAt(row) & LVIS_STATEIMAGEMASK))
                m_model.stateAt(row) |= INDEXTOSTATEIMAGEMASK(1);
    if (report()) {
        report()->hasGrid = m_extended & LVS_EX_GRIDLINES;
        report()->header()->setSectionsMovable(m_extended & LVS_EX_HEADERDRAGDROP);
        report()->setAllColumnsShowFocus(m_extended & LVS_EX_FULLROWSELECT);
    }
    view()->doItemsLayout();
    return former;
}

QRect ListView::rectOf(QStyle::SubElement part, const QModelIndex& index) const
{
    QStyleOptionViewItem option;
    option.initFrom(view());
    option.rect = view()->visualRect(index);
    option.decorationSize = view()->iconSize();
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = m_model.textOf(index.row(), index.column());
    option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    if (const QVariant icon = m_model.data(index, Qt::DecorationRole); !icon.isNull()) {
        option.features |= QStyleOptionViewItem::HasDecoration;
        option.decorationSize = icon.value<QIcon>().actualSize(view()->iconSize());
    }
    if (!m_model.data(index, Qt::CheckStateRole).isNull())
        option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return view()->style()->subElementRect(part, &option, view());
}

LRESULT ListView::itemRect(int row, int column, RECT& rect) const
{
    if (!m_model.has(row) || column >= m_model.columnCount()) return 0;
    const QModelIndex index = m_model.index(row, std::max(column, 0));
    QRect place = view()->visualRect(index);
    switch (rect.left) {
    case LVIR_ICON:
        place = rectOf(QStyle::SE_ItemViewItemDecoration, index);
        break;
    case LVIR_LABEL:
        if (column <= 0) place = rectOf(QStyle::SE_ItemViewItemText, index);
        break;
    default:
        if (column <= 0 && report()) place = report()->rowRect(index);
        break;
    }
    rect = inClient(place);
    return 1;
}

LRESULT ListView::hitTest(LVHITTESTINFO& info, bool withColumn) const
{
    const QPoint point = inView(info.pt);
    const QModelIndex index = view()->indexAt(point);
    const bool outside = !view()->viewport()->rect().contains(point);
    info.flags = LVHT_NOWHERE;
    info.iItem = -1;
    info.iSubItem = 0;
    if (!index.isValid() || outside) return -1;
    // Without selection of whole rows only the item itself can be hit.
    if (index.column() > 0 && !withColumn && !(m_extended & LVS_EX_FULLROWSELECT)) return -1;
    info.iItem = index.row();
    info.iSubItem = index.column();
    const QRect picture = rectOf(QStyle::SE_ItemViewItemDecoration, index);
    const bool isState = index.column() == 0 && !stateIcon(index.row()).isNull() &&
                         point.x() < picture.left() + shownSize(m_images[LVSIL_STATE]).width();
    const bool isMark =
        m_model.showsMarks && rectOf(QStyle::SE_ItemViewItemCheckIndicator, index).contains(point);
    info.flags = isMark                     ? LVHT_ONITEMSTATEICON
                 : !picture.contains(point) ? LVHT_ONITEMLABEL
                 : isState                  ? LVHT_ONITEMSTATEICON
                                            : LVHT_ONITEMICON;
    return info.iItem;
}

} // namespace corekit::detail
