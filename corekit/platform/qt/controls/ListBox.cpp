#include "corekit/platform/ListBoxes.h"

#include "corekit/platform/Buttons.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/OwnerDraw.h"
#include "corekit/platform/qt/controls/RowDelegate.h"

#include <QListView>
#include <QScrollBar>

#include <algorithm>
#include <cstring>

namespace corekit::detail {

namespace {

class ListBox final : public Control {
public:
    explicit ListBox(QWidget* parent);
    void begin(const CREATESTRUCTA&) override;
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    UINT dialogCode() const override { return DLGC_WANTARROWS | DLGC_WANTCHARS; }
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;
    void character(char16_t c) override { face()->keyboardSearch(QString(QChar(c))); }
    void focusChanged(bool gained) override
    {
        if (style() & LBS_NOTIFY) tell(gained ? LBN_SETFOCUS : LBN_KILLFOCUS);
    }
    void ending() override { forgetItems(); }

private:
    QListView* face() const { return as<QListView>(); }
    bool isMultiple() const { return style() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL); }
    bool isOwnerDrawn() const { return style() & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE); }
    bool hasTexts() const { return !isOwnerDrawn() || style() & LBS_HASSTRINGS; }
    QModelIndex at(int row) const { return m_rows.index(row); }
    bool isSelected(int row) const { return face()->selectionModel()->isSelected(at(row)); }

