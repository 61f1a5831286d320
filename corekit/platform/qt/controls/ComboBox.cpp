#include "corekit/platform/ComboBoxes.h"

#include "corekit/platform/Keyboard.h"
#include "corekit/platform/qt/controls/ComboFaces.h"
#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/OwnerDraw.h"
#include "corekit/platform/qt/controls/RowDelegate.h"

#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <climits>
#include <cstring>

namespace corekit::detail {

namespace {

constexpr int rowsOfSmallList = 10; // where the window's height leaves no room for one

// What both looks share: rows, their texts and data, the field.
class ComboBox : public Control {
public:
    explicit ComboBox(QWidget* face) : Control(face), m_rows(*new Rows(face)) {}
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override;
    void setText(const QString& text) override;

protected:
    UINT dialogCode() const override { return DLGC_WANTARROWS | DLGC_WANTCHARS; }
    void focusChanged(bool gained) override { tell(gained ? CBN_SETFOCUS : CBN_KILLFOCUS); }
    void character(char16_t c) override;
    void ending() override { forgetItems(); }

    virtual LineFace* line() const = 0; // null without one
    virtual QAbstractItemView* list() const = 0;
    virtual int shownRow() const = 0;
    virtual void showRow(int row) = 0; // -1 none; the field follows
    virtual void open(bool) {}
    virtual bool isOpen() const { return true; }
    virtual void layoutChanged() {}

    void listenToField();
    // The user has chosen a row.
    void chosen(int row);
    bool isOwnerDrawn() const { return style() & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE); }
    bool hasTexts() const { return !isOwnerDrawn() || style() & CBS_HASSTRINGS; }

