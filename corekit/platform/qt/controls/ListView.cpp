#include "corekit/platform/qt/controls/ListView.h"

#include "corekit/platform/Keyboard.h"
#include "corekit/platform/qt/controls/ImageListObject.h"
#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/OwnerDraw.h"
#include "corekit/platform/qt/controls/Rows.h"
#include "corekit/platform/TreeViews.h" // I_IMAGECALLBACK

#include <QHeaderView>

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr UINT keptStates = LVIS_SELECTED | LVIS_CUT | LVIS_DROPHILITED | LVIS_STATEIMAGEMASK;
constexpr int textRoom = 1024; // of a text that the parent is asked for

QAbstractItemView* makeFace(DWORD style, QWidget* parent)
{
    if ((style & LVS_TYPEMASK) == LVS_REPORT) return new ReportFace(parent);
    auto* const icons = new IconFace(parent);
    icons->setMovement(QListView::Static);
    icons->setResizeMode(QListView::Adjust);
    icons->setViewMode((style & LVS_TYPEMASK) == LVS_ICON ? QListView::IconMode : QListView::ListMode);
    icons->setWrapping(true);
    icons->setUniformItemSizes((style & LVS_TYPEMASK) != LVS_ICON);
    icons->setFlow((style & LVS_TYPEMASK) == LVS_LIST ? QListView::TopToBottom : QListView::LeftToRight);
    icons->setWordWrap((style & LVS_TYPEMASK) == LVS_ICON);
    return icons;
}

} // namespace

ListView::ListView(DWORD style, QWidget* parent)
    : ViewControl(makeFace(style, parent)), m_model(*new ListModel(widget())),
      m_labels(*new LabelDelegate(*this, widget()))
{
    m_model.isVirtual = style & LVS_OWNERDATA;
    // Views of icons have the one column that the items themselves stand in.
    if (!report()) m_model.insertColumn(0, {});
    view()->setModel(&m_model);
    view()->setItemDelegate(&m_labels);
    connectFace();
    connectSelection();
}

void ListView::connectFace()
{
    m_model.askText = [this](int row, int column) { return askText(row, column); };
    m_model.icon = [this](int row, int column) { return iconOf(row, column); };
    m_model.marked = [this](int row) {
        const UINT mark = m_model.stateAt(row) >> 12 > 1 ? 1 : 2;
        setState(row, INDEXTOSTATEIMAGEMASK(mark), LVIS_STATEIMAGEMASK);
    };
    const auto drag = [this](QPoint pressed) {
        const int row = view()->indexAt(pressed).row();
        if (row >= 0)
            tellItem(LVN_BEGINDRAG, row, 0, 0, toClient(view()->viewport()->mapTo(view(), pressed)));
    };
    if (report())
        report()->beginDrag = drag;
    else
        static_cast<IconFace*>(view())->beginDrag = drag;
    if (report())
        QObject::connect(report()->header(), &QHeaderView::sectionClicked, life(), [this](int column) {
            if (!(style() & LVS_NOSORTHEADER)) tellItem(LVN_COLUMNCLICK, -1, 0, 0, {}, column);
        });
    connectLabels();
}

void ListView::connectLabels()
{
    m_labels.adjust = [this](QStyleOptionViewItem& option, const QModelIndex& index) {
        if (index.column() > 0 && !(m_extended & LVS_EX_FULLROWSELECT))
            option.state &= ~QStyle::State_Selected;
    };
    m_labels.begin = [this](const QModelIndex& index) {
        NMLVDISPINFOA info{};
        info.item.iItem = index.row();
        LRESULT refused = 0;
        return tell(info.hdr, LVN_BEGINLABELEDIT, refused) && !refused;
    };
    m_labels.end = [this](const QModelIndex& index, const QString* text) {
        const int row = index.row();
        std::string narrow = text ? toNarrow(*text) : std::string();
        NMLVDISPINFOA info{};
        info.item.mask = LVIF_TEXT;
        info.item.iItem = row;
        info.item.pszText = text ? narrow.data() : nullptr;
        LRESULT accepted = 0;
        if (!tell(info.hdr, LVN_ENDLABELEDIT, accepted) || !accepted || !text) return;
        if (isVirtual() || !m_model.has(row)) return;
        m_model.cellAt(row, 0) = {*text, m_model.cellAt(row, 0).image, false};
        m_model.changed(row, row);
    };
}

