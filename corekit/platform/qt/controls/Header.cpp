#include "corekit/platform/qt/controls/Header.h"

#include "corekit/platform/Headers.h"
#include "corekit/platform/qt/controls/ImageListObject.h"
#include "corekit/platform/qt/controls/Make.h"

#include <QHeaderView>

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int dividerReach = 3; // pixels at either side

struct Adopted {
    QHeaderView* view = nullptr;
    ListModel* columns = nullptr;
};
constinit Adopted adopted; // by the window that is being made

class Header final : public Control {
public:
    Header(QHeaderView* view, ListModel& model) : Control(view), m_model(model)
    {
        const auto tellOf = [this](UINT code) {
            return [this, code](int column) { tellColumn(code, column); };
        };
        QObject::connect(view, &QHeaderView::sectionClicked, life(), tellOf(HDN_ITEMCLICK));
        QObject::connect(view, &QHeaderView::sectionDoubleClicked, life(), tellOf(HDN_ITEMDBLCLICK));
        QObject::connect(view, &QHeaderView::sectionHandleDoubleClicked, life(), tellOf(HDN_DIVIDERDBLCLICK));
        QObject::connect(view, &QHeaderView::sectionResized, life(), [this](int column) {
            if (m_program == 0) m_tracked = column;
            tellColumn(HDN_ITEMCHANGED, column);
        });
        QObject::connect(view, &QHeaderView::sectionMoved, life(),
                         [this](int column) { tellColumn(HDN_ENDDRAG, column); });
        m_model.headerIcon = [this](int column) -> QVariant {
            const QIcon icon = iconFrom(m_images, m_model.columnAt(column).image);
            return icon.isNull() ? QVariant() : QVariant(icon);
        };
    }
    ~Header() override
    {
        if (face()) m_model.headerIcon = nullptr;
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    QHeaderView* face() const { return as<QHeaderView>(); }
    void tellColumn(UINT code, int column)
    {
        if (m_program > 0 && code != HDN_ITEMCHANGED) return;
        HDITEMA item{};
        item.mask = HDI_WIDTH | HDI_ORDER;
        item.cxy = face()->sectionSize(column);
        item.iOrder = face()->visualIndex(column);
        NMHEADERA told{{}, column, 0, &item};
        notifyParent(told.hdr, code);
    }
    template <typename Char>
    LRESULT insert(int column, const HeaderItem<Char>* item);
    template <typename Char>
    LRESULT set(int column, const HeaderItem<Char>* item);
    template <typename Char>
    LRESULT get(int column, HeaderItem<Char>* item) const;
    LRESULT hitTest(HDHITTESTINFO& info) const;
    LRESULT places(UINT message, WPARAM wParam, LPARAM lParam);

    ListModel& m_model;
    HIMAGELIST m_images = nullptr;
    int m_program = 0;
    int m_tracked = -1; // the column whose divider the user moves
};

LRESULT Header::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    const int column = static_cast<int>(wParam);
    if (message < HDM_GETITEMCOUNT || message > HDM_SETORDERARRAY)
        return Control::defaultProcedure(message, wParam, lParam);
    const ByProgram quiet(m_program);
    switch (message) {
    case HDM_GETITEMCOUNT:
        return m_model.columns();
    case HDM_INSERTITEMA:
        return insert(column, reinterpret_cast<const HDITEMA*>(lParam));
    case HDM_INSERTITEMW:
        return insert(column, reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_SETITEMA:
        return set(column, reinterpret_cast<const HDITEMA*>(lParam));
    case HDM_SETITEMW:
        return set(column, reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_GETITEMA:
        return get(column, reinterpret_cast<HDITEMA*>(lParam));
    case HDM_GETITEMW:
        return get(column, reinterpret_cast<HDITEMW*>(lParam));
    case HDM_DELETEITEM:
        if (!m_model.hasColumn(column)) return 0;
        m_model.deleteColumn(column);
        return 1;
    default:
        return places(message, wParam, lParam);
    }
}

LRESULT Header::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto self = share(handle());
    if (message == WM_LBUTTONDOWN) m_tracked = -1;
    const LRESULT answer = Control::input(message, wParam, lParam);
    if (message != WM_LBUTTONUP || !isAlive() || !face()) return answer;
    if (const int column = std::exchange(m_tracked, -1); m_model.hasColumn(column))
        tellColumn(HDN_ENDTRACK, column);
    return answer;
}

LRESULT Header::places(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int column = static_cast<int>(wParam);
    switch (message) {
    case HDM_HITTEST:
        return lParam ? hitTest(*reinterpret_cast<HDHITTESTINFO*>(lParam)) : -1;
    case HDM_GETITEMRECT:
        if (!m_model.hasColumn(column) || !lParam) return 0;
        *reinterpret_cast<RECT*>(lParam) = documentedRect(
            {face()->sectionViewportPosition(column), 0, face()->sectionSize(column), face()->height()});
        return 1;
    case HDM_SETIMAGELIST:
        return reinterpret_cast<LRESULT>(std::exchange(m_images, reinterpret_cast<HIMAGELIST>(lParam)));
    case HDM_GETIMAGELIST:
        return reinterpret_cast<LRESULT>(m_images);
    case HDM_ORDERTOINDEX:
        return face()->logicalIndex(column);
    case HDM_GETORDERARRAY:
    case HDM_SETORDERARRAY: {
        auto* const columns = reinterpret_cast<int*>(lParam);
        if (!columns || wParam != static_cast<WPARAM>(m_model.columns())) return 0;
        return message == HDM_SETORDERARRAY ? setHeaderOrder(*face(), columns)
                                            : getHeaderOrder(*face(), columns);
    }
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

template <typename Char>
LRESULT Header::insert(int column, const HeaderItem<Char>* item)
{
    if (!item || column < 0) return -1;
    column = std::min(column, m_model.columns());
    m_model.insertColumn(column, {});
    set(column, item);
    return column;
}

template <typename Char>
LRESULT Header::set(int column, const HeaderItem<Char>* item)
{
    if (!item || !m_model.hasColumn(column)) return 0;
    ListColumn& kept = m_model.columnAt(column);
    if (item->mask & HDI_TEXT) kept.text = textFrom(item->pszText);
    if (item->mask & HDI_LPARAM) kept.data = item->lParam;
    if (item->mask & HDI_IMAGE) kept.image = item->iImage;
    if (item->mask & HDI_WIDTH) face()->resizeSection(column, std::max(0, item->cxy));
    if (item->mask & HDI_ORDER && m_model.hasColumn(item->iOrder))
        face()->moveSection(face()->visualIndex(column), item->iOrder);
    if (item->mask & HDI_FORMAT) {
        const bool sorts = item->fmt & (HDF_SORTUP | HDF_SORTDOWN);
        const bool didSort = kept.format & (HDF_SORTUP | HDF_SORTDOWN);
        kept.format = item->fmt;
        if (sorts || didSort) face()->setSortIndicatorShown(sorts);
        if (sorts)
            face()->setSortIndicator(column,
                                     item->fmt & HDF_SORTUP ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    m_model.columnChanged(column);
    return 1;
}

template <typename Char>
LRESULT Header::get(int column, HeaderItem<Char>* item) const
{
    if (!item || !m_model.hasColumn(column)) return 0;
    const ListColumn& kept = m_model.columnAt(column);
    if (item->mask & HDI_TEXT) copyText(kept.text, item->pszText, item->cchTextMax);
    if (item->mask & HDI_LPARAM) item->lParam = kept.data;
    if (item->mask & HDI_IMAGE) item->iImage = kept.image;
    if (item->mask & HDI_FORMAT) item->fmt = kept.format | HDF_STRING;
    if (item->mask & HDI_WIDTH) item->cxy = face()->sectionSize(column);
    if (item->mask & HDI_ORDER) item->iOrder = face()->visualIndex(column);
    return 1;
}

LRESULT Header::hitTest(HDHITTESTINFO& info) const
{
    info.iItem = -1;
    info.flags = HHT_NOWHERE;
    if (!face()->rect().contains(info.pt.x, info.pt.y)) return -1;
    const int column = face()->logicalIndexAt(info.pt.x);
    if (column < 0) return -1;
    const int left = face()->sectionViewportPosition(column), right = left + face()->sectionSize(column);
    info.iItem = column;
    info.flags = info.pt.x >= right - dividerReach ? HHT_ONDIVIDER : HHT_ONHEADER;
    if (info.pt.x < left + dividerReach && face()->visualIndex(column) > 0) {
        info.iItem = face()->logicalIndex(face()->visualIndex(column) - 1);
        info.flags = HHT_ONDIVIDER;
    }
    return info.iItem;
}

} // namespace

HWND adoptHeader(HWND list, QHeaderView& header, ListModel& columns)
{
    adopted = {&header, &columns};
    const QRect place = header.geometry();
    const HWND window = CreateWindowExA(WS_EX_NOPARENTNOTIFY, WC_HEADERA, "", WS_CHILD, place.x(), place.y(),
                                        place.width(), place.height(), list, nullptr, nullptr, nullptr);
    adopted = {};
    header.setGeometry(place);
    header.raise();
    return window;
}

bool setHeaderOrder(QHeaderView& header, const int* columns)
{
    const int count = header.count();
    std::vector<bool> seen(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        if (columns[i] < 0 || columns[i] >= count || seen[static_cast<std::size_t>(columns[i])]) return false;
        seen[static_cast<std::size_t>(columns[i])] = true;
    }
    for (int i = 0; i < count; ++i) header.moveSection(header.visualIndex(columns[i]), i);
    return true;
}

bool getHeaderOrder(const QHeaderView& header, int* columns)
{
    for (int i = 0; i < header.count(); ++i) columns[i] = header.logicalIndex(i);
    return true;
}

std::unique_ptr<Window> makeHeader(const CREATESTRUCTA& create, QWidget* parent)
{
    if (const Adopted mine = std::exchange(adopted, {}); mine.view)
        return std::make_unique<Header>(mine.view, *mine.columns);
    auto* const view = new QHeaderView(Qt::Horizontal, parent);
    auto* const model = new ListModel(view);
    view->setModel(model);
    view->setMinimumSectionSize(0);
    view->setSectionsClickable(static_cast<DWORD>(create.style) & HDS_BUTTONS);
    view->setSectionsMovable(static_cast<DWORD>(create.style) & HDS_DRAGDROP);
    return std::make_unique<Header>(view, *model);
}

} // namespace corekit::detail
