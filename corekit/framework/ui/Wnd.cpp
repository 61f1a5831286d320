#include "corekit/framework/ui/Wnd.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/Menu.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/framework/WinThread.h"
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/MessageLoop.h"
#include "corekit/platform/PopupMenus.h"

#include <algorithm>
#include <string>
#include <utility>

// ---- Messages

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessageA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::PostMessageA(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::SendDlgItemMessage(int id, UINT message, WPARAM wParam, LPARAM lParam) const
{
    const HWND item = ::GetDlgItem(m_hWnd, id);
    return item ? ::SendMessageA(item, message, wParam, lParam) : 0;
}

namespace {

void sendDown(HWND parent, UINT message, WPARAM wParam, LPARAM lParam, bool deep)
{
    for (HWND child = ::GetWindow(parent, GW_CHILD); child;) {
        const HWND next = ::GetWindow(child, GW_HWNDNEXT);
        ::SendMessageA(child, message, wParam, lParam);
        if (deep && IsWindow(child)) sendDown(child, message, wParam, lParam, true);
        child = IsWindow(next) ? next : nullptr;
    }
}

} // namespace

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL deep)
{
    sendDown(m_hWnd, message, wParam, lParam, deep);
}

// ---- The tree

CWnd* CWnd::SetParent(CWnd* parent)
{
    return FromHandle(::SetParent(m_hWnd, corekit::detail::safeHandle(parent)));
}

BOOL CWnd::IsChild(const CWnd* window) const
{
    return ::IsChild(m_hWnd, corekit::detail::safeHandle(window));
}

void CWnd::SetOwner(const CWnd* owner) { m_hWndOwner = corekit::detail::safeHandle(owner); }

CWnd* CWnd::GetOwner() const { return IsWindow(m_hWndOwner) ? FromHandle(m_hWndOwner) : GetParent(); }

CWnd* CWnd::GetTopLevelParent() const { return FromHandle(::GetAncestor(m_hWnd, GA_ROOTOWNER)); }

CWnd* CWnd::GetDescendantWindow(int id, BOOL onlyPermanent) const
{
    if (const HWND item = ::GetDlgItem(m_hWnd, id))
        if (CWnd* const found = onlyPermanent ? FromHandlePermanent(item) : FromHandle(item)) return found;
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        if (CWnd* const found = FromHandle(child)->GetDescendantWindow(id, onlyPermanent)) return found;
    return nullptr;
}

CWnd* CWnd::ChildWindowFromPoint(POINT point) const
{
    return FromHandle(::ChildWindowFromPoint(m_hWnd, point));
}

// ---- Style, place, state

