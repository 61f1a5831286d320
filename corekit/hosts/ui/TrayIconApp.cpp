#include "corekit/hosts/ui/TrayIconApp.h"

#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/hosts/ui/TrayAppWnd.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Tray.h"

#include <algorithm>
#include <cstring>

IMPLEMENT_DYNAMIC(CTrayIconApp, CWinApp)

using corekit::detail::shownTip;

namespace {

constexpr int longestTip = 63, tipBeforeDots = 60;

NOTIFYICONDATA recordOf(CTrayIcon& icon, UINT flags)
{
    NOTIFYICONDATA data{};
    data.cbSize = sizeof data;
    data.hWnd = corekit::detail::safeHandle(AfxGetMainWnd());
    data.uID = reinterpret_cast<UINT_PTR>(&icon);
    data.uFlags = flags;
    if (flags == 0) return data;
    data.uCallbackMessage = corekit::detail::trayIconMessage;
    data.hIcon = LoadIconA(nullptr, MAKEINTRESOURCEA(static_cast<WORD>(icon.GetIconId())));
    CString tip;
    icon.GetTipText(tip);
    std::strncpy(data.szTip, shownTip(tip), sizeof data.szTip - 1);
    return data;
}

} // namespace

CString corekit::detail::shownTip(const CString& text)
{
    return text.GetLength() > longestTip ? text.Left(tipBeforeDots) + "..." : text;
}

// Passes everything on to the program that runs; there is none any more while the last messages come.
class CTrayIconApp::Window final : public CTrayAppWnd {
public:
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override
    {
        if (CCmdTarget::OnCmdMsg(id, code, extra, info)) return TRUE;
        CTrayIconApp* const app = Program();
        return app && app->OnCmdMsg(id, code, extra, info);
    }

protected:
    void OnIcon(UINT_PTR icon, long mouseMessage) override
    {
        if (CTrayIconApp* const app = Program()) app->OnIconMessage(icon, mouseMessage);
    }
    void OnTick(int timerId) override
    {
        if (CTrayIconApp* const app = Program()) app->FireTimer(timerId);
    }
    int OnRegistered(UINT message, WPARAM wParam, LPARAM lParam, long& result) override
    {
        CTrayIconApp* const app = Program();
        return app ? app->DispatchRegisteredMessage(message, static_cast<unsigned int>(wParam), lParam,
                                                    result)
                   : 0;
    }

private:
    static CTrayIconApp* Program() { return dynamic_cast<CTrayIconApp*>(AfxGetApp()); }
};

BOOL CTrayIconApp::InitInstance()
{
    auto* const window = new Window;
    if (!window->CreateTrayWindow()) {
        delete window;
        return FALSE;
    }
    m_pMainWnd = window;
    if (OnTrayStart()) return TRUE;
    Shutdown(); // of the icons that were shown until then
    return FALSE;
}

int CTrayIconApp::ExitInstance()
{
    OnTrayExit();
    return 0;
}

bool CTrayIconApp::IsInList(const CTrayIcon* icon) const
{
    return std::ranges::find(m_icons, icon) != m_icons.end();
}

int CTrayIconApp::AddIcon(CTrayIcon* icon, int show)
{
    m_icons.push_back(icon);
    return show ? AddIconToTaskbar(icon) : 1;
}

int CTrayIconApp::AddIconToTaskbar(CTrayIcon* icon)
{
    if (!IsInList(icon)) return 0;
    NOTIFYICONDATA data = recordOf(*icon, NIF_MESSAGE | NIF_ICON | NIF_TIP);
    return Shell_NotifyIconA(NIM_ADD, &data);
}

int CTrayIconApp::ChangeIconOnTaskbar(CTrayIcon* icon)
{
    if (!IsInList(icon)) return 0;
    NOTIFYICONDATA data = recordOf(*icon, NIF_MESSAGE | NIF_ICON | NIF_TIP);
    return Shell_NotifyIconA(NIM_MODIFY, &data);
}

int CTrayIconApp::RemoveIconFromTaskbar(CTrayIcon* icon)
{
    if (!IsInList(icon)) return 0;
    NOTIFYICONDATA data = recordOf(*icon, 0);
    return Shell_NotifyIconA(NIM_DELETE, &data);
}

CTrayIcon* CTrayIconApp::GetIcon(int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < m_icons.size()
               ? m_icons[static_cast<std::size_t>(index)]
               : nullptr;
}

void CTrayIconApp::Shutdown()
{
    while (!m_icons.empty()) {
        CTrayIcon* const icon = m_icons.front();
        RemoveIconFromTaskbar(icon);
        icon->OnShutdown();
        std::erase(m_icons, icon);
        icon->Delete();
    }
    if (CWnd* const window = AfxGetMainWnd()) window->DestroyWindow();
}

template <class Ask>
int CTrayIconApp::AskIcons(Ask ask)
{
    for (CTrayIcon* const icon : std::vector(m_icons)) {
        if (!IsInList(icon)) continue;
        if (const int answer = ask(*icon)) return answer;
    }
    return 0;
}

void CTrayIconApp::FireTimer(int timerId)
{
    AskIcons([&](CTrayIcon& icon) { return icon.OnTimer(timerId); });
}

int CTrayIconApp::DispatchRegisteredMessage(unsigned int message, unsigned int wParam, long lParam,
                                            long& result)
{
    return AskIcons(
        [&](CTrayIcon& icon) { return icon.OnRegisteredMessage(message, wParam, lParam, result); });
}

BOOL CTrayIconApp::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    if (CWinApp::OnCmdMsg(id, code, extra, info)) return TRUE;
    return AskIcons([&](CTrayIcon& icon) { return icon.OnCmdMsg(id, code, extra, info); });
}

// What the desktop tells of an icon may come when it has gone.
void CTrayIconApp::OnIconMessage(UINT_PTR icon, long mouseMessage)
{
    AskIcons([&](CTrayIcon& one) {
        const bool isMeant = reinterpret_cast<UINT_PTR>(&one) == icon;
        if (isMeant) one.OnMouseMessage(mouseMessage);
        return isMeant;
    });
}