    Rows& m_rows;
    RowDelegate* m_delegate = nullptr;
    int m_fieldHeight = 0; // 0: the theme's
    int m_wholeHeight = 0; // of field and open list
    int m_chosen = -1;     // what the program knows of

private:
    LRESULT contents(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT choice(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT field(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT droppedList(UINT message, WPARAM wParam, LPARAM lParam);
    Row rowFrom(LPARAM what) const;
    LRESULT add(LPARAM what);
    LRESULT insert(int index, LPARAM what);
    LRESULT remove(int index);
    void forgetItems();
    LRESULT textOf(WPARAM index, LPARAM buffer) const;
    LRESULT find(WPARAM after, LPARAM what, bool wholeText) const;
    LRESULT select(int row);
    LRESULT setHeight(int index, int height);
};

void ComboBox::listenToField()
{
    if (!line()) return;
    line()->setRules({false, (style() & CBS_UPPERCASE) != 0, (style() & CBS_LOWERCASE) != 0});
    QObject::connect(line(), &QLineEdit::textEdited, life(), [this] {
        m_chosen = -1;
        if (tell(CBN_EDITUPDATE)) tell(CBN_EDITCHANGE);
    });
}

void ComboBox::chosen(int row)
{
    const bool isAnother = std::exchange(m_chosen, row) != row;
    if (tell(CBN_SELENDOK) && isAnother) tell(CBN_SELCHANGE);
}

void ComboBox::character(char16_t c)
{
    if (!isEntry(c)) return;
    const int before = shownRow();
    if (line()) {
        line()->enter(QString(QChar(c)));
        m_chosen = -1;
        if (tell(CBN_EDITUPDATE)) tell(CBN_EDITCHANGE);
        return;
    }
    list()->keyboardSearch(QString(QChar(c)));
    const int found = list()->currentIndex().row();
    if (found < 0 || found == before) return;
    showRow(found);
    chosen(found);
}

QString ComboBox::text() const
{
    if (!widget()) return {};
    if (line()) return line()->text();
    return m_chosen >= 0 && m_chosen < m_rows.count() ? m_rows.at(m_chosen).text : QString();
}

void ComboBox::setText(const QString& text)
{
    if (!widget() || !line()) return;
    line()->setWholeText(text);
    m_chosen = -1;
}

LRESULT ComboBox::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!widget()) return Control::defaultProcedure(message, wParam, lParam);
    if (message == WM_CREATE && style() & CBS_OWNERDRAWFIXED) {
        const ItemSize theme{widget()->width(), widget()->fontMetrics().height()};
        m_delegate->rowHeight = sendMeasureItem(*this, ODT_COMBOBOX, 0, 0, theme).height;
        const int field = sendMeasureItem(*this, ODT_COMBOBOX, 0xFFFFFFFF, 0, theme).height;
        if (isAlive()) setHeight(-1, field);
    }
    if (message == WM_WINDOWPOSCHANGING) {
        const auto& place = *reinterpret_cast<const WINDOWPOS*>(lParam);
        if (!(place.flags & SWP_NOSIZE)) m_wholeHeight = place.cy;
        layoutChanged();
    }
    if (line()) {
        switch (message) {
        case WM_CUT:
            line()->cut();
            return 0;
        case WM_COPY:
            line()->copy();
            return 0;
        case WM_PASTE:
            line()->pasteFrom(QClipboard::Clipboard);
            return 0;
        case WM_CLEAR:
            if (line()->hasSelectedText()) line()->insert(QString());
            return 0;
        default:
            break;
        }
    }
    return contents(message, wParam, lParam);
}

LRESULT ComboBox::contents(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case CB_ADDSTRING:
        return add(lParam);
    case CB_INSERTSTRING: {
        const int index = static_cast<int>(wParam);
        if (index < -1 || index > m_rows.count()) return CB_ERR;
        return insert(index < 0 ? m_rows.count() : index, lParam);
    }
    case CB_DELETESTRING:
        return m_rows.has(wParam) ? remove(static_cast<int>(wParam)) : CB_ERR;
    case CB_RESETCONTENT:
        forgetItems();
        if (!isAlive()) return CB_OKAY;
        m_chosen = -1;
        m_rows.clear();
        showRow(-1);
        return CB_OKAY;
    case CB_INITSTORAGE:
        m_rows.reserve(std::min<std::size_t>(wParam, 1 << 20));
        return static_cast<LRESULT>(wParam);
    case CB_GETCOUNT:
        return m_rows.count();
    case CB_GETLBTEXT:
        return textOf(wParam, lParam);
    case CB_GETLBTEXTLEN:
        return m_rows.has(wParam) ? lengthOf(m_rows.at(static_cast<int>(wParam)).text, lParam) : CB_ERR;
    case CB_GETITEMDATA:
        return m_rows.has(wParam) ? static_cast<LRESULT>(m_rows.at(static_cast<int>(wParam)).data) : CB_ERR;
    case CB_SETITEMDATA:
        if (!m_rows.has(wParam)) return CB_ERR;
        m_rows.at(static_cast<int>(wParam)).data = static_cast<UINT_PTR>(lParam);
        return CB_OKAY;
    default:
        return choice(message, wParam, lParam);
    }
}

LRESULT ComboBox::choice(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case CB_FINDSTRING:
    case CB_FINDSTRINGEXACT:
        return find(wParam, lParam, message == CB_FINDSTRINGEXACT);
    case CB_SELECTSTRING: {
        const LRESULT found = find(wParam, lParam, false);
        return found == CB_ERR ? CB_ERR : select(static_cast<int>(found));
    }
    case CB_SETCURSEL:
        return select(static_cast<int>(wParam));
    case CB_GETCURSEL:
        return m_chosen;
    default:
        return field(message, wParam, lParam);
    }
}

LRESULT ComboBox::field(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case CB_GETEDITSEL:
        return line() ? lineSelection(*line(), wParam, lParam) : CB_ERR;
    case CB_SETEDITSEL: {
        const POINT range = pointIn(lParam);
        if (line()) selectInLine(*line(), range.x, range.y);
        return line() ? 1 : CB_ERR;
    }
    case CB_LIMITTEXT:
        if (line()) line()->setLimit(wParam ? static_cast<int>(std::min<WPARAM>(wParam, INT_MAX)) : INT_MAX);
        return 1;
    case CB_SETCUEBANNER:
        if (line()) line()->setPlaceholderText(textFrom(reinterpret_cast<const WCHAR*>(lParam)));
        return 1;
    default:
        return droppedList(message, wParam, lParam);
    }
}

