// What threads do with windows: installed when the library is loaded.
#include "corekit/framework/ThreadWindows.h"
#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/ui/WndMaps.h"
#include "corekit/framework/WinThread.h"
#include "corekit/platform/MessageLoop.h"

namespace {

using namespace corekit::detail;

int run(CWinThread& thread)
{
    const auto exitCode =
        runMessageLoop([] { return true; }, [&](LONG count) { return thread.OnIdle(count); });
    return exitCode.value_or(0);
}

BOOL pump(CWinThread&)
{
    int asked = 0; // before the loop, before it waits, and after something came
    const auto exitCode = runMessageLoop([&asked] { return asked++ < 2; });
    if (exitCode) PostQuitMessage(*exitCode);
    return !exitCode;
}

BOOL preTranslate(CWinThread& thread, MSG* message)
{
    if (preTranslateUpwards(message)) return TRUE;
    // The main window has its keys in windows beside it, too, unless it is kept out by a modal one.
    CWnd* const main = thread.m_pMainWnd;
    if (!main || !message->hwnd || !main->m_hWnd || !main->IsWindowEnabled()) return FALSE;
    const bool isBelow = message->hwnd == main->m_hWnd || ::IsChild(main->m_hWnd, message->hwnd) ||
                         ::GetAncestor(message->hwnd, GA_ROOTOWNER) == main->m_hWnd;
    return !isBelow && main->PreTranslateMessage(message);
}

BOOL idle(CWinThread& thread, LONG count)
{
    if (count == 0 && thread.m_pMainWnd && thread.m_pMainWnd->m_hWnd &&
        thread.m_pMainWnd->IsWindowVisible()) {
        thread.m_pMainWnd->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
        if (thread.m_pMainWnd && thread.m_pMainWnd->m_hWnd)
            thread.m_pMainWnd->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE);
    }
    if (count == 1) CWnd::DeleteTempMap();
    return count < 1;
}

constexpr corekit::ThreadWindows calls = {&run, &pump, &preTranslate, &idle, &changeWaitCursor};

bool offer(MSG* message)
{
    CWinThread* const thread = AfxGetThread();
    return thread ? thread->PreTranslateMessage(message) : preTranslateUpwards(message) != FALSE;
}

[[gnu::constructor]] void install()
{
    corekit::setThreadWindows(&calls);
    setPreTranslate(&offer);
}

[[gnu::destructor]] void takeAway()
{
    corekit::setThreadWindows(nullptr);
    setPreTranslate(nullptr);
}

} // namespace