namespace {

BOOL changeStyle(HWND window, int word, DWORD remove, DWORD add, UINT flags)
{
    const auto former = static_cast<DWORD>(::GetWindowLongA(window, word));
    const DWORD now = (former & ~remove) | add;
    if (now == former) return FALSE;
    ::SetWindowLongA(window, word, static_cast<LONG>(now));
    if (flags)
        ::SetWindowPos(window, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
    return TRUE;
}

} // namespace

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags)
{
    return changeStyle(m_hWnd, GWL_STYLE, remove, add, flags);
}
BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT flags)
{
    return changeStyle(m_hWnd, GWL_EXSTYLE, remove, add, flags);
}

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags)
{
    return ::SetWindowPos(m_hWnd, insertAfter ? insertAfter->m_hWnd : nullptr, x, y, width, height, flags);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(const RECT* rect, BOOL repaint)
{
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

void CWnd::CenterWindow(CWnd* over)
{
    const HWND owner = over ? over->GetSafeHwnd() : ::GetParent(m_hWnd);
    CRect room, self, screen;
    ::GetWindowRect(::GetDesktopWindow(), &screen);
    if (!owner || !::IsWindowVisible(owner) || !::GetWindowRect(owner, &room)) room = screen;
    GetWindowRect(&self);
    const int width = self.right - self.left, height = self.bottom - self.top;
    POINT corner{(room.left + room.right - width) / 2, (room.top + room.bottom - height) / 2};
    corner.x = std::max(std::min(corner.x, screen.right - width), screen.left);
    corner.y = std::max(std::min(corner.y, screen.bottom - height), screen.top);
    if (GetStyle() & WS_CHILD) ::ScreenToClient(::GetParent(m_hWnd), &corner);
    SetWindowPos(nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

namespace {
void mapRect(HWND from, HWND to, RECT* rect)
{
    POINT corners[2] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    ::MapWindowPoints(from, to, corners, 2);
    *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}
} // namespace

void CWnd::ClientToScreen(RECT* rect) const { mapRect(m_hWnd, nullptr, rect); }
void CWnd::ScreenToClient(RECT* rect) const { mapRect(nullptr, m_hWnd, rect); }
void CWnd::MapWindowPoints(CWnd* to, POINT* points, UINT count) const
{
    ::MapWindowPoints(m_hWnd, corekit::detail::safeHandle(to), points, count);
}
void CWnd::MapWindowPoints(CWnd* to, RECT* rect) const
{
    mapRect(m_hWnd, corekit::detail::safeHandle(to), rect);
}

// ---- Text and font

namespace {
CString textOf(HWND window)
{
    const int length = ::GetWindowTextLengthA(window);
    std::string text(static_cast<std::size_t>(std::max(length, 0)) + 1, '\0');
    ::GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    return CString(text.c_str());
}
} // namespace

void CWnd::GetWindowText(CString& text) const { text = textOf(m_hWnd); }

void CWnd::SetDlgItemText(int id, const char* text) { ::SetWindowTextA(::GetDlgItem(m_hWnd, id), text); }

int CWnd::GetDlgItemText(int id, CString& text) const
{
    const HWND item = ::GetDlgItem(m_hWnd, id);
    text = item ? textOf(item) : CString();
    return text.GetLength();
}

void CWnd::SetFont(HFONT font, BOOL redraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
}

// ---- Painting

CDC* CWnd::GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
CDC* CWnd::GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
int CWnd::ReleaseDC(CDC* dc) { return dc ? ::ReleaseDC(m_hWnd, dc->m_hDC) : 0; }

void CWnd::ScrollWindow(int dx, int dy, const RECT* part, const RECT* clip)
{
    ::ScrollWindow(m_hWnd, dx, dy, part, clip);
}

// ---- Input

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    return ::SetTimer(m_hWnd, id, milliseconds, procedure);
}

CPoint CWnd::GetCaretPos()
{
    CPoint point;
    ::GetCaretPos(&point);
    return point;
}

BOOL CWnd::OpenClipboard() { return ::OpenClipboard(m_hWnd); }

void CWnd::DragAcceptFiles(BOOL accept)
{
    accept ? ModifyStyleEx(0, WS_EX_ACCEPTFILES) : ModifyStyleEx(WS_EX_ACCEPTFILES, 0);
}

// ---- Scroll bars and menus

BOOL CWnd::SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw)
{
    info->cbSize = sizeof *info;
    ::SetScrollInfo(m_hWnd, bar, info, redraw);
    return TRUE;
}

BOOL CWnd::GetScrollInfo(int bar, SCROLLINFO* info, UINT mask) const
{
    info->cbSize = sizeof *info;
    info->fMask = mask;
    return ::GetScrollInfo(m_hWnd, bar, info);
}

int CWnd::SetScrollPos(int bar, int position, BOOL redraw)
{
    return ::SetScrollPos(m_hWnd, bar, position, redraw);
}

void CWnd::SetScrollRange(int bar, int minimum, int maximum, BOOL redraw)
{
    ::SetScrollRange(m_hWnd, bar, minimum, maximum, redraw);
}

void CWnd::ShowScrollBar(UINT bar, BOOL show) { ::ShowScrollBar(m_hWnd, static_cast<int>(bar), show); }

void CWnd::EnableScrollBarCtrl(int bar, BOOL enable)
{
    ::EnableScrollBar(m_hWnd, bar, enable ? ESB_ENABLE_BOTH : ESB_DISABLE_BOTH);
}

CMenu* CWnd::GetMenu() const
{
    const HMENU menu = ::GetMenu(m_hWnd);
    if (!menu) return nullptr;
    static auto* const temporary = new CMenu; // it would take the menu with it
    temporary->m_hMenu = menu;
    return temporary;
}

BOOL CWnd::SetMenu(CMenu* menu) { return ::SetMenu(m_hWnd, menu ? menu->GetSafeHmenu() : nullptr); }

// ---- Modal loops

int CWnd::RunModalLoop()
{
    const HWND window = m_hWnd;
    const int depth = ++m_modalDepth;
    m_modalResult = -1;
    CWinThread* const thread = AfxGetThread();
    const auto isOpen = [&] { return FromHandlePermanent(window) == this && m_modalDepth >= depth; };
    const auto exitCode = corekit::detail::runMessageLoop(
        isOpen, [thread](LONG count) { return thread && thread->OnIdle(count); });
    if (exitCode) PostQuitMessage(*exitCode);
    if (FromHandlePermanent(window) != this) return -1;
    m_modalDepth = std::min(m_modalDepth, depth - 1);
    return m_modalResult;
}

void CWnd::EndModalLoop(int result)
{
    m_modalResult = result;
    if (m_modalDepth > 0) --m_modalDepth;
    PostMessage(WM_NULL); // the loop looks again
}