void ListView::connectSelection()
{
    QObject::connect(view()->selectionModel(), &QItemSelectionModel::selectionChanged, life(),
                     [this](const QItemSelection& selected, const QItemSelection& deselected) {
                         if (isByUser() && !m_syncing) selectionByUser(selected, deselected);
                     });
    QObject::connect(view()->selectionModel(), &QItemSelectionModel::currentChanged, life(),
                     [this](const QModelIndex& current) {
                         if (isByUser() && !m_syncing) focusByUser(current.row());
                     });
}

void ListView::letGo()
{
    if (!view()) return;
    m_model.askText = nullptr;
    m_model.icon = nullptr;
    m_model.marked = nullptr;
    m_labels.adjust = nullptr;
    m_labels.begin = nullptr;
    m_labels.end = nullptr;
    if (report()) {
        report()->drawWhole = nullptr;
        report()->beginDrag = nullptr;
    } else
        static_cast<IconFace*>(view())->beginDrag = nullptr;
}

void ListView::followStyle()
{
    if (!view()) return;
    view()->setSelectionMode(style() & LVS_SINGLESEL ? QAbstractItemView::SingleSelection
                                                     : QAbstractItemView::ExtendedSelection);
    view()->setDragEnabled(true);
    view()->setEditTriggers(style() & LVS_EDITLABELS
                                ? QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed
                                : QAbstractItemView::NoEditTriggers);
    m_model.canEdit = style() & LVS_EDITLABELS && !isVirtual();
    view()->setFrameShape(style() & WS_BORDER || exStyle() & WS_EX_CLIENTEDGE ? QFrame::StyledPanel
                                                                              : QFrame::NoFrame);
    if (!report()) return;
    report()->setHeaderHidden(style() & LVS_NOCOLUMNHEADER);
    report()->header()->setSectionsClickable(!(style() & LVS_NOSORTHEADER));
    report()->drawWhole = nullptr;
    if (style() & LVS_OWNERDRAWFIXED)
        report()->drawWhole = [this](QPainter& painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) { drawRow(painter, option, index); };
}

LRESULT ListView::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!view()) return Control::defaultProcedure(message, wParam, lParam);
    const auto self = share(handle());
    const ByProgram quiet(m_program);
    const bool measures = message == WM_CREATE || message == WM_SETFONT;
    if (!measures || !(style() & LVS_OWNERDRAWFIXED)) return items(message, wParam, lParam);
    const LRESULT answer = Control::defaultProcedure(message, wParam, lParam);
    m_labels.rowHeight =
        sendMeasureItem(*this, ODT_LISTVIEW, 0, 0, {view()->width(), view()->fontMetrics().height()}).height;
    if (isAlive()) view()->doItemsLayout();
    return answer;
}

LRESULT ListView::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    m_model.publish();
    sync();
    if (message == WM_LBUTTONDOWN && GetKeyState(VK_SHIFT) >= 0)
        m_mark = view()->indexAt(inView(pointIn(lParam))).row();
    if (message == WM_CHAR && isVirtual() && LOWORD(wParam) > u' ') { // the toolkit would ask for every row
        const auto self = share(handle());
        const int program = std::exchange(m_program, 0);
        character(static_cast<char16_t>(LOWORD(wParam)));
        m_program = program;
        return 0;
    }
    return ViewControl::input(message, wParam, lParam);
}

