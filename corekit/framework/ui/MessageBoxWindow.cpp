#include "corekit/framework/ui/MessageBoxWindow.h"

#include "corekit/framework/ui/DialogWindow.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/MessageBoxes.h"
#include "corekit/platform/Toolkit.h"

namespace {

UINT withIcon(UINT flags)
{
    if (flags & MB_ICONMASK) return flags;
    const UINT type = flags & MB_TYPEMASK;
    return flags | (type == MB_YESNO || type == MB_YESNOCANCEL ? MB_ICONQUESTION : MB_ICONEXCLAMATION);
}

const char* programName()
{
    const CWinApp* const app = AfxGetApp();
    return app && *app->m_pszAppName ? app->m_pszAppName : nullptr;
}

int show(CWnd* parent, const char* text, UINT flags)
{
    const bool isOver = parent && IsWindow(parent->GetSafeHwnd());
    const CWnd* const owner = isOver ? parent : AfxGetSafeOwner(nullptr);
    return MessageBoxA(owner ? owner->GetSafeHwnd() : nullptr, text, programName(),
                       isOver ? flags : withIcon(flags));
}

} // namespace

int corekit::detail::showMessageBox(CWnd* parent, const char* text, UINT flags)
{
    if (!ToolkitHasDisplay()) return 0;
    int answer = 0;
    callOnToolkitThread([&] { answer = show(parent, text, flags); });
    return answer;
}
