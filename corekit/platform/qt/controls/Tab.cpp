#include "corekit/platform/Tabs.h"

#include "corekit/platform/qt/controls/ImageListObject.h"
#include "corekit/platform/qt/controls/Make.h"

#include <QMouseEvent>
#include <QPointer>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>
#include <QTabWidget>

#include <functional>

namespace corekit::detail {

namespace {

// The toolkit's row of tabs, which asks before the user changes the tab.
class TabBar final : public QTabBar {
public:
    using QTabBar::QTabBar;
    std::function<bool()> mayChange;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        const int tab = tabAt(event->position().toPoint());
        if (tab < 0 || tab == currentIndex() || ask()) QTabBar::mousePressEvent(event);
    }
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool moves = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
        if (!moves || ask()) QTabBar::keyPressEvent(event);
    }

private:
    bool ask()
    {
        const QPointer<TabBar> self = this;
        return (!mayChange || mayChange()) && self;
    }
};

class TabFace final : public QTabWidget {
public:
    explicit TabFace(QWidget* parent) : QTabWidget(parent)
    {
        setTabBar(new TabBar(this));
        setDocumentMode(false);
        setFocusProxy(tabBar());
    }
    TabBar& bar() const { return *static_cast<TabBar*>(tabBar()); }
    // The frame's inner part.
    QRect pageRect() const
    {
        QStyleOptionTabWidgetFrame option;
        initStyleOption(&option);
        option.rect = rect();
        if (option.tabBarSize.isEmpty()) option.tabBarSize = tabBar()->sizeHint();
        return style()->subElementRect(QStyle::SE_TabWidgetTabContents, &option, this);
    }
};

class Tab final : public Control {
public:
    explicit Tab(QWidget* parent) : Control(new TabFace(parent))
    {
        face()->bar().mayChange = [this] { return mayChange(); };
        QObject::connect(face(), &QTabWidget::currentChanged, life(), [this] {
            if (m_program == 0) tellPlain(TCN_SELCHANGE);
        });
    }
    ~Tab() override
    {
        if (face()) face()->bar().mayChange = nullptr;
    }
    void begin(const CREATESTRUCTA&) override { followStyle(); }
    void styleChanged(DWORD former, DWORD formerEx) override
    {
        Control::styleChanged(former, formerEx);
        followStyle();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT choice(UINT message, WPARAM wParam, LPARAM lParam);

protected:
    UINT dialogCode() const override { return DLGC_WANTARROWS; }
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    TabFace* face() const { return as<TabFace>(); }
    bool has(WPARAM tab) const { return tab < static_cast<WPARAM>(face()->count()); }
    void followStyle();
    bool mayChange();
    template <typename Char>
    LRESULT insert(int place, const TabItem<Char>* item);
    template <typename Char>
    LRESULT set(int tab, const TabItem<Char>* item);
    template <typename Char>
    LRESULT get(int tab, TabItem<Char>* item) const;
    LRESULT places(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT adjust(bool outward, RECT& rect) const;
    QRect tabRect(int tab) const;

    // What the toolkit does not keep for a tab.
    struct Kept {
        QString text;
        int image = -1;
        LPARAM data = 0;
    };
    Kept& keptAt(int tab) { return m_kept[static_cast<std::size_t>(tab)]; }
    const Kept& keptAt(int tab) const { return m_kept[static_cast<std::size_t>(tab)]; }
    void show(int tab);

    std::vector<Kept> m_kept;
    HIMAGELIST m_images = nullptr;
    int m_program = 0;
};

void Tab::followStyle()
{
    if (!face()) return;
    face()->setTabPosition(style() & TCS_VERTICAL ? QTabWidget::West
                           : style() & TCS_BOTTOM ? QTabWidget::South
                                                  : QTabWidget::North);
    face()->setUsesScrollButtons(!(style() & TCS_MULTILINE));
    face()->setElideMode(style() & TCS_MULTILINE ? Qt::ElideRight : Qt::ElideNone);
    if (style() & TCS_FOCUSNEVER) face()->bar().setFocusPolicy(Qt::NoFocus);
}

bool Tab::mayChange()
{
    NMHDR header{};
    LRESULT refused = 0;
    return tell(header, TCN_SELCHANGING, refused) && !refused;
}

LRESULT Tab::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto self = share(handle());
    if (message == WM_KEYDOWN) {
        NMTCKEYDOWN told{};
        told.wVKey = static_cast<WORD>(wParam);
        LRESULT answer = 0;
        if (!tell(told.hdr, TCN_KEYDOWN, answer)) return 0;
    }
    const int program = std::exchange(m_program, 0);
    const LRESULT answer = Control::input(message, wParam, lParam);
    m_program = program;
    if (!isAlive()) return answer;
    if (message == WM_LBUTTONUP) tellPlain(NM_CLICK);
    if (message == WM_RBUTTONUP) tellPlain(NM_RCLICK);
    return answer;
}

LRESULT Tab::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    const ByProgram quiet(m_program);
    const int tab = static_cast<int>(wParam);
    switch (message) {
    case TCM_INSERTITEMA:
        return insert(tab, reinterpret_cast<const TCITEMA*>(lParam));
    case TCM_INSERTITEMW:
        return insert(tab, reinterpret_cast<const TCITEMW*>(lParam));
    case TCM_SETITEMA:
        return set(tab, reinterpret_cast<const TCITEMA*>(lParam));
    case TCM_SETITEMW:
        return set(tab, reinterpret_cast<const TCITEMW*>(lParam));
    case TCM_GETITEMA:
        return get(tab, reinterpret_cast<TCITEMA*>(lParam));
    case TCM_GETITEMW:
        return get(tab, reinterpret_cast<TCITEMW*>(lParam));
    case TCM_GETITEMCOUNT:
        return face()->count();
    case TCM_DELETEITEM:
        if (!has(wParam)) return 0;
        delete face()->widget(tab); // its tab goes with it
        m_kept.erase(m_kept.begin() + tab);
        return 1;
    case TCM_DELETEALLITEMS:
        while (face()->count() > 0) delete face()->widget(face()->count() - 1);
        m_kept.clear();
        return 1;
    default:
        return choice(message, wParam, lParam);
    }
}

