#include "corekit/framework/ui/MessageBoxWindow.h"

#include "corekit/framework/ui/DialogWindow.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/MessageBoxes.h"
#include "corekit/platform/Toolkit.h"

#include <utility>

namespace {

constinit thread_local const char* nextCaption = nullptr;

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

int show(CWnd* parent, const char* text, const char* caption, UINT flags)
{
    const bool isOver = parent && IsWindow(parent->GetSafeHwnd());
    const CWnd* const owner = isOver ? parent : AfxGetSafeOwner(nullptr);
    return MessageBoxA(owner ? owner->GetSafeHwnd() : nullptr, text, caption ? caption : programName(),
                       isOver ? flags : withIcon(flags));
}

} // namespace

int corekit::detail::showMessageBox(CWnd* parent, const char* text, UINT flags)
{
    if (!ToolkitHasDisplay()) return 0;
    const char* const caption = std::exchange(nextCaption, nullptr);
    int answer = 0;
    callOnToolkitThread([&] { answer = show(parent, text, caption, flags); });
    return answer;
}

// A handler that shows no box leaves the caption behind.
int CWnd::MessageBox(const char* text, const char* caption, UINT type)
{
    nextCaption = caption;
    const int answer = StockMessageBox(this, text, type);
    nextCaption = nullptr;
    return answer;
}
