#include "corekit/framework/ui/DialogWindow.h"

#include <utility>

namespace {

// The object that the next window is for.
constinit CWnd* pending = nullptr;
constinit corekit::detail::CreationHook hookBefore = nullptr;

void bindPending(HWND window)
{
    corekit::detail::setCreationHook(std::exchange(hookBefore, nullptr));
    std::exchange(pending, nullptr)->SubclassWindow(window);
}

} // namespace

bool corekit::detail::createDialogFor(CWnd& object, const DialogTemplate& dialog, HWND owner,
                                      DLGPROC procedure)
{
    if (object.m_hWnd) return false; // a second window would belong to nobody
    pending = &object;
    hookBefore = setCreationHook(bindPending);
    const HWND window = CreateDialogIndirectParamA(nullptr, &dialog, owner, procedure, 0);
    if (pending) { // nothing was made
        pending = nullptr;
        setCreationHook(std::exchange(hookBefore, nullptr));
    }
    return window != nullptr;
}

CWnd* AfxGetSafeOwner(CWnd* parent)
{
    HWND window = parent ? parent->GetSafeHwnd() : nullptr;
    if (!IsWindow(window)) {
        const CWnd* const main = AfxGetMainWnd();
        window = main ? main->GetSafeHwnd() : nullptr;
    }
    if (!IsWindow(window)) window = GetActiveWindow();
    if (!IsWindow(window)) return nullptr;
    const HWND top = GetAncestor(window, GA_ROOT);
    return CWnd::FromHandle(parent && parent->GetSafeHwnd() ? top : GetLastActivePopup(top));
}