LRESULT ComboBox::droppedList(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case CB_SHOWDROPDOWN:
        open(wParam != 0);
        return 1;
    case CB_GETDROPPEDSTATE:
        return isOpen();
    case CB_GETDROPPEDCONTROLRECT: {
        auto* const rect = reinterpret_cast<RECT*>(lParam);
        if (!rect || !GetWindowRect(handle(), rect)) return 0;
        rect->bottom = std::max(rect->bottom, rect->top + m_wholeHeight);
        return 1;
    }
    case CB_SETITEMHEIGHT:
        return setHeight(static_cast<int>(wParam), static_cast<int>(lParam));
    case CB_GETITEMHEIGHT:
        if (static_cast<int>(wParam) == -1)
            return m_fieldHeight ? m_fieldHeight : widget()->fontMetrics().height();
        return m_delegate->rowHeight ? m_delegate->rowHeight : widget()->fontMetrics().height();
    case CB_GETDROPPEDWIDTH:
        return std::max(widget()->width(), list()->minimumWidth());
    case CB_SETDROPPEDWIDTH:
        list()->setMinimumWidth(static_cast<int>(std::min<WPARAM>(wParam, 0x7FFF)));
        return std::max(widget()->width(), list()->minimumWidth());
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

Row ComboBox::rowFrom(LPARAM what) const
{
    Row row;
    if (hasTexts())
        row.text = textIn(what);
    else
        row.data = static_cast<UINT_PTR>(what);
    return row;
}

LRESULT ComboBox::add(LPARAM what)
{
    if (!(style() & CBS_SORT)) return insert(m_rows.count(), what);
    const auto self = share(handle());
    const int place = m_rows.placeOf(rowFrom(what), [this](const Row& a, const Row& b) {
        return hasTexts() ? compareTexts(a.text, b.text)
                          : sendCompareItem(*this, ODT_COMBOBOX, a.data, b.data);
    });
    return isAlive() ? insert(place, what) : CB_ERR;
}

LRESULT ComboBox::insert(int index, LPARAM what)
{
    Row row = rowFrom(what);
    if (style() & CBS_OWNERDRAWVARIABLE) {
        row.height = sendMeasureItem(*this, ODT_COMBOBOX, static_cast<UINT>(index), row.data,
                                     {widget()->width(), widget()->fontMetrics().height()})
                         .height;
        if (!isAlive()) return CB_ERR;
        index = std::min(index, m_rows.count());
    }
    // The toolkit chooses a first row by itself; nobody asked for that.
    const int shown = shownRow();
    const QString text = line() ? line()->text() : QString();
    if (m_chosen >= index) ++m_chosen;
    m_rows.insert(index, std::move(row));
    if (shown < 0 && shownRow() >= 0) {
        showRow(-1);
        if (line()) line()->setWholeText(text);
    }
    return index;
}

LRESULT ComboBox::remove(int index)
{
    if (isOwnerDrawn()) sendDeleteItem(*this, ODT_COMBOBOX, static_cast<UINT>(index), m_rows.at(index).data);
    if (!isAlive() || index >= m_rows.count()) return CB_ERR;
    const bool wasChosen = m_chosen == index;
    const QString text = line() ? line()->text() : QString();
    m_rows.remove(index);
    if (m_chosen > index) --m_chosen;
    if (wasChosen) m_chosen = -1;
    showRow(m_chosen);
    if (line() && !wasChosen) line()->setWholeText(text);
    return m_rows.count();
}

void ComboBox::forgetItems()
{
    for (int row = 0; isOwnerDrawn() && isAlive() && row < m_rows.count(); ++row)
        sendDeleteItem(*this, ODT_COMBOBOX, static_cast<UINT>(row), m_rows.at(row).data);
}

LRESULT ComboBox::textOf(WPARAM index, LPARAM buffer) const
{
    if (!m_rows.has(index) || !buffer) return CB_ERR;
    const Row& row = m_rows.at(static_cast<int>(index));
    if (hasTexts()) return copyOut(row.text, buffer);
    std::memcpy(reinterpret_cast<void*>(buffer), &row.data, sizeof row.data);
    return sizeof row.data;
}

LRESULT ComboBox::find(WPARAM after, LPARAM what, bool wholeText) const
{
    if (!hasTexts())
        return m_rows.find(static_cast<int>(after),
                           [what](const Row& row) { return row.data == static_cast<UINT_PTR>(what); });
    const QString text = textIn(what);
    return m_rows.find(static_cast<int>(after), [&](const Row& row) {
        return wholeText ? compareTexts(row.text, text) == 0 : beginsWith(row.text, text);
    });
}

LRESULT ComboBox::select(int row)
{
    const bool exists = row >= 0 && row < m_rows.count();
    m_chosen = exists ? row : -1;
    showRow(m_chosen);
    return m_chosen;
}

LRESULT ComboBox::setHeight(int index, int height)
{
    if (height < 1 || height > 0x7FFF) return CB_ERR;
    if (index == -1)
        m_fieldHeight = height;
    else if (style() & CBS_OWNERDRAWVARIABLE && m_rows.has(static_cast<WPARAM>(index)))
        m_rows.at(index).height = height;
    else
        m_delegate->rowHeight = height;
    layoutChanged();
    return CB_OKAY;
}

// Its list opens below the field.
class DropCombo final : public ComboBox {
public:
    explicit DropCombo(QWidget* parent) : ComboBox(new DropFace(parent)) {}
    ~DropCombo() override
    {
        if (!face()) return;
        face()->opening = face()->closed = nullptr;
        if (face()->drawField) face()->drawField = [](QPainter&, const QRect&) {};
    }
    void begin(const CREATESTRUCTA& create) override;

protected:
    LineFace* line() const override { return static_cast<LineFace*>(face()->lineEdit()); }
    QAbstractItemView* list() const override { return face()->view(); }
    int shownRow() const override { return face()->currentIndex(); }
    void showRow(int row) override { face()->setCurrentIndex(row); }
    void open(bool opens) override { opens ? face()->showPopup() : face()->hidePopup(); }
    bool isOpen() const override { return face()->view()->isVisible(); }
    void layoutChanged() override;
    void fontChanged() override { layoutChanged(); }

private:
    DropFace* face() const { return as<DropFace>(); }
    void closed();
    void drawField(QPainter& painter, const QRect& rect);

    unsigned m_choices = 0;
};

void DropCombo::begin(const CREATESTRUCTA& create)
{
    m_wholeHeight = create.cy;
    if ((style() & CBS_DROPDOWNLIST) == CBS_DROPDOWN) {
        face()->setEditable(true);
        face()->setLineEdit(new LineFace(face()));
        line()->setContextMenuPolicy(Qt::DefaultContextMenu); // the toolkit leaves the menu to the box
        face()->setCompleter(nullptr);
        listenToField();
    }
    m_delegate = new RowDelegate(*this, m_rows, ODT_COMBOBOX, face());
    m_delegate->isOwnerDrawn = isOwnerDrawn();
    face()->setModel(&m_rows);
    face()->setItemDelegate(m_delegate);
    if (isOwnerDrawn())
        face()->drawField = [this](QPainter& painter, const QRect& rect) { drawField(painter, rect); };
    face()->opening = [this] { tell(CBN_DROPDOWN); };
    face()->closed = [this] { closed(); };
    QObject::connect(face(), &QComboBox::activated, life(), [this](int row) {
        ++m_choices;
        chosen(row);
    });
    layoutChanged();
}

void DropCombo::layoutChanged()
{
    const int frame = face()->sizeHint().height() - face()->fontMetrics().height();
    const int field = m_fieldHeight ? m_fieldHeight + frame : face()->sizeHint().height();
    face()->setFixedHeight(field);
    const int row =
        m_delegate && m_delegate->rowHeight ? m_delegate->rowHeight : face()->fontMetrics().height();
    const int rows = (m_wholeHeight - field) / std::max(1, row);
    face()->setMaxVisibleItems(rows < 1 ? rowsOfSmallList : rows);
}

void DropCombo::closed()
{
    // The toolkit closes the list first and tells of a choice then.
    const unsigned choices = m_choices;
    if (!tell(CBN_CLOSEUP)) return;
    QMetaObject::invokeMethod(
        const_cast<QObject*>(life()),
        [this, choices] {
            if (m_choices == choices) tell(CBN_SELENDCANCEL);
        },
        Qt::QueuedConnection);
}

void DropCombo::drawField(QPainter& painter, const QRect& rect)
{
    DRAWITEMSTRUCT parts{};
    parts.CtlType = ODT_COMBOBOX;
    parts.itemID = static_cast<UINT>(m_chosen);
    parts.itemAction = ODA_DRAWENTIRE;
    parts.itemState = ODS_COMBOBOXEDIT;
    if (face()->hasFocus()) parts.itemState |= ODS_FOCUS | ODS_SELECTED;
    if (!face()->isEnabled()) parts.itemState |= ODS_DISABLED;
    if (m_chosen >= 0 && m_chosen < m_rows.count()) parts.itemData = m_rows.at(m_chosen).data;
    sendDrawItem(*this, painter, rect, parts);
}

// Its list is always open.
class SimpleCombo final : public ComboBox {
public:
    explicit SimpleCombo(QWidget* parent) : ComboBox(new SimpleFace(parent)) {}
    void begin(const CREATESTRUCTA& create) override;

protected:
    LineFace* line() const override { return &face()->line(); }
    QAbstractItemView* list() const override { return &face()->list(); }
    int shownRow() const override { return list()->currentIndex().row(); }
    void showRow(int row) override;
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    SimpleFace* face() const { return as<SimpleFace>(); }
    bool m_showing = false;
};

void SimpleCombo::begin(const CREATESTRUCTA& create)
{
    m_wholeHeight = create.cy;
    m_delegate = new RowDelegate(*this, m_rows, ODT_COMBOBOX, face());
    m_delegate->isOwnerDrawn = isOwnerDrawn();
    list()->setModel(&m_rows);
    list()->setItemDelegate(m_delegate);
    listenToField();
    QObject::connect(list()->selectionModel(), &QItemSelectionModel::currentChanged, life(),
                     [this](const QModelIndex& row) {
                         if (m_showing || !row.isValid()) return;
                         line()->setWholeText(m_rows.at(row.row()).text);
                         line()->selectAll();
                         chosen(row.row());
                     });
    QObject::connect(list(), &QAbstractItemView::doubleClicked, life(), [this] { tell(CBN_DBLCLK); });
}

void SimpleCombo::showRow(int row)
{
    m_showing = true;
    if (row < 0)
        list()->selectionModel()->clear();
    else
        list()->selectionModel()->setCurrentIndex(m_rows.index(row), QItemSelectionModel::ClearAndSelect);
    m_showing = false;
    line()->setWholeText(row < 0 ? QString() : m_rows.at(row).text);
}

LRESULT SimpleCombo::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool moves = message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN) && m_rows.count() > 0;
    if (!moves || !line()->hasFocus()) return ComboBox::input(message, wParam, lParam);
    const int to = std::clamp(shownRow() + (wParam == VK_UP ? -1 : 1), 0, m_rows.count() - 1);
    list()->setCurrentIndex(m_rows.index(to));
    return 0;
}

} // namespace

std::unique_ptr<Window> makeComboBox(const CREATESTRUCTA& create, QWidget* parent)
{
    if ((static_cast<DWORD>(create.style) & CBS_DROPDOWNLIST) == CBS_SIMPLE)
        return std::make_unique<SimpleCombo>(parent);
    return std::make_unique<DropCombo>(parent);
}

} // namespace corekit::detail
