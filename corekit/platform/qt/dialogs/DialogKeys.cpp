// The keys of dialogs: Tab, arrows, Enter, Escape, underlined letters.
#include "corekit/platform/Buttons.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/dialogs/DialogState.h"
#include "corekit/platform/qt/windows/Window.h"
#include "corekit/platform/Runtime.h"

#include <QChar>

#include <algorithm>
#include <vector>

namespace corekit::detail {

namespace {

constexpr int okId = 1, cancelId = 2;

bool isOpenTo(HWND control) { return IsWindowVisible(control) && IsWindowEnabled(control); }

// A dialog may be asked while it is still hidden, so what counts is the control's own state.
bool canHaveFocus(HWND control)
{
    const DWORD style = static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE));
    return style & WS_VISIBLE && !(style & WS_DISABLED);
}

// All controls in order, those of pages within in their page's place.
void collect(HWND parent, std::vector<HWND>& controls)
{
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!(GetWindowLongPtrA(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT))
            controls.push_back(child);
        else if (canHaveFocus(child))
            collect(child, controls);
    }
}

std::vector<HWND> controlsOf(HWND dialog)
{
    std::vector<HWND> controls;
    collect(dialog, controls);
    return controls;
}

// Where the control, or the one that it is a part of, stands; the end if nowhere.
std::size_t indexOf(const std::vector<HWND>& controls, HWND control)
{
    return static_cast<std::size_t>(
        std::ranges::find_if(controls, [control](HWND c) { return c == control || IsChild(c, control); }) -
        controls.begin());
}

// The first from there, round the end, that fits; null if none does.
template <class Fits>
HWND search(const std::vector<HWND>& controls, std::size_t from, bool backwards, Fits fits)
{
    const std::size_t count = controls.size();
    const std::size_t start = from < count ? from : backwards ? 0 : count - 1;
    for (std::size_t k = 1; k <= count; ++k) {
        const std::size_t at = backwards ? (start + count - k) % count : (start + k) % count;
        if (fits(controls[at])) return controls[at];
    }
    return nullptr;
}

bool isButton(UINT code) { return code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON); }

