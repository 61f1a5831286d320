// What every dialog does by itself.
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/dialogs/DialogState.h"
#include "corekit/platform/qt/windows/Window.h"

#include <QGuiApplication>
#include <QWindow>

using namespace corekit::detail;

namespace {

constexpr int cancelId = 2;

// Messages to which a dialog's procedure gives the answer itself.
constexpr bool isAnsweredDirectly(UINT message)
{
    return (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) || message == WM_COMPAREITEM ||
           message == WM_INITDIALOG;
}

bool isInDialog(HWND dialog, HWND control)
{
    return control && IsChild(dialog, control) && IsWindowVisible(control) && IsWindowEnabled(control);
}

void keepFocus(HWND dialog)
{
    DialogState* const state = findDialog(dialog);
    const HWND focus = GetFocus();
    if (state && focus && IsChild(dialog, focus)) state->focus = focus;
}

void restoreFocus(HWND dialog)
{
    const DialogState* const state = findDialog(dialog);
    if (!state || isInDialog(dialog, GetFocus())) return;
    const HWND focus =
        isInDialog(dialog, state->focus) ? state->focus : GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (focus) focusControl(dialog, focus);
}

void cancel(HWND dialog)
{
    const HWND button = GetDlgItem(dialog, cancelId);
    if (button && !IsWindowEnabled(button)) return;
    SendMessageA(dialog, WM_COMMAND, MAKELONG(cancelId, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

// wParam is a control, or which way to go.
void nextControl(HWND dialog, WPARAM wParam, bool isControl)
{
    const HWND control = isControl ? reinterpret_cast<HWND>(wParam)
                                   : GetNextDlgTabItem(dialog, GetFocus(), static_cast<BOOL>(wParam));
    if (control) focusControl(dialog, control);
}

// A frame that is not for resizing keeps the size that the program gives.
void fixSize(HWND dialog)
{
    const Window* const window = Window::find(dialog);
    if (!window || window->isChild() || window->style() & WS_THICKFRAME || !window->widget()) return;
    QWindow* const shown = window->widget()->windowHandle();
    if (!shown || QGuiApplication::platformName() == QLatin1String("offscreen")) return;
    shown->setMinimumSize(window->widget()->size());
    shown->setMaximumSize(window->widget()->size());
}

LRESULT defaultId(HWND dialog)
{
    const DialogState* const state = findDialog(dialog);
    return state && state->defaultId ? static_cast<LRESULT>(MAKELONG(state->defaultId, DC_HASDEFID)) : 0;
}

LRESULT ownWork(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_ACTIVATE:
        LOWORD(wParam) == WA_INACTIVE ? keepFocus(dialog) : restoreFocus(dialog);
        return 0;
    case WM_SETFOCUS:
        restoreFocus(dialog);
        return 0;
    case WM_SHOWWINDOW:
        if (!wParam) keepFocus(dialog);
        fixSize(dialog);
        break;
    case WM_SIZE:
        fixSize(dialog);
        break;
    case WM_CLOSE:
        cancel(dialog);
        return 0;
    case WM_NEXTDLGCTL:
        nextControl(dialog, wParam, LOWORD(static_cast<DWORD_PTR>(lParam)) != 0);
        return 0;
    case DM_GETDEFID:
        return defaultId(dialog);
    case DM_SETDEFID:
        addDialog(dialog).defaultId = LOWORD(wParam);
        showDefault(dialog);
        return TRUE;
    case WM_NCDESTROY:
        removeDialog(dialog);
        break;
    default:
        break;
    }
    return DefWindowProcA(dialog, message, wParam, lParam);
}

} // namespace

LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 0);
    if (const LONG_PTR word = GetWindowLongPtrA(dialog, DWLP_DLGPROC)) {
        const INT_PTR taken = reinterpret_cast<DLGPROC>(word)(dialog, message, wParam, lParam);
        if (!IsWindow(dialog)) return 0;
        if (taken) {
            if (message == WM_NCDESTROY) removeDialog(dialog);
            return isAnsweredDirectly(message) ? taken : GetWindowLongPtrA(dialog, DWLP_MSGRESULT);
        }
    }
    return ownWork(dialog, message, wParam, lParam);
}