    LRESULT contents(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT rowData(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT selection(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT caret(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT layout(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT extent(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT marks(UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT insert(int index, LPARAM what);
    LRESULT add(LPARAM what);
    Row rowFrom(LPARAM what) const;
    void forget(int row);
    void forgetItems();
    LRESULT textOf(WPARAM index, LPARAM buffer) const;
    LRESULT find(WPARAM after, LPARAM what, bool wholeText) const;

    LRESULT setCurrent(int row);
    void selectCurrent();
    LRESULT current() const;
    LRESULT select(int first, int last, bool on);
    LRESULT selectedRows(int count, int* rows) const;
    int nearest(QPoint inView) const;

    Rows& m_rows; // the widget's, as the delegate is
    RowDelegate* m_delegate;
    int m_program = 0;
    int m_anchor = -1;
    UINT m_markStyle = 0;
};

ListBox::ListBox(QWidget* parent) : Control(new QListView(parent)), m_rows(*new Rows(widget()))
{
    m_delegate = new RowDelegate(*this, m_rows, ODT_LISTBOX, face());
    face()->setModel(&m_rows);
    face()->setItemDelegate(m_delegate);
    face()->setEditTriggers(QAbstractItemView::NoEditTriggers);
    face()->setUniformItemSizes(true);
    QObject::connect(face()->selectionModel(), &QItemSelectionModel::selectionChanged, life(), [this] {
        if (m_program == 0 && style() & LBS_NOTIFY) tell(LBN_SELCHANGE);
    });
    QObject::connect(&m_rows, &QAbstractItemModel::headerDataChanged, life(),
                     [this] { tell(CLBN_CHKCHANGE); });
}

void ListBox::begin(const CREATESTRUCTA&)
{
    QListView& view = *face();
    view.setSelectionMode(style() & LBS_NOSEL         ? QAbstractItemView::NoSelection
                          : style() & LBS_EXTENDEDSEL ? QAbstractItemView::ExtendedSelection
                          : style() & LBS_MULTIPLESEL ? QAbstractItemView::MultiSelection
                                                      : QAbstractItemView::SingleSelection);
    if (style() & LBS_MULTICOLUMN) {
        view.setFlow(QListView::TopToBottom);
        view.setWrapping(true);
        view.setResizeMode(QListView::Adjust);
    }
    const auto barFor = [this](DWORD bar) {
        if (!(style() & bar)) return Qt::ScrollBarAlwaysOff;
        return style() & LBS_DISABLENOSCROLL ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded;
    };
    view.setVerticalScrollBarPolicy(barFor(WS_VSCROLL));
    view.setHorizontalScrollBarPolicy(barFor(WS_HSCROLL));
    view.setFrameShape(style() & WS_BORDER || exStyle() & WS_EX_CLIENTEDGE ? QFrame::StyledPanel
                                                                           : QFrame::NoFrame);
    m_delegate->isOwnerDrawn = isOwnerDrawn();
    view.setUniformItemSizes(!(style() & LBS_OWNERDRAWVARIABLE));
}

LRESULT ListBox::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    const ByProgram quiet(m_program);
    if (message == WM_CREATE && style() & LBS_OWNERDRAWFIXED)
        m_delegate->rowHeight =
            sendMeasureItem(*this, ODT_LISTBOX, 0, 0, {face()->width(), face()->fontMetrics().height()})
                .height;
    if (message >= LB_ADDSTRING && message <= LB_ITEMFROMPOINT) return contents(message, wParam, lParam);
    if (message >= CLB_SETCHECK && message <= CLB_GETCHECKSTYLE) return marks(message, wParam, lParam);
    return Control::defaultProcedure(message, wParam, lParam);
}

LRESULT ListBox::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int program = std::exchange(m_program, 0);
    const auto self = share(handle());
    const LRESULT answer = Control::input(message, wParam, lParam);
    if (isAlive() && message == WM_KEYDOWN && wParam >= VK_PRIOR && wParam <= VK_DOWN) selectCurrent();
    m_program = program;
    if (!isAlive() || message != WM_LBUTTONDBLCLK || !(style() & LBS_NOTIFY)) return answer;
    const QPoint inView = face()->viewport()->mapFrom(face(), toWidget(pointIn(lParam)));
    if (face()->indexAt(inView).isValid()) tell(LBN_DBLCLK);
    return answer;
}

// The toolkit leaves a row alone that a key would move to and that is the current one already.
void ListBox::selectCurrent()
{
    const QModelIndex index = face()->currentIndex();
    if (isMultiple() || style() & LBS_NOSEL || !index.isValid() || face()->selectionModel()->hasSelection())
        return;
    face()->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
}

LRESULT ListBox::contents(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case LB_ADDSTRING:
        return add(lParam);
    case LB_INSERTSTRING: {
        const int index = static_cast<int>(wParam);
        if (index < -1 || index > m_rows.count()) return LB_ERR;
        return insert(index < 0 ? m_rows.count() : index, lParam);
    }
    case LB_DELETESTRING:
        if (!m_rows.has(wParam)) return LB_ERR;
        forget(static_cast<int>(wParam));
        if (!isAlive()) return LB_ERR;
        m_rows.remove(static_cast<int>(wParam));
        return m_rows.count();
    case LB_RESETCONTENT:
        forgetItems();
        if (isAlive()) m_rows.clear();
        return LB_OKAY;
    case LB_SETCOUNT:
        if (!(style() & LBS_NODATA) || wParam > 0x7FFFFF) return LB_ERR;
        m_rows.setCount(static_cast<int>(wParam));
        return LB_OKAY;
    case LB_INITSTORAGE:
        m_rows.reserve(std::min<std::size_t>(wParam, 1 << 20));
        return static_cast<LRESULT>(wParam);
    case LB_GETCOUNT:
        return m_rows.count();
    default:
        return rowData(message, wParam, lParam);
    }
}

LRESULT ListBox::rowData(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case LB_GETTEXT:
        return textOf(wParam, lParam);
    case LB_GETTEXTLEN:
        return m_rows.has(wParam) ? lengthOf(m_rows.at(static_cast<int>(wParam)).text, lParam) : LB_ERR;
    case LB_GETITEMDATA:
        return m_rows.has(wParam) ? static_cast<LRESULT>(m_rows.at(static_cast<int>(wParam)).data) : LB_ERR;
    case LB_SETITEMDATA:
        if (!m_rows.has(wParam)) return LB_ERR;
        m_rows.at(static_cast<int>(wParam)).data = static_cast<UINT_PTR>(lParam);
        return LB_OKAY;
    case LB_FINDSTRING:
    case LB_FINDSTRINGEXACT:
        return find(wParam, lParam, message == LB_FINDSTRINGEXACT);
    default:
        return selection(message, wParam, lParam);
    }
}

Row ListBox::rowFrom(LPARAM what) const
{
    Row row;
    if (hasTexts())
        row.text = textIn(what);
    else
        row.data = static_cast<UINT_PTR>(what);
    return row;
}

LRESULT ListBox::add(LPARAM what)
{
    if (!(style() & LBS_SORT)) return insert(m_rows.count(), what);
    const auto self = share(handle());
    const int place = m_rows.placeOf(rowFrom(what), [this](const Row& a, const Row& b) {
        return hasTexts() ? compareTexts(a.text, b.text)
                          : sendCompareItem(*this, ODT_LISTBOX, a.data, b.data);
    });
    return isAlive() ? insert(place, what) : LB_ERR;
}

LRESULT ListBox::insert(int index, LPARAM what)
{
    Row row = rowFrom(what);
    if (style() & LBS_OWNERDRAWVARIABLE) {
        row.height = sendMeasureItem(*this, ODT_LISTBOX, static_cast<UINT>(index), row.data,
                                     {face()->width(), face()->fontMetrics().height()})
                         .height;
        if (!isAlive()) return LB_ERR;
        index = std::min(index, m_rows.count());
    }
    m_rows.insert(index, std::move(row));
    return index;
}

void ListBox::forget(int row)
{
    if (isOwnerDrawn()) sendDeleteItem(*this, ODT_LISTBOX, static_cast<UINT>(row), m_rows.at(row).data);
}

void ListBox::forgetItems()
{
    for (int row = 0; isOwnerDrawn() && isAlive() && row < m_rows.count(); ++row) forget(row);
}

LRESULT ListBox::textOf(WPARAM index, LPARAM buffer) const
{
    if (!m_rows.has(index) || !buffer) return LB_ERR;
    const Row& row = m_rows.at(static_cast<int>(index));
    if (hasTexts()) return copyOut(row.text, buffer);
    std::memcpy(reinterpret_cast<void*>(buffer), &row.data, sizeof row.data);
    return sizeof row.data;
}

LRESULT ListBox::find(WPARAM after, LPARAM what, bool wholeText) const
{
    if (!hasTexts())
        return m_rows.find(static_cast<int>(after),
                           [what](const Row& row) { return row.data == static_cast<UINT_PTR>(what); });
    const QString text = textIn(what);
    return m_rows.find(static_cast<int>(after), [&](const Row& row) {
        return wholeText ? compareTexts(row.text, text) == 0 : beginsWith(row.text, text);
    });
}

LRESULT ListBox::selection(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case LB_SETCURSEL:
        return isMultiple() ? LB_ERR : setCurrent(static_cast<int>(wParam));
    case LB_GETCURSEL:
        return current();
    case LB_SELECTSTRING: {
        const LRESULT found = isMultiple() ? LB_ERR : find(wParam, lParam, false);
        return found == LB_ERR ? LB_ERR : setCurrent(static_cast<int>(found));
    }
    case LB_GETSEL:
        return m_rows.has(wParam) ? isSelected(static_cast<int>(wParam)) : LB_ERR;
    case LB_SETSEL: {
        const int row = static_cast<int>(lParam);
        if (!isMultiple()) return LB_ERR;
        return row == -1 ? select(0, m_rows.count() - 1, wParam != 0) : select(row, row, wParam != 0);
    }
    case LB_SELITEMRANGE: {
        const auto words = static_cast<DWORD_PTR>(lParam);
        return isMultiple() ? select(LOWORD(words), HIWORD(words), wParam != 0) : LB_ERR;
    }
    case LB_SELITEMRANGEEX: {
        const auto [first, last] = std::minmax(static_cast<int>(wParam), static_cast<int>(lParam));
        return isMultiple() ? select(first, last, static_cast<int>(wParam) <= static_cast<int>(lParam))
                            : LB_ERR;
    }
    case LB_GETSELCOUNT:
        return isMultiple() ? static_cast<LRESULT>(face()->selectionModel()->selectedIndexes().size())
                            : LB_ERR;
    case LB_GETSELITEMS:
        return isMultiple() ? selectedRows(static_cast<int>(wParam), reinterpret_cast<int*>(lParam)) : LB_ERR;
    default:
        return caret(message, wParam, lParam);
    }
}

LRESULT ListBox::caret(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case LB_SETCARETINDEX:
        if (!m_rows.has(wParam)) return LB_ERR;
        face()->selectionModel()->setCurrentIndex(at(static_cast<int>(wParam)),
                                                  QItemSelectionModel::NoUpdate);
        return LB_OKAY;
    case LB_GETCARETINDEX:
        return face()->currentIndex().row();
    case LB_SETANCHORINDEX:
        m_anchor = static_cast<int>(wParam);
        return LB_OKAY;
    case LB_GETANCHORINDEX:
        return m_anchor;
    default:
        return layout(message, wParam, lParam);
    }
}

LRESULT ListBox::setCurrent(int row)
{
    if (row >= m_rows.count() || row < 0) {
        face()->selectionModel()->clear();
        return LB_ERR;
    }
    face()->selectionModel()->setCurrentIndex(at(row), QItemSelectionModel::ClearAndSelect);
    face()->scrollTo(at(row));
    return row;
}

LRESULT ListBox::current() const
{
    if (isMultiple()) return face()->currentIndex().row();
    const QItemSelection selection = face()->selectionModel()->selection();
    return selection.isEmpty() ? LB_ERR : selection.first().top();
}

LRESULT ListBox::select(int first, int last, bool on)
{
    if (last < first && m_rows.count() == 0) return LB_OKAY;
    if (first < 0 || first >= m_rows.count()) return LB_ERR;
    last = std::clamp(last, first, m_rows.count() - 1);
    face()->selectionModel()->select(QItemSelection(at(first), at(last)),
                                     on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
    m_anchor = last;
    return LB_OKAY;
}

LRESULT ListBox::selectedRows(int count, int* rows) const
{
    std::vector<int> selected;
    for (const QModelIndex& index : face()->selectionModel()->selectedIndexes())
        selected.push_back(index.row());
    std::ranges::sort(selected);
    const int stored = rows ? std::clamp(count, 0, static_cast<int>(selected.size())) : 0;
    std::copy_n(selected.begin(), stored, rows);
    return stored;
}

int ListBox::nearest(QPoint inView) const
{
    const QRect view = face()->viewport()->rect();
    const QPoint inside(std::clamp(inView.x(), 0, std::max(0, view.width() - 1)),
                        std::clamp(inView.y(), 0, std::max(0, view.height() - 1)));
    const int row = face()->indexAt(inside).row();
    return row >= 0 ? row : m_rows.count() - 1;
}

LRESULT ListBox::layout(UINT message, WPARAM wParam, LPARAM lParam)
{
    const QWidget& view = *face()->viewport();
    switch (message) {
    case LB_GETTOPINDEX:
        return std::max(0, face()->indexAt({1, 1}).row());
    case LB_SETTOPINDEX:
        if (!m_rows.has(wParam)) return LB_ERR;
        face()->scrollTo(at(static_cast<int>(wParam)), QAbstractItemView::PositionAtTop);
        return LB_OKAY;
    case LB_GETITEMRECT:
        if (!m_rows.has(wParam) || !lParam) return LB_ERR;
        *reinterpret_cast<RECT*>(lParam) = documentedRect(
            face()->visualRect(at(static_cast<int>(wParam))).translated(view.pos() - client().topLeft()));
        return LB_OKAY;
    case LB_ITEMFROMPOINT: {
        const QPoint inView = view.mapFrom(face(), toWidget(pointIn(lParam)));
        return inWords(nearest(inView), view.rect().contains(inView) ? 0 : 1);
    }
    default:
        return extent(message, wParam, lParam);
    }
}

LRESULT ListBox::extent(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case LB_SETITEMHEIGHT:
        if (style() & LBS_OWNERDRAWVARIABLE && m_rows.has(wParam))
            m_rows.at(static_cast<int>(wParam)).height = static_cast<int>(lParam);
        else
            m_delegate->rowHeight = std::clamp(static_cast<int>(lParam), 1, 0x7FFF);
        face()->doItemsLayout();
        return LB_OKAY;
    case LB_GETITEMHEIGHT:
        if (m_rows.has(wParam)) return face()->sizeHintForIndex(at(static_cast<int>(wParam))).height();
        return m_delegate->rowHeight ? m_delegate->rowHeight : face()->fontMetrics().height();
    case LB_SETCOLUMNWIDTH:
        m_delegate->columnWidth = static_cast<int>(std::min<WPARAM>(wParam, 0x7FFF));
        face()->doItemsLayout();
        return LB_OKAY;
    case LB_SETHORIZONTALEXTENT:
        m_delegate->widestRow = static_cast<int>(std::min<WPARAM>(wParam, 0x7FFFFF));
        face()->doItemsLayout();
        return LB_OKAY;
    case LB_GETHORIZONTALEXTENT:
        return m_delegate->widestRow;
    default:
        return LB_ERR;
    }
}

LRESULT ListBox::marks(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == CLB_SETCHECKSTYLE || (message == CLB_SETCHECK && m_markStyle == 0)) {
        m_markStyle = message == CLB_SETCHECKSTYLE ? static_cast<UINT>(wParam) : UINT{BS_AUTOCHECKBOX};
        // Marks that the user cannot change have no states to go through.
        m_rows.showMarks(m_markStyle == 0                 ? -1
                         : m_markStyle == BS_AUTOCHECKBOX ? 2
                         : m_markStyle == BS_AUTO3STATE   ? 3
                                                          : 0);
        m_delegate->isOwnerDrawn = isOwnerDrawn() && m_markStyle == 0; // a list with marks draws itself
        face()->viewport()->update();
    }
    if (message == CLB_SETCHECKSTYLE) return LB_OKAY;
    if (message == CLB_GETCHECKSTYLE) return m_markStyle;
    if (!m_rows.has(wParam)) return LB_ERR;
    const int index = static_cast<int>(wParam);
    Row& row = m_rows.at(index);
    switch (message) {
    case CLB_SETCHECK:
        row.check = static_cast<signed char>(std::clamp<LPARAM>(lParam, 0, 2));
        break;
    case CLB_GETCHECK:
        return row.check;
    case CLB_ENABLE:
        row.isEnabled = lParam != 0;
        break;
    default:
        return row.isEnabled;
    }
    m_rows.changed(index);
    return LB_OKAY;
}

} // namespace

std::unique_ptr<Window> makeListBox(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<ListBox>(parent);
}

} // namespace corekit::detail
