// Handles and objects: how they are bound, and how messages find the object.
#include "corekit/framework/Exception.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/framework/ui/WndMaps.h"
#include "corekit/framework/WinApp.h"

#include <utility>

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

CWndMaps& CWndMaps::Instance()
{
    static auto* const maps = new CWndMaps;
    return *maps;
}

CWnd* CWndMaps::Of(HWND window)
{
    if (!window) return nullptr;
    if (CWnd* const permanent = Permanent(window)) return permanent;
    std::unique_ptr<CWnd>& temporary = m_temporary[window];
    if (!temporary) temporary.reset(new CWnd(window));
    return temporary.get();
}

void CWndMaps::Add(HWND window, CWnd* object)
{
    m_permanent[window] = object;
    if (const auto former = m_temporary.find(window); former != m_temporary.end()) {
        former->second->m_hWnd = nullptr;
        m_temporary.erase(former);
    }
}

void CWndMaps::ForgetTemporary()
{
    const auto former = std::exchange(m_temporary, {});
    for (const auto& [window, object] : former) object->m_hWnd = nullptr;
}

CWnd* CWnd::FromHandle(HWND window) { return CWndMaps::Instance().Of(window); }
CWnd* CWnd::FromHandlePermanent(HWND window) { return CWndMaps::Instance().Permanent(window); }
void CWnd::DeleteTempMap() { CWndMaps::Instance().ForgetTemporary(); }

CWnd::~CWnd()
{
    if (!m_hWnd || FromHandlePermanent(m_hWnd) != this) return;
    const bool hasMade = m_hasMade;
    const HWND window = UnsubclassWindow(); // nothing of the derived class is left to ask
    if (hasMade && IsWindow(window)) ::DestroyWindow(window);
}

// Compiled so that a null pointer may ask.
HWND CWnd::GetSafeHwnd() const { return this ? m_hWnd : nullptr; }

BOOL CWnd::Attach(HWND window)
{
    if (!window || m_hWnd || FromHandlePermanent(window)) return FALSE;
    CWndMaps::Instance().Add(window, this);
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND window = std::exchange(m_hWnd, nullptr);
    m_hasMade = false;
    if (window && FromHandlePermanent(window) == this) CWndMaps::Instance().Remove(window);
    return window;
}

BOOL CWnd::SubclassWindow(HWND window)
{
    if (!IsWindow(window) || !Attach(window)) return FALSE;
    PreSubclassWindow();
    const auto former = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (former != &AfxWndProc) m_pfnSuper = former;
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent)
{
    return SubclassWindow(::GetDlgItem(corekit::detail::safeHandle(parent), static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow()
{
    if (m_hWnd && IsWindow(m_hWnd) && m_pfnSuper)
        ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    m_pfnSuper = nullptr;
    return Detach();
}

namespace {

// The object that the next window is for: it is bound before the window's first message.
constinit CWnd* pending = nullptr;
constinit corekit::detail::CreationHook hookBefore = nullptr;

void bindPending(HWND window)
{
    corekit::detail::setCreationHook(std::exchange(hookBefore, nullptr));
    std::exchange(pending, nullptr)->SubclassWindow(window);
}

} // namespace

BOOL CWnd::PreCreateWindow(CREATESTRUCTA& create)
{
    if (!create.lpszClass) create.lpszClass = AfxRegisterWndClass(CS_DBLCLKS);
    return create.lpszClass != nullptr;
}

BOOL CWnd::CreateEx(DWORD exStyle, const char* className, const char* name, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU menuOrId, void* parameter)
{
    if (m_hWnd) return FALSE;
    CREATESTRUCTA create{
        parameter, nullptr,   menuOrId, parent, height, width, y, x, static_cast<LONG>(style),
        name,      className, exStyle};
    if (!PreCreateWindow(create)) {
        PostNcDestroy();
        return FALSE;
    }
    pending = this;
    hookBefore = corekit::detail::setCreationHook(&bindPending);
    const HWND made =
        ::CreateWindowExA(create.dwExStyle, create.lpszClass, create.lpszName,
                          static_cast<DWORD>(create.style), create.x, create.y, create.cx, create.cy,
                          create.hwndParent, create.hMenu, create.hInstance, create.lpCreateParams);
    if (pending == this) { // it did not come as far as a handle
        pending = nullptr;
        corekit::detail::setCreationHook(std::exchange(hookBefore, nullptr));
        PostNcDestroy();
    }
    if (made && FromHandlePermanent(made) == this) m_hasMade = true; // it may have gone meanwhile
    return made != nullptr;
}

BOOL CWnd::CreateEx(DWORD exStyle, const char* className, const char* name, DWORD style, const RECT& rect,
                    CWnd* parent, UINT id, void* parameter)
{
    return CreateEx(exStyle, className, name, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, corekit::detail::safeHandle(parent),
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parameter);
}

BOOL CWnd::Create(const char* className, const char* name, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id, CCreateContext* context)
{
    return CreateEx(0, className, name, (style & ~WS_POPUP) | WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::DestroyWindow() { return m_hWnd ? ::DestroyWindow(m_hWnd) : FALSE; }

namespace {

// The message that is in hand, put back when it is dealt with.
class InHand {
public:
    explicit InHand(const MSG& message) : m_former(std::exchange(CWndMaps::Instance().m_current, message)) {}
    ~InHand() { CWndMaps::Instance().m_current = m_former; }
    InHand(const InHand&) = delete;
    InHand& operator=(const InHand&) = delete;

private:
    const MSG m_former;
};

LRESULT toldOf(CException* thrown, const MSG& message)
{
    if (CWinThread* const thread = AfxGetThread()) return thread->ProcessWndProcException(thrown, &message);
    thrown->Delete();
    return message.message == WM_CREATE ? -1 : 0;
}

} // namespace

// Nothing that a handler throws may pass through the toolkit.
class CWndDispatch {
public:
    static LRESULT Call(CWnd& object, const MSG& message)
    {
        const InHand inHand(message);
        try {
            return object.WindowProc(message.message, message.wParam, message.lParam);
        } catch (CException* thrown) {
            return toldOf(thrown, message);
        }
    }
};

LRESULT AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* const object = CWnd::FromHandlePermanent(window);
    if (!object) return ::DefWindowProcA(window, message, wParam, lParam);
    const LRESULT result = CWndDispatch::Call(*object, {window, message, wParam, lParam, 0, {0, 0}});
    // A class whose own handler keeps the base from hearing of the end would leave a dead handle behind.
    if (message == WM_NCDESTROY)
        if (CWnd* const left = CWnd::FromHandlePermanent(window)) left->Detach();
    return result;
}

void CWnd::OnNcDestroy()
{
    CWinThread* const thread = AfxGetThread();
    if (thread && thread->m_pMainWnd == this) {
        thread->m_pMainWnd = nullptr;
        if (thread == AfxGetApp()) PostQuitMessage(0);
    }
    Default();
    UnsubclassWindow();
    PostNcDestroy();
}

void CWnd::OnDestroy() { Default(); }

const MSG* CWnd::GetCurrentMessage() { return &CWndMaps::Instance().m_current; }

LRESULT CWnd::Default()
{
    const MSG message = CWndMaps::Instance().m_current;
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

CWnd* AfxGetMainWnd()
{
    const CWinThread* const thread = AfxGetThread();
    if (thread && thread->m_pMainWnd) return thread->m_pMainWnd;
    const CWinApp* const app = AfxGetApp();
    return app ? app->m_pMainWnd : nullptr;
}
