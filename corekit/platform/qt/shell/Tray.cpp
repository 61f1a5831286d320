#include "corekit/platform/Tray.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/qt/drawing/IconObject.h"
#include "corekit/platform/qt/windows/Window.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/platform/WindowMessages.h"

#include <algorithm>
#include <map>
#include <memory>
#include <QApplication>
#include <QElapsedTimer>
#include <QSystemTrayIcon>
#include <utility>

namespace {

struct TrayIcon {
    std::unique_ptr<QSystemTrayIcon> shown;
    UINT message = 0;
    QElapsedTimer left, right; // since the last click
};
using Key = std::pair<HWND, UINT_PTR>;
using Icons = std::map<Key, TrayIcon>;

// They go with the toolkit: an icon must not outlive it.
Icons& icons()
{
    static auto* const all = [] {
        auto* const made = new Icons;
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp, [made] { made->clear(); });
        return made;
    }();
    return *all;
}

// Whether this click is the second of two. Desktops do not tell of every double click.
bool isSecondClick(QElapsedTimer& last)
{
    const bool is = last.isValid() && last.elapsed() <= QApplication::doubleClickInterval();
    is ? last.invalidate() : last.start();
    return is;
}

void tell(const Key& key, UINT mouseMessage)
{
    const auto it = icons().find(key);
    if (it != icons().end() && it->second.message != 0)
        PostMessageA(key.first, it->second.message, key.second, static_cast<LPARAM>(mouseMessage));
}

void onClick(const Key& key, QSystemTrayIcon::ActivationReason reason)
{
    const auto it = icons().find(key);
    if (it == icons().end()) return;
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        tell(key, isSecondClick(it->second.left) ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN);
        return tell(key, WM_LBUTTONUP);
    case QSystemTrayIcon::DoubleClick:
        if (!it->second.left.isValid()) return; // it was told as the second of two clicks
        it->second.left.invalidate();
        tell(key, WM_LBUTTONDBLCLK);
        return tell(key, WM_LBUTTONUP);
    case QSystemTrayIcon::Context:
        tell(key, isSecondClick(it->second.right) ? WM_RBUTTONDBLCLK : WM_RBUTTONDOWN);
        return tell(key, WM_RBUTTONUP);
    default:
        return;
    }
}

void change(TrayIcon& icon, const NOTIFYICONDATAA& data)
{
    if (data.uFlags & NIF_MESSAGE) icon.message = data.uCallbackMessage;
    if (data.uFlags & NIF_ICON) icon.shown->setIcon(corekit::detail::toolkitIcon(data.hIcon));
    if (data.uFlags & NIF_TIP) {
        const char* const end = std::find(std::begin(data.szTip), std::end(data.szTip), '\0');
        icon.shown->setToolTip(corekit::detail::fromNarrow(std::string(data.szTip, end).c_str()));
    }
}

BOOL add(const Key& key, const NOTIFYICONDATAA& data)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable() || icons().contains(key)) return FALSE;
    TrayIcon& icon = icons()[key];
    icon.shown = std::make_unique<QSystemTrayIcon>();
    QObject::connect(icon.shown.get(), &QSystemTrayIcon::activated, icon.shown.get(),
                     [key](QSystemTrayIcon::ActivationReason reason) { onClick(key, reason); });
    change(icon, data);
    icon.shown->show();
    return TRUE;
}

} // namespace

BOOL Shell_NotifyIconA(DWORD action, NOTIFYICONDATAA* data)
{
    const bool isRecord = data && data->cbSize == sizeof *data && action <= NIM_DELETE;
    if (!isRecord || !ToolkitIsRunning()) {
        SetLastError(isRecord ? ERROR_NOT_SUPPORTED : ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const Key key{data->hWnd, data->uID};
    if (action == NIM_ADD) return add(key, *data);
    const auto it = icons().find(key);
    if (it == icons().end()) return FALSE;
    if (action == NIM_MODIFY)
        change(it->second, *data);
    else
        icons().erase(it);
    return TRUE;
}
