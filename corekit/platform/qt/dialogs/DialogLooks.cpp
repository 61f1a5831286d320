// Names for those who do not see a dialog, and the mirror image for those who read from the right.
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Controls.h"
#include "corekit/platform/qt/dialogs/DialogState.h"
#include "corekit/platform/qt/windows/Window.h"
#include "corekit/platform/Runtime.h"

#include <QLocale>

#include <algorithm>

namespace corekit::detail {

namespace {

// Without the marks of underlined letters.
QString plainText(const Window& window)
{
    QString text = window.text();
    for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&', at + 1)) text.remove(at, 1);
    return text.endsWith(u':') ? text.chopped(1) : text;
}

bool isOneOf(const char* name, std::initializer_list<const char*> classes)
{
    return std::ranges::any_of(classes, [name](const char* one) { return _stricmp(name, one) == 0; });
}

std::vector<HWND> childrenOf(HWND dialog)
{
    std::vector<HWND> children;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

} // namespace

void nameControls(HWND dialog)
{
    QString label;
    for (const HWND child : childrenOf(dialog)) {
        const Window* const window = Window::find(child);
        if (!window || !window->widget()) continue;
        char name[32];
        GetClassNameA(child, name, sizeof name);
        const bool isButton = isOneOf(name, {WC_BUTTONA});
        if (isButton || isOneOf(name, {WC_STATICA})) {
            const bool isPush = isButton && (window->style() & BS_TYPEMASK) <= BS_DEFPUSHBUTTON;
            label = isPush ? QString() : plainText(*window);
            continue;
        }
        const bool hasOwnName = !isOneOf(name, {WC_EDITA, WC_COMBOBOXA}) && !window->text().isEmpty();
        const QString called = hasOwnName ? plainText(*window) : label;
        if (!called.isEmpty() && window->widget()->accessibleName().isEmpty())
            window->widget()->setAccessibleName(called);
    }
}

void mirrorForLanguage(HWND dialog)
{
    const Window* const window = Window::find(dialog);
    if (!window || !window->widget()) return;
    const bool byLanguage = QLocale::system().textDirection() == Qt::RightToLeft;
    if (!byLanguage && !(window->exStyle() & WS_EX_LAYOUTRTL)) return;
    window->widget()->setLayoutDirection(Qt::RightToLeft);
    RECT client{};
    GetClientRect(dialog, &client);
    for (const HWND child : childrenOf(dialog)) {
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        const int width = place.right - place.left;
        SetWindowPos(child, nullptr, client.right - place.left - width, place.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        // Boxes that stand behind their text turn with the dialog.
        if (Window* const below = Window::find(child)) below->styleChanged(below->style(), below->exStyle());
    }
}

} // namespace corekit::detail