void command(HWND dialog, int id)
{
    const HWND button = GetDlgItem(dialog, id);
    if (button && !IsWindowEnabled(button)) return;
    SendMessageA(dialog, WM_COMMAND, MAKELONG(static_cast<WORD>(id), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
}

void pressDefault(HWND dialog)
{
    const HWND button = currentDefault(dialog);
    if (!button)
        command(dialog, okId);
    else if (isOpenTo(button))
        SendMessageA(GetParent(button), WM_COMMAND,
                     MAKELONG(static_cast<WORD>(GetDlgCtrlID(button)), BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
}

void goInGroup(HWND dialog, HWND focus, bool backwards)
{
    HWND next = GetNextDlgGroupItem(dialog, focus, backwards);
    for (int k = 0; next && next != focus && dialogCode(next) & DLGC_STATIC && k < 1000; ++k)
        next = GetNextDlgGroupItem(dialog, next, backwards);
    if (!next || next == focus) return;
    focusControl(dialog, next);
    if (IsWindow(next) && dialogCode(next) & DLGC_RADIOBUTTON &&
        (GetWindowLongPtrA(next, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON &&
        SendMessageA(next, BM_GETCHECK, 0, 0) != BST_CHECKED)
        SendMessageA(next, BM_CLICK, 0, 0);
}

bool isEdit(HWND control)
{
    char name[16];
    GetClassNameA(control, name, sizeof name);
    return _stricmp(name, WC_EDITA) == 0;
}

// Whether the key is the dialog's.
bool takeKey(HWND dialog, const MSG& message)
{
    const HWND focus = message.hwnd;
    const UINT code = dialogCode(focus, &message);
    const bool wantsAll = code & DLGC_WANTALLKEYS, held = GetKeyState(VK_CONTROL) < 0;
    switch (message.wParam) {
    case VK_TAB:
        if (wantsAll || held || code & DLGC_WANTTAB) return false;
        SendMessageA(dialog, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0, 0);
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (wantsAll || held || code & DLGC_WANTARROWS) return false;
        goInGroup(dialog, focus, message.wParam == VK_LEFT || message.wParam == VK_UP);
        return true;
    case VK_ESCAPE:
        if (wantsAll && !isEdit(focus)) return false;
        command(dialog, cancelId);
        return true;
    case VK_RETURN:
        if (wantsAll) return false;
        pressDefault(dialog);
        return true;
    default:
        return false;
    }
}

// The letter behind a single &, 0 if there is none.
QChar letterOf(HWND control)
{
    WCHAR buffer[256];
    const int length = GetWindowTextW(control, buffer, 256);
    for (int k = 0; k + 1 < length; ++k) {
        if (buffer[k] != u'&') continue;
        if (buffer[k + 1] != u'&') return QChar(buffer[k + 1]).toLower();
        ++k;
    }
    return {};
}

// Whether a control has the letter, and has been gone to or pressed.
bool takeLetter(HWND dialog, HWND focus, QChar letter)
{
    const std::vector<HWND> controls = controlsOf(dialog);
    const HWND found = search(controls, indexOf(controls, focus), false, [&](HWND control) {
        return isOpenTo(control) && !(dialogCode(control) & DLGC_WANTCHARS) && letterOf(control) == letter;
    });
    if (!found) return false;
    const UINT code = dialogCode(found);
    const bool isLabel = code & DLGC_STATIC || !(code & (DLGC_BUTTON | DLGC_RADIOBUTTON) || isButton(code));
    const HWND goal = isLabel ? GetNextDlgTabItem(dialog, found, FALSE) : found;
    if (goal) focusControl(dialog, goal);
    if (!isLabel && IsWindow(found)) SendMessageA(found, BM_CLICK, 0, 0);
    return true;
}

bool takeCharacter(HWND dialog, const MSG& message)
{
    const QChar letter = QChar(static_cast<char16_t>(LOWORD(message.wParam))).toLower();
    if (!letter.isPrint() || letter.isSpace()) return false;
    if (message.message == WM_CHAR &&
        dialogCode(message.hwnd, &message) & (DLGC_WANTCHARS | DLGC_WANTALLKEYS | DLGC_HASSETSEL))
        return false;
    return takeLetter(dialog, message.hwnd, letter);
}

} // namespace

UINT dialogCode(HWND control, const MSG* message)
{
    return static_cast<UINT>(SendMessageA(control, WM_GETDLGCODE, message ? message->wParam : 0,
                                          reinterpret_cast<LPARAM>(message)));
}

void focusControl(HWND dialog, HWND control)
{
    if (DialogState* const state = findDialog(dialog)) state->focus = control;
    SetFocus(control);
    if (IsWindow(control) && dialogCode(control) & DLGC_HASSETSEL) SendMessageA(control, EM_SETSEL, 0, -1);
    showDefault(dialog);
}

HWND currentDefault(HWND dialog)
{
    const HWND focus = GetFocus();
    if (focus && IsChild(dialog, focus) && isButton(dialogCode(focus))) return focus;
    const LRESULT id = SendMessageA(dialog, DM_GETDEFID, 0, 0);
    if (HIWORD(static_cast<DWORD_PTR>(id)) != DC_HASDEFID) return nullptr;
    return GetDlgItem(dialog, LOWORD(static_cast<DWORD_PTR>(id)));
}

void showDefault(HWND dialog)
{
    const HWND now = currentDefault(dialog);
    const std::shared_ptr<DialogState> state = shareDialog(dialog);
    if (!state || state->shownDefault == now) return;
    const auto setKind = [](HWND button, DWORD kind) {
        if (!IsWindow(button) || !isButton(dialogCode(button))) return;
        const DWORD style = static_cast<DWORD>(GetWindowLongPtrA(button, GWL_STYLE)) & 0xFFF0u;
        SendMessageA(button, BM_SETSTYLE, style | kind, TRUE);
    };
    setKind(state->shownDefault, BS_PUSHBUTTON);
    if (state->defaultId && now != GetDlgItem(dialog, state->defaultId))
        setKind(GetDlgItem(dialog, state->defaultId), BS_PUSHBUTTON);
    setKind(now, BS_DEFPUSHBUTTON);
    state->shownDefault = now;
}

} // namespace corekit::detail

using namespace corekit::detail;

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    const std::vector<HWND> controls = controlsOf(dialog);
    if (controls.empty()) return nullptr;
    const std::size_t from = control ? indexOf(controls, control) : controls.size();
    return search(controls, from, previous, [](HWND c) {
        return canHaveFocus(c) && GetWindowLongPtrA(c, GWL_STYLE) & static_cast<LONG_PTR>(WS_TABSTOP);
    });
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous)
{
    const std::vector<HWND> controls = controlsOf(dialog);
    const std::size_t at = control ? indexOf(controls, control) : 0;
    if (at >= controls.size()) return nullptr;
    const auto begins = [](HWND c) {
        return GetWindowLongPtrA(c, GWL_STYLE) & static_cast<LONG_PTR>(WS_GROUP);
    };
    std::size_t first = at, last = at + 1;
    while (first > 0 && !begins(controls[first])) --first;
    while (last < controls.size() && !begins(controls[last])) ++last;
    const std::vector<HWND> group(controls.begin() + static_cast<std::ptrdiff_t>(first),
                                  controls.begin() + static_cast<std::ptrdiff_t>(last));
    return search(group, control ? at - first : group.size(), previous, canHaveFocus);
}

BOOL IsDialogMessageA(HWND dialog, MSG* message)
{
    if (!message || (message->hwnd != dialog && !IsChild(dialog, message->hwnd))) return FALSE;
    switch (message->message) {
    case WM_KEYDOWN:
        return takeKey(dialog, *message);
    case WM_CHAR:
    case WM_SYSCHAR:
        return takeCharacter(dialog, *message);
    default:
        return FALSE;
    }
}