LRESULT Tab::choice(UINT message, WPARAM wParam, LPARAM lParam)
{
    const int tab = static_cast<int>(wParam);
    switch (message) {
    case TCM_GETCURSEL:
    case TCM_GETCURFOCUS:
        return face()->currentIndex();
    case TCM_SETCURSEL: {
        const int former = face()->currentIndex();
        if (!has(wParam)) return -1;
        face()->setCurrentIndex(tab);
        return former;
    }
    case TCM_SETCURFOCUS:
        if (!has(wParam) || tab == face()->currentIndex() || !mayChange() || !has(wParam)) return 0;
        face()->setCurrentIndex(tab);
        tellPlain(TCN_SELCHANGE);
        return 0;
    default:
        return places(message, wParam, lParam);
    }
}

LRESULT Tab::places(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TCM_GETITEMRECT:
        if (!has(wParam) || !lParam) return 0;
        *reinterpret_cast<RECT*>(lParam) = documentedRect(tabRect(static_cast<int>(wParam)));
        return 1;
    case TCM_HITTEST: {
        auto* const info = reinterpret_cast<TCHITTESTINFO*>(lParam);
        if (!info) return -1;
        const int tab = face()->bar().tabAt(face()->bar().mapFrom(face(), QPoint(info->pt.x, info->pt.y)));
        info->flags = tab < 0 ? TCHT_NOWHERE : TCHT_ONITEM;
        return tab;
    }
    case TCM_ADJUSTRECT:
        return lParam ? adjust(wParam != 0, *reinterpret_cast<RECT*>(lParam)) : 0;
    case TCM_GETROWCOUNT:
        return face()->count() > 0;
    case TCM_SETIMAGELIST: {
        const HIMAGELIST former = std::exchange(m_images, reinterpret_cast<HIMAGELIST>(lParam));
        if (const QSize size = iconSizeOf(m_images); !size.isEmpty()) face()->setIconSize(size);
        for (int tab = 0; tab < face()->count(); ++tab) show(tab);
        return reinterpret_cast<LRESULT>(former);
    }
    case TCM_GETIMAGELIST:
        return reinterpret_cast<LRESULT>(m_images);
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

QRect Tab::tabRect(int tab) const
{
    const QTabBar& bar = face()->bar();
    return bar.tabRect(tab).translated(bar.mapTo(face(), QPoint()));
}

LRESULT Tab::adjust(bool outward, RECT& rect) const
{
    const QRect page = face()->pageRect(), whole = face()->rect();
    const int way = outward ? -1 : 1;
    rect.left += way * page.left();
    rect.top += way * page.top();
    rect.right -= way * (whole.right() - page.right());
    rect.bottom -= way * (whole.bottom() - page.bottom());
    return 0;
}

void Tab::show(int tab)
{
    face()->setTabText(tab, keptAt(tab).text);
    face()->setTabIcon(tab, iconFrom(m_images, keptAt(tab).image));
    // Mnemonics of tabs would be shortcuts of the toolkit's, past the messages.
    face()->bar().setAccessibleTabName(tab, withoutMnemonic(keptAt(tab).text));
}

template <typename Char>
LRESULT Tab::insert(int place, const TabItem<Char>* item)
{
    if (!item || place < 0) return -1;
    place = std::min(place, face()->count());
    m_kept.insert(m_kept.begin() + place, Kept());
    face()->insertTab(place, new QWidget, QString());
    set(place, item);
    return place;
}

template <typename Char>
LRESULT Tab::set(int tab, const TabItem<Char>* item)
{
    if (!item || tab < 0 || !has(static_cast<WPARAM>(tab))) return 0;
    Kept& kept = keptAt(tab);
    if (item->mask & TCIF_TEXT) kept.text = textFrom(item->pszText);
    if (item->mask & TCIF_IMAGE) kept.image = item->iImage;
    if (item->mask & TCIF_PARAM) kept.data = item->lParam;
    show(tab);
    return 1;
}

template <typename Char>
LRESULT Tab::get(int tab, TabItem<Char>* item) const
{
    if (!item || tab < 0 || !has(static_cast<WPARAM>(tab))) return 0;
    const Kept& kept = keptAt(tab);
    if (item->mask & TCIF_TEXT) copyText(kept.text, item->pszText, item->cchTextMax);
    if (item->mask & TCIF_IMAGE) item->iImage = kept.image;
    if (item->mask & TCIF_PARAM) item->lParam = kept.data;
    return 1;
}

} // namespace

std::unique_ptr<Window> makeTab(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<Tab>(parent);
}

} // namespace corekit::detail
