// Dialogs that must be answered before their owner goes on.
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/dialogs/DialogState.h"
#include "corekit/platform/qt/dialogs/OwnerHeld.h"
#include "corekit/platform/Toolkit.h"

#include <QEventLoop>

#include <utility>

using namespace corekit::detail;

namespace {

constexpr INT_PTR cancelled = 2;

void closeUnseen(HWND dialog, const DialogState& state)
{
    if (!state.ended && IsWindow(dialog)) SendMessageA(dialog, WM_CLOSE, 0, 0);
}

void waitForEnd(HWND dialog, DialogState& state)
{
    QEventLoop loop;
    state.loop = &loop;
    ShowWindow(dialog, SW_SHOW);
    if (IsWindow(dialog)) SetActiveWindow(dialog);
    if (!state.ended && IsWindow(dialog)) loop.exec();
    state.loop = nullptr;
}

} // namespace

INT_PTR corekit::detail::runModalDialog(HWND dialog)
{
    const std::shared_ptr<DialogState> state = shareDialog(dialog);
    if (!state) return -1;
    const HWND owner = GetWindow(dialog, GW_OWNER);
    {
        const OwnerHeld held(owner);
        if (!ToolkitHasDisplay())
            closeUnseen(dialog, *state);
        else if (!state->ended)
            waitForEnd(dialog, *state);
    }
    if (IsWindow(dialog)) ShowWindow(dialog, SW_HIDE);
    if (IsWindow(owner) && IsWindowVisible(owner)) SetActiveWindow(owner);
    return state->ended ? state->result : cancelled;
}

BOOL EndDialog(HWND dialog, INT_PTR result)
{
    DialogState* const state = findDialog(dialog);
    if (!state) return FALSE;
    state->ended = true;
    state->result = result;
    if (state->loop) state->loop->quit();
    return TRUE;
}