LRESULT ListView::items(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_GETITEMCOUNT:
        return m_model.count();
    case LVM_INSERTITEMA:
        return insert(reinterpret_cast<const LVITEMA*>(lParam));
    case LVM_INSERTITEMW:
        return insert(reinterpret_cast<const LVITEMW*>(lParam));
    case LVM_SETITEMA:
        return set(reinterpret_cast<const LVITEMA*>(lParam));
    case LVM_SETITEMW:
        return set(reinterpret_cast<const LVITEMW*>(lParam));
    case LVM_GETITEMA:
        return get(reinterpret_cast<LVITEMA*>(lParam));
    case LVM_GETITEMW:
        return get(reinterpret_cast<LVITEMW*>(lParam));
    case LVM_SETITEMTEXTA:
        return setText(row, reinterpret_cast<const LVITEMA*>(lParam));
    case LVM_SETITEMTEXTW:
        return setText(row, reinterpret_cast<const LVITEMW*>(lParam));
    case LVM_GETITEMTEXTA:
        return getText(row, reinterpret_cast<LVITEMA*>(lParam));
    case LVM_GETITEMTEXTW:
        return getText(row, reinterpret_cast<LVITEMW*>(lParam));
    case LVM_FINDITEMA:
        return find(row, reinterpret_cast<const LVFINDINFOA*>(lParam));
    case LVM_FINDITEMW:
        return find(row, reinterpret_cast<const LVFINDINFOW*>(lParam));
    default:
        return rows(message, wParam, lParam);
    }
}

LRESULT ListView::rows(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_DELETEITEM:
        return remove(row);
    case LVM_DELETEALLITEMS:
        return removeAll();
    case LVM_SETITEMCOUNT:
        if (!isVirtual())
            m_model.reserve(row);
        else if (row >= 0 && row <= 100'000'000) {
            m_model.setCount(row);
            m_selected = 0;
            for (int r = 0; r < row; ++r) countSelected(0, m_model.stateAt(r));
            if (m_focus >= row) m_focus = -1;
            syncLater();
        }
        return 1;
    case LVM_SORTITEMS:
    case LVM_SORTITEMSEX:
        return sort(reinterpret_cast<PFNLVCOMPARE>(lParam), static_cast<LPARAM>(wParam),
                    message == LVM_SORTITEMSEX);
    default:
        return states(message, wParam, lParam);
    }
}

LRESULT ListView::states(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int row = static_cast<int>(wParam);
    switch (message) {
    case LVM_SETITEMSTATE: {
        const auto* const item = reinterpret_cast<const LVITEMA*>(lParam);
        if (!item || (row != -1 && !m_model.has(row))) return 0;
        const int first = row == -1 ? 0 : row, last = row == -1 ? m_model.count() - 1 : row;
        for (int r = first; isAlive() && r <= last && m_model.has(r); ++r)
            setState(r, item->state, item->stateMask);
        return 1;
    }
    case LVM_GETITEMSTATE:
        return m_model.has(row) ? stateOf(row) & static_cast<UINT>(lParam) : 0;
    case LVM_GETNEXTITEM:
        return nextItem(row, lParam);
    case LVM_GETSELECTEDCOUNT:
        return m_selected;
    case LVM_GETSELECTIONMARK:
        return m_mark;
    case LVM_SETSELECTIONMARK:
        return std::exchange(m_mark, static_cast<int>(lParam));
    default:
        return columns(message, wParam, lParam);
    }
}

