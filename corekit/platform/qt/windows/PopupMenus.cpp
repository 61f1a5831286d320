#include "corekit/platform/PopupMenus.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/windows/BareWindow.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowState.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace corekit::detail {
namespace {

QString textOf(HMENU menu, int position)
{
    const UINT place = static_cast<UINT>(position);
    std::string text(static_cast<std::size_t>(GetMenuStringA(menu, place, nullptr, 0, MF_BYPOSITION)) + 1,
                     '\0');
    GetMenuStringA(menu, place, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    return fromNarrow(text.c_str());
}

// What becomes of a choice.
struct Choice {
    HWND window = nullptr;
    bool isReturned = false;
    UINT chosen = 0;
};

class ShownMenu final : public QMenu {
public:
    // Filled each time it opens; `index` is its place in the menu above.
    ShownMenu(HMENU menu, int index, std::shared_ptr<Choice> choice, QWidget* parent)
        : QMenu(parent), m_menu(menu), m_choice(std::move(choice))
    {
        connect(this, &QMenu::aboutToShow, this, [this, index] { fill(index); });
        connect(this, &QMenu::aboutToHide, this, [this] {
            SendMessageA(m_choice->window, WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(m_menu), 0);
            const bool isInner = qobject_cast<QMenu*>(parentWidget()) != nullptr;
            if (!isInner)
                SendMessageA(m_choice->window, WM_MENUSELECT, MAKELONG(0, 0xFFFF), 0); // all is closed
        });
    }

private:
    void fill(int index)
    {
        const QPointer<ShownMenu> self = this;
        const HMENU outermost = qobject_cast<QMenuBar*>(parentWidget()) ? GetMenu(m_choice->window) : m_menu;
        if (!qobject_cast<QMenu*>(parentWidget()))
            SendMessageA(m_choice->window, WM_INITMENU, reinterpret_cast<WPARAM>(outermost), 0);
        if (!self) return;
        SendMessageA(m_choice->window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(m_menu), index);
        if (!self) return;
        clear();
        const int count = GetMenuItemCount(m_menu);
        for (int i = 0; i < count; ++i) add(i);
    }

    void add(int position)
    {
        const UINT place = static_cast<UINT>(position);
        const UINT state = GetMenuState(m_menu, place, MF_BYPOSITION);
        const HMENU opens = GetSubMenu(m_menu, position);
        if (!opens && state & MF_SEPARATOR) {
            addSeparator();
            return;
        }
        QAction* const action = addAction(textOf(m_menu, position));
        action->setEnabled(!(state & (MF_GRAYED | MF_DISABLED)));
        if (opens) {
            action->setMenu(new ShownMenu(opens, position, m_choice, this));
            return;
        }
        action->setCheckable(state & MF_CHECKED);
        action->setChecked(state & MF_CHECKED);
        const UINT id = GetMenuItemID(m_menu, position);
        connect(action, &QAction::hovered, this, [this, id] {
            SendMessageA(m_choice->window, WM_MENUSELECT, MAKELONG(static_cast<WORD>(id), 0),
                         reinterpret_cast<LPARAM>(m_menu));
        });
        connect(action, &QAction::triggered, this, [choice = m_choice, menu = m_menu, id] {
            constexpr UINT gone = 0xFFFFFFFF; // since it was shown
            if (GetMenuState(menu, id, MF_BYCOMMAND) == gone) return;
            choice->chosen = id;
            if (!choice->isReturned) PostMessageA(choice->window, WM_COMMAND, LOWORD(id), 0);
        });
    }

    HMENU m_menu;
    std::shared_ptr<Choice> m_choice;
};

// The menus of windows that have a bar.
std::unordered_map<HWND, HMENU>& barMenus()
{
    static auto* const menus = new std::unordered_map<HWND, HMENU>;
    return *menus;
}

void fillBar(QMenuBar& bar, HMENU menu, HWND window)
{
    bar.clear();
    const auto choice = std::make_shared<Choice>(Choice{window});
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        QAction* const action = bar.addAction(textOf(menu, i));
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        action->setEnabled(!(state & (MF_GRAYED | MF_DISABLED)));
        if (const HMENU opens = GetSubMenu(menu, i)) {
            action->setMenu(new ShownMenu(opens, i, choice, &bar));
            continue;
        }
        const UINT id = GetMenuItemID(menu, i);
        QObject::connect(action, &QAction::triggered, &bar,
                         [window, id] { PostMessageA(window, WM_COMMAND, LOWORD(id), 0); });
    }
}

BareWindow* bareWindow(HWND handle)
{
    Window* const window = requireWindow(handle);
    return window && !window->paintsItself() ? static_cast<BareWindow*>(window) : nullptr;
}

} // namespace

void forgetMenu(HWND window)
{
    const auto found = barMenus().find(window);
    if (found == barMenus().end()) return;
    const HMENU menu = found->second;
    barMenus().erase(found);
    DestroyMenu(menu);
}

void openMenuByLetter(const Window& window, WCHAR letter)
{
    const HWND top = GetAncestor(window.handle(), GA_ROOT);
    if (!barMenus().contains(top)) return;
    BareWindow* const bare = bareWindow(top);
    QMenuBar* const bar = bare ? bare->menuBar() : nullptr;
    if (!bar) return;
    for (QAction* const action : bar->actions()) {
        const QString text = action->text();
        const auto mark = text.indexOf(QLatin1Char('&'));
        if (mark < 0 || mark + 1 >= text.size() || text[mark + 1].toUpper() != QChar(letter).toUpper())
            continue;
        if (action->menu())
            bar->setActiveAction(action);
        else
            action->trigger();
        return;
    }
}

} // namespace corekit::detail

using namespace corekit::detail;

BOOL SetMenu(HWND handle, HMENU menu)
{
    BareWindow* const window = bareWindow(handle);
    if (!window || window->isChild() || !window->widget()) return FALSE;
    if (menu && GetMenuItemCount(menu) < 0) return FALSE;
    if (!menu) {
        barMenus().erase(handle);
        window->setMenuBar(nullptr);
        return TRUE;
    }
    barMenus()[handle] = menu;
    auto* const bar = new QMenuBar(window->widget());
    bar->setNativeMenuBar(false);
    fillBar(*bar, menu, handle);
    window->setMenuBar(bar);
    return TRUE;
}

HMENU GetMenu(HWND handle)
{
    const auto found = barMenus().find(handle);
    return found == barMenus().end() ? nullptr : found->second;
}

int TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND handle, const RECT*)
{
    const Window* const window = requireWindow(handle);
    if (!window || !window->widget() || GetMenuItemCount(menu) < 0) return 0;
    const auto choice = std::make_shared<Choice>(Choice{handle, (flags & TPM_RETURNCMD) != 0});
    if (GetCapture()) ReleaseCapture();
    const QPointer<ShownMenu> shown = new ShownMenu(menu, 0, choice, window->widget());
    SendMessageA(handle, WM_ENTERMENULOOP, TRUE, 0);
    if (shown) {
        QPoint place(x, y);
        const QSize size = shown->sizeHint();
        if (flags & TPM_RIGHTALIGN) place.rx() -= size.width();
        if (flags & TPM_CENTERALIGN) place.rx() -= size.width() / 2;
        if (flags & TPM_BOTTOMALIGN) place.ry() -= size.height();
        shown->exec(place);
    }
    if (shown) shown->deleteLater();
    if (IsWindow(handle)) SendMessageA(handle, WM_EXITMENULOOP, TRUE, 0);
    return choice->isReturned ? static_cast<int>(choice->chosen) : 1;
}
