// From a template to a window with controls.
#include "corekit/platform/Errors.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/dialogs/DialogState.h"
#include "corekit/platform/qt/windows/Window.h"
#include "corekit/platform/SystemColours.h"

#include <QScreen>

using namespace corekit::detail;

namespace {

bool registerDialogs()
{
    static const bool done = [] {
        WNDCLASSA dialogs{};
        dialogs.style = CS_DBLCLKS;
        dialogs.lpfnWndProc = DefDlgProcA;
        dialogs.cbWndExtra = DLGWINDOWEXTRA;
        dialogs.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<LONG_PTR>(COLOR_BTNFACE + 1));
        dialogs.lpszClassName = WC_DIALOG;
        return RegisterClassA(&dialogs) != 0;
    }();
    return done;
}

void setText(HWND window, const char* text)
{
    if (!text || !*text) return;
    const QString wide = QString::fromUtf8(text);
    SetWindowTextW(window, reinterpret_cast<const WCHAR*>(wide.utf16()));
}

// Over the middle of the owner, else of the screen; a template's own place counts from the owner's client.
QPoint placeOf(const DialogTemplate& dialog, HWND owner, QSize size)
{
    if (dialog.style & WS_CHILD) return pixelsOf(dialog.x, dialog.y);
    const bool isPlaced = (dialog.x || dialog.y) && !(dialog.style & DS_CENTER);
    POINT place{0, 0};
    if (isPlaced) {
        const QPoint units = pixelsOf(dialog.x, dialog.y);
        place = {units.x(), units.y()};
        if (owner && !(dialog.style & DS_ABSALIGN)) ClientToScreen(owner, &place);
        return {place.x, place.y};
    }
    RECT around{};
    if (!owner || dialog.style & DS_CENTER || !IsWindowVisible(owner) || !GetWindowRect(owner, &around))
        GetWindowRect(GetDesktopWindow(), &around);
    return {around.left + (around.right - around.left - size.width()) / 2,
            std::max(around.top + (around.bottom - around.top - size.height()) / 2, 0)};
}

HWND createWindow(HINSTANCE instance, const DialogTemplate& dialog, HWND owner)
{
    const bool isChild = dialog.style & WS_CHILD;
    if (owner && !isChild) owner = GetAncestor(owner, GA_ROOT);
    DWORD exStyle = dialog.exStyle;
    if (dialog.style & DS_MODALFRAME) exStyle |= WS_EX_DLGMODALFRAME;
    if (dialog.style & DS_CONTROL) exStyle |= WS_EX_CONTROLPARENT;
    const QPoint client = pixelsOf(dialog.width, dialog.height);
    RECT outside{0, 0, client.x(), client.y()};
    AdjustWindowRectEx(&outside, dialog.style, FALSE, exStyle);
    const QSize size(outside.right - outside.left, outside.bottom - outside.top);
    const QPoint place = placeOf(dialog, owner, size);
    return CreateWindowExA(exStyle, WC_DIALOG, nullptr, dialog.style & ~WS_VISIBLE, place.x(), place.y(),
                           size.width(), size.height(), owner, nullptr, instance, nullptr);
}

bool createItem(HINSTANCE instance, HWND dialog, const DialogItem& item)
{
    const QPoint place = pixelsOf(item.x, item.y), end = pixelsOf(item.x + item.width, item.y + item.height);
    const HWND control =
        CreateWindowExA(item.exStyle | WS_EX_NOPARENTNOTIFY, item.windowClass, nullptr, item.style | WS_CHILD,
                        place.x(), place.y(), end.x() - place.x(), end.y() - place.y(), dialog,
                        reinterpret_cast<HMENU>(static_cast<LONG_PTR>(item.id)), instance, nullptr);
    if (!control) return false;
    setText(control, item.text);
    return IsWindow(dialog);
}

// The button that a template makes the default one; IDOK where none says so.
WORD defaultButton(HWND dialog)
{
    for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        if (dialogCode(control) & DLGC_DEFPUSHBUTTON) return static_cast<WORD>(GetDlgCtrlID(control));
    return 0;
}

// Who got the focus while the dialog was still hidden: the toolkit remembers.
HWND rememberedFocus(HWND dialog)
{
    const Window* const window = Window::find(dialog);
    const QWidget* const focus = window && window->widget() ? window->widget()->focusWidget() : nullptr;
    const Window* const control = focus ? Window::of(focus) : nullptr;
    return control && IsChild(dialog, control->handle()) ? control->handle() : nullptr;
}

bool initialise(HWND dialog, LPARAM parameter)
{
    addDialog(dialog).defaultId = defaultButton(dialog);
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    const LRESULT takesFirst =
        SendMessageA(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), parameter);
    DialogState* const state = findDialog(dialog);
    if (!state) return false;
    const HWND chosen = takesFirst ? nullptr : rememberedFocus(dialog);
    state->focus = chosen ? chosen : GetNextDlgTabItem(dialog, nullptr, FALSE);
    nameControls(dialog);
    mirrorForLanguage(dialog);
    showDefault(dialog);
    return IsWindow(dialog);
}

} // namespace

HWND CreateDialogIndirectParamA(HINSTANCE instance, const DialogTemplate* dialog, HWND owner,
                                DLGPROC procedure, LPARAM parameter)
{
    if (!dialog) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (!registerDialogs()) return nullptr;
    const HWND window = createWindow(instance, *dialog, owner);
    if (!window) return nullptr;
    addDialog(window);
    SetWindowLongPtrA(window, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    setText(window, dialog->caption);
    for (const DialogItem& item : dialog->items) {
        if (createItem(instance, window, item)) continue;
        if (IsWindow(window)) DestroyWindow(window);
        return nullptr;
    }
    if (!initialise(window, parameter)) return nullptr;
    if (dialog->style & WS_VISIBLE && !findDialog(window)->ended) ShowWindow(window, SW_SHOW);
    return IsWindow(window) ? window : nullptr;
}