template <typename Char>
LRESULT ListView::insert(const ListViewItem<Char>* item)
{
    if (!item || item->iSubItem != 0 || isVirtual()) return -1;
    ListRow row;
    row.cells.resize(1);
    if (item->mask & LVIF_TEXT) {
        row.cells[0].asks = reinterpret_cast<char*>(item->pszText) == LPSTR_TEXTCALLBACK;
        if (!row.cells[0].asks) row.cells[0].text = textFrom(item->pszText);
    }
    if (item->mask & LVIF_IMAGE) row.cells[0].image = item->iImage;
    if (item->mask & LVIF_PARAM) row.data = item->lParam;
    if (item->mask & LVIF_INDENT) row.indent = item->iIndent;
    int place = std::clamp(item->iItem, 0, m_model.count());
    if (style() & (LVS_SORTASCENDING | LVS_SORTDESCENDING)) place = sortedPlace(row.cells[0].text);
    const WORD mark = m_extended & LVS_EX_CHECKBOXES ? INDEXTOSTATEIMAGEMASK(1) : 0;
    if (m_focus >= place) ++m_focus;
    if (m_mark >= place) ++m_mark;
    m_model.insert(place, std::move(row), mark);
    if (item->mask & LVIF_STATE) setState(place, item->state, item->stateMask);
    if (isAlive()) tellItem(LVN_INSERTITEM, place);
    return place;
}

