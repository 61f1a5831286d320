#include "corekit/platform/qt/dialogs/DialogState.h"

#include "corekit/platform/qt/windows/NeverDestroyed.h"

#include <QEventLoop>

#include <map>

namespace corekit::detail {

namespace {
using Dialogs = std::map<HWND, std::shared_ptr<DialogState>>;

Dialogs& dialogs()
{
    static NeverDestroyed<Dialogs> all;
    return all.get();
}
} // namespace

std::shared_ptr<DialogState> shareDialog(HWND dialog)
{
    const auto found = dialogs().find(dialog);
    return found == dialogs().end() ? nullptr : found->second;
}

DialogState* findDialog(HWND dialog) { return shareDialog(dialog).get(); }

DialogState& addDialog(HWND dialog)
{
    auto& state = dialogs()[dialog];
    if (!state) state = std::make_shared<DialogState>();
    return *state;
}

void removeDialog(HWND dialog)
{
    const std::shared_ptr<DialogState> state = shareDialog(dialog);
    if (!state) return;
    dialogs().erase(dialog);
    if (state->loop) state->loop->quit();
}

} // namespace corekit::detail