int ListView::sortedPlace(const QString& text) const
{
    const bool ascends = style() & LVS_SORTASCENDING;
    int low = 0, high = m_model.count();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const int order = compareTexts(text, m_model.textOf(middle, 0));
        if (ascends ? order < 0 : order > 0)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

template <typename Char>
LRESULT ListView::set(const ListViewItem<Char>* item)
{
    if (!item || !m_model.has(item->iItem) || item->iSubItem < 0) return 0;
    const int row = item->iItem;
    if (!isVirtual()) {
        if (item->iSubItem > 0 && !m_model.hasColumn(item->iSubItem)) return 0;
        if (item->mask & LVIF_TEXT) setText(row, item);
        if (item->mask & LVIF_IMAGE) m_model.cellAt(row, item->iSubItem).image = item->iImage;
        if (item->mask & LVIF_PARAM && item->iSubItem == 0) m_model.rowAt(row)->data = item->lParam;
        if (item->mask & LVIF_INDENT) m_model.rowAt(row)->indent = item->iIndent;
    }
    if (item->mask & LVIF_STATE && item->iSubItem == 0) setState(row, item->state, item->stateMask);
    if (isAlive()) m_model.changed(row, row);
    return 1;
}

template <typename Char>
LRESULT ListView::setText(int row, const ListViewItem<Char>* item)
{
    if (!item || isVirtual() || !m_model.has(row) || item->iSubItem < 0) return 0;
    if (item->iSubItem > 0 && !m_model.hasColumn(item->iSubItem)) return 0;
    ListCell& cell = m_model.cellAt(row, item->iSubItem);
    cell.asks = reinterpret_cast<char*>(item->pszText) == LPSTR_TEXTCALLBACK;
    cell.text = cell.asks ? QString() : textFrom(item->pszText);
    m_model.changed(row, row);
    return 1;
}

template <typename Char>
LRESULT ListView::getText(int row, ListViewItem<Char>* item) const
{
    if (!item || !m_model.has(row)) return 0;
    return copyText(m_model.textOf(row, item->iSubItem), item->pszText, item->cchTextMax);
}

template <typename Char>
LRESULT ListView::get(ListViewItem<Char>* item)
{
    if (!item || !m_model.has(item->iItem)) return 0;
    const ListRow* const row = m_model.rowAt(item->iItem);
    if (item->mask & LVIF_TEXT) getText(item->iItem, item);
    if (item->mask & LVIF_STATE) item->state = stateOf(item->iItem) & item->stateMask;
    if (item->mask & LVIF_IMAGE) item->iImage = imageOf(item->iItem, std::max(item->iSubItem, 0));
    if (!row) return 1;
    if (item->mask & LVIF_PARAM) item->lParam = row->data;
    if (item->mask & LVIF_INDENT) item->iIndent = row->indent;
    return 1;
}

template <typename Char>
LRESULT ListView::find(int after, const ListViewFind<Char>* what) const
{
    if (!what) return -1;
    const QString text = what->flags & (LVFI_STRING | LVFI_PARTIAL) ? textFrom(what->psz) : QString();
    const int rows = m_model.count(), first = std::clamp(after, -1, rows) + 1;
    const int end = what->flags & LVFI_WRAP ? first + rows : rows;
    for (int i = first; i < end; ++i) {
        const int row = i % rows;
        if (what->flags & LVFI_PARAM) {
            const ListRow* const kept = m_model.rowAt(row);
            if (kept && kept->data == what->lParam) return row;
        } else if (what->flags & LVFI_PARTIAL ? beginsWith(m_model.textOf(row, 0), text)
                                              : compareTexts(m_model.textOf(row, 0), text) == 0)
            return row;
    }
    return -1;
}

LRESULT ListView::remove(int row)
{
    if (!m_model.has(row)) return 0;
    tellItem(LVN_DELETEITEM, row);
    if (!isAlive() || !m_model.has(row)) return 0;
    countSelected(m_model.stateAt(row), 0);
    m_model.remove(row);
    if (m_focus > row || m_focus == m_model.count()) --m_focus;
    if (m_mark > row || m_mark == m_model.count()) --m_mark;
    syncLater();
    return 1;
}

void ListView::tellAllGone()
{
    if (tellItem(LVN_DELETEALLITEMS, -1)) return;
    for (int row = 0; isAlive() && !isVirtual() && row < m_model.count(); ++row)
        tellItem(LVN_DELETEITEM, row);
}

LRESULT ListView::removeAll()
{
    tellAllGone();
    if (!isAlive()) return 0;
    m_model.clear();
    m_focus = m_mark = -1;
    m_selected = 0;
    return 1;
}

LRESULT ListView::sort(PFNLVCOMPARE compare, LPARAM parameter, bool byRow)
{
    if (!compare || isVirtual()) return 0;
    const int rows = m_model.count();
    std::vector<LPARAM> keys(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row)
        keys[static_cast<std::size_t>(row)] = byRow ? row : m_model.rowAt(row)->data;
    const std::vector<int> order = sortedOrder(rows, [&](int a, int b) {
        return compare(keys[static_cast<std::size_t>(a)], keys[static_cast<std::size_t>(b)], parameter) < 0;
    });
    // Whoever compares may have changed the list.
    if (!isAlive() || m_model.count() != rows) return 0;
    m_model.reorder(order);
    const auto place = std::ranges::find(order, m_focus);
    if (place != order.end()) m_focus = static_cast<int>(place - order.begin());
    syncLater();
    return 1;
}

LRESULT ListView::nextItem(int after, LPARAM which) const
{
    const UINT wanted = static_cast<UINT>(which) & 0xF;
    for (int row = std::max(after, -1) + 1; row < m_model.count(); ++row)
        if ((stateOf(row) & wanted) == wanted) return row;
    return -1;
}

UINT ListView::stateOf(int row) const { return m_model.stateAt(row) | (row == m_focus ? LVIS_FOCUSED : 0); }

void ListView::setState(int row, UINT state, UINT mask)
{
    const UINT before = stateOf(row);
    const UINT after = (before & ~mask) | (state & mask);
    if (before == after) return;
    if (tellItem(LVN_ITEMCHANGING, row, before, after) || !isAlive() || !m_model.has(row)) return;
    if (style() & LVS_SINGLESEL && after & ~before & LVIS_SELECTED)
        for (int other = 0; m_selected > 0 && other < m_model.count() && isAlive(); ++other)
            if (m_model.stateAt(other) & LVIS_SELECTED) setState(other, 0, LVIS_SELECTED);
    if (!isAlive() || !m_model.has(row)) return;
    if (mask & LVIS_FOCUSED) {
        const int former = std::exchange(m_focus, after & LVIS_FOCUSED ? row : m_focus == row ? -1 : m_focus);
        if (former != m_focus && former != row && m_model.has(former))
            tellItem(LVN_ITEMCHANGED, former, m_model.stateAt(former) | LVIS_FOCUSED,
                     m_model.stateAt(former));
        if (!isAlive() || !m_model.has(row)) return;
    }
    const WORD kept = static_cast<WORD>(after & keptStates);
    countSelected(m_model.stateAt(row), kept);
    m_model.stateAt(row) = kept;
    if ((before ^ after) & ~(LVIS_SELECTED | LVIS_FOCUSED)) m_model.changed(row, row);
    if ((before ^ after) & (LVIS_SELECTED | LVIS_FOCUSED)) syncLater();
    tellItem(LVN_ITEMCHANGED, row, before, after);
}

LRESULT ListView::tellItem(UINT code, int row, UINT before, UINT after, POINT point, int column)
{
    NMLISTVIEW told{};
    told.iItem = row;
    told.iSubItem = column;
    told.uOldState = before;
    told.uNewState = after;
    if (code == LVN_ITEMCHANGED || code == LVN_ITEMCHANGING) told.uChanged = LVIF_STATE;
    told.ptAction = point;
    if (const ListRow* const kept = m_model.rowAt(row)) told.lParam = kept->data;
    return notifyParent(told.hdr, code);
}

void ListView::syncLater()
{
    if (std::exchange(m_isStale, true)) return;
    QMetaObject::invokeMethod(
        const_cast<QObject*>(life()), [this] { sync(); }, Qt::QueuedConnection);
}

void ListView::sync()
{
    if (!view() || !std::exchange(m_isStale, false)) return;
    m_model.publish();
    QItemSelection selection;
    const int last = std::max(0, m_model.columnCount() - 1);
    for (int row = 0; row < m_model.count(); ++row) {
        if (!(m_model.stateAt(row) & LVIS_SELECTED)) continue;
        const int first = row;
        while (row + 1 < m_model.count() && m_model.stateAt(row + 1) & LVIS_SELECTED) ++row;
        selection.append(QItemSelectionRange(m_model.index(first, 0), m_model.index(row, last)));
    }
    m_syncing = true;
    view()->selectionModel()->setCurrentIndex(m_model.index(m_focus, 0), QItemSelectionModel::NoUpdate);
    view()->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_syncing = false;
}

void ListView::selectionByUser(const QItemSelection& selected, const QItemSelection& deselected)
{
    const auto self = share(handle());
    takeSelection(deselected, false);
    if (isAlive()) takeSelection(selected, true);
}

void ListView::takeSelection(const QItemSelection& ranges, bool isSelected)
{
    std::vector<std::pair<int, int>> rows; // as whoever is told may change the ranges
    for (const QItemSelectionRange& range : ranges) rows.emplace_back(range.top(), range.bottom());
    for (const auto& [first, last] : rows) {
        const UINT before = isSelected ? 0 : LVIS_SELECTED, after = isSelected ? LVIS_SELECTED : 0;
        const bool tellsTogether = isVirtual() && last > first;
        for (int row = first; row <= last && isAlive() && m_model.has(row); ++row) {
            WORD& state = m_model.stateAt(row);
            const UINT whole = stateOf(row);
            if (((whole & LVIS_SELECTED) != 0) == isSelected) continue;
            countSelected(state, static_cast<WORD>(after));
            state = static_cast<WORD>((state & ~LVIS_SELECTED) | after);
            if (!tellsTogether) tellItem(LVN_ITEMCHANGED, row, whole, (whole & ~LVIS_SELECTED) | after);
        }
        if (!tellsTogether || !isAlive()) continue;
        NMLVODSTATECHANGE told{{}, first, last, after, before};
        notifyParent(told.hdr, LVN_ODSTATECHANGED);
    }
}

void ListView::focusByUser(int row)
{
    const auto self = share(handle());
    const int former = std::exchange(m_focus, row);
    if (former == row) return;
    if (m_model.has(former))
        tellItem(LVN_ITEMCHANGED, former, m_model.stateAt(former) | LVIS_FOCUSED, m_model.stateAt(former));
    if (isAlive() && m_focus == row && m_model.has(row))
        tellItem(LVN_ITEMCHANGED, row, m_model.stateAt(row), stateOf(row));
}

LRESULT ListView::clicked(Click click, POINT point)
{
    if (click == Click::enter) return ViewControl::clicked(click, point);
    constexpr UINT codes[] = {NM_CLICK, NM_DBLCLK, NM_RCLICK, NM_RDBLCLK};
    const QModelIndex index = view()->indexAt(inView(point));
    NMITEMACTIVATE told{};
    told.iItem = index.row();
    told.iSubItem = std::max(0, index.column());
    told.ptAction = point;
    return notifyParent(told.hdr, codes[static_cast<int>(click)]);
}

void ListView::keyPressed(WORD key)
{
    NMLVKEYDOWN told{};
    told.wVKey = key;
    notifyParent(told.hdr, LVN_KEYDOWN);
}

void ListView::activated(Click)
{
    if (m_focus < 0) return;
    NMITEMACTIVATE told{};
    told.iItem = m_focus;
    notifyParent(told.hdr, LVN_ITEMACTIVATE);
}

void ListView::character(char16_t c)
{
    if (!isVirtual()) return ViewControl::character(c);
    const std::string text = toNarrow(QString(QChar(c)));
    NMLVFINDITEMA told{{}, m_focus + 1, {LVFI_PARTIAL | LVFI_WRAP, text.c_str(), 0, {}, 0}};
    const int row = static_cast<int>(notifyParent(told.hdr, LVN_ODFINDITEM));
    if (!isAlive() || !m_model.has(row)) return;
    view()->selectionModel()->setCurrentIndex(m_model.index(row, 0), QItemSelectionModel::ClearAndSelect |
                                                                         QItemSelectionModel::Rows);
}

// Offers room for a text whatever is asked for: some answer with all they have.
ListViewItem<char> ListView::ask(UINT mask, int row, int column, char* room)
{
    *room = 0;
    NMLVDISPINFOA info{};
    info.item.mask = mask;
    info.item.iItem = row;
    info.item.iSubItem = column;
    info.item.pszText = room;
    info.item.cchTextMax = textRoom;
    if (const ListRow* const kept = m_model.rowAt(row)) info.item.lParam = kept->data;
    notifyParent(info.hdr, LVN_GETDISPINFO);
    return info.item;
}

QString ListView::askText(int row, int column)
{
    char room[textRoom];
    return textFrom(ask(LVIF_TEXT, row, column, room).pszText);
}

int ListView::imageOf(int row, int column)
{
    const ListRow* const kept = m_model.rowAt(row);
    const auto cell = static_cast<std::size_t>(column);
    const int image = kept && cell < kept->cells.size() ? kept->cells[cell].image : 0;
    if (!isVirtual() && image != I_IMAGECALLBACK) return image;
    char room[textRoom];
    return ask(LVIF_IMAGE, row, column, room).iImage;
}

void ListView::drawRow(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (!m_model.has(index.row())) return;
    DRAWITEMSTRUCT parts{};
    parts.CtlType = ODT_LISTVIEW;
    parts.itemID = static_cast<UINT>(index.row());
    parts.itemAction = ODA_DRAWENTIRE;
    parts.itemState = drawStateOf(option.state);
    if (const ListRow* const kept = m_model.rowAt(index.row()))
        parts.itemData = static_cast<UINT_PTR>(kept->data);
    sendDrawItem(*this, painter, option.rect, parts);
}

std::unique_ptr<Window> makeListView(const CREATESTRUCTA& create, QWidget* parent)
{
    return std::make_unique<ListView>(static_cast<DWORD>(create.style), parent);
}

} // namespace corekit::detail
