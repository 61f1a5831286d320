// From a message to the member that handles it.
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/Menu.h"
#include "corekit/framework/ui/WndMaps.h"

#include <array>

BEGIN_MESSAGE_MAP(CWnd, CWndMessages)
ON_WM_DESTROY()
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

namespace {

struct Message {
    UINT number;
    WPARAM wParam;
    LPARAM lParam;

    CWnd* Window() const { return CWnd::FromHandle(reinterpret_cast<HWND>(wParam)); }
    CWnd* WindowInLong() const { return CWnd::FromHandle(reinterpret_cast<HWND>(lParam)); }
    UINT Low() const { return LOWORD(wParam); }
    UINT High() const { return HIWORD(wParam); }
    UINT LowLong() const { return LOWORD(static_cast<DWORD_PTR>(lParam)); }
    UINT HighLong() const { return HIWORD(static_cast<DWORD_PTR>(lParam)); }
    int X() const { return static_cast<SHORT>(LowLong()); }
    int Y() const { return static_cast<SHORT>(HighLong()); }
    CPoint Point() const { return {X(), Y()}; }
};

// A context or menu as an object for the time of a call.
class PassedContext {
public:
    explicit PassedContext(WPARAM handle) { m_context.m_hDC = reinterpret_cast<HDC>(handle); }
    ~PassedContext() { m_context.m_hDC = nullptr; }
    operator CDC*() { return &m_context; }

private:
    CDC m_context;
};
class PassedMenu {
public:
    explicit PassedMenu(WPARAM handle) { m_menu.m_hMenu = reinterpret_cast<HMENU>(handle); }
    ~PassedMenu() { m_menu.m_hMenu = nullptr; }
    operator CMenu*() { return &m_menu; }

private:
    CMenu m_menu;
};

using Invoker = LRESULT (*)(CWnd*, AFX_PMSG, const Message&);

// Calls a handler of that result with those arguments.
template <class Result, class... Arguments>
LRESULT call(CWnd* window, AFX_PMSG method, Arguments... arguments)
{
    const auto typed = std::bit_cast<Result (CWnd::*)(Arguments...)>(method);
    if constexpr (std::is_void_v<Result>) {
        (window->*typed)(arguments...);
        return 0;
    } else if constexpr (std::is_pointer_v<Result>) {
        return reinterpret_cast<LRESULT>((window->*typed)(arguments...));
    } else {
        return static_cast<LRESULT>((window->*typed)(arguments...));
    }
}

// ---- One each kind of call, in groups by what the arguments are made of.

constexpr auto invokers = [] {
    std::array<Invoker, AfxSig_end - AfxSig_first> all{};
    const auto set = [&all](AfxSig signature, Invoker invoker) { all[signature - AfxSig_first] = invoker; };
    using W = CWnd*;
    using P = AFX_PMSG;
    using M = const Message&;
    set(AfxSig_message,
        [](W w, P p, M m) { return call<LRESULT, WPARAM, LPARAM>(w, p, m.wParam, m.lParam); });
    set(AfxSig_plain, [](W w, P p, M) { return call<void>(w, p); });
    set(AfxSig_answer, [](W w, P p, M) { return call<BOOL>(w, p); });
    set(AfxSig_answerUint, [](W w, P p, M) { return call<UINT>(w, p); });
    set(AfxSig_flag, [](W w, P p, M m) { return call<void, BOOL>(w, p, static_cast<BOOL>(m.wParam)); });
    set(AfxSig_pointer,
        [](W w, P p, M m) { return call<void, void*>(w, p, reinterpret_cast<void*>(m.lParam)); });
    set(AfxSig_create,
        [](W w, P p, M m) { return call<int, void*>(w, p, reinterpret_cast<void*>(m.lParam)); });
    set(AfxSig_createBool,
        [](W w, P p, M m) { return call<BOOL, void*>(w, p, reinterpret_cast<void*>(m.lParam)); });
    set(AfxSig_item, [](W w, P p, M m) {
        return call<void, int, void*>(w, p, static_cast<int>(m.wParam), reinterpret_cast<void*>(m.lParam));
    });
    set(AfxSig_itemInt, [](W w, P p, M m) {
        return call<int, int, void*>(w, p, static_cast<int>(m.wParam), reinterpret_cast<void*>(m.lParam));
    });
    // Place and state
    set(AfxSig_twoInts, [](W w, P p, M m) { return call<void, int, int>(w, p, m.X(), m.Y()); });
    set(AfxSig_size, [](W w, P p, M m) {
        return call<void, UINT, int, int>(w, p, static_cast<UINT>(m.wParam), static_cast<int>(m.LowLong()),
                                          static_cast<int>(m.HighLong()));
    });
    set(AfxSig_show, [](W w, P p, M m) {
        return call<void, BOOL, UINT>(w, p, static_cast<BOOL>(m.wParam), static_cast<UINT>(m.lParam));
    });
    set(AfxSig_setting, [](W w, P p, M m) {
        return call<void, UINT, const char*>(w, p, static_cast<UINT>(m.wParam),
                                             reinterpret_cast<const char*>(m.lParam));
    });
    set(AfxSig_activate, [](W w, P p, M m) {
        return call<void, UINT, CWnd*, BOOL>(w, p, m.Low(), m.WindowInLong(), static_cast<BOOL>(m.High()));
    });
    set(AfxSig_activateApp, [](W w, P p, M m) {
        return call<void, BOOL, DWORD>(w, p, static_cast<BOOL>(m.wParam), static_cast<DWORD>(m.lParam));
    });
    // Windows
    set(AfxSig_window, [](W w, P p, M m) { return call<void, CWnd*>(w, p, m.Window()); });
    set(AfxSig_windowInLong, [](W w, P p, M m) { return call<void, CWnd*>(w, p, m.WindowInLong()); });
    set(AfxSig_windowWords, [](W w, P p, M m) {
        return call<BOOL, CWnd*, UINT, UINT>(w, p, m.Window(), m.LowLong(), m.HighLong());
    });
    set(AfxSig_windowWordsInt, [](W w, P p, M m) {
        return call<int, CWnd*, UINT, UINT>(w, p, m.Window(), m.LowLong(), m.HighLong());
    });
    set(AfxSig_windowPoint,
        [](W w, P p, M m) { return call<void, CWnd*, CPoint>(w, p, m.Window(), m.Point()); });
    // Input
    set(AfxSig_key, [](W w, P p, M m) {
        return call<void, UINT, UINT, UINT>(w, p, static_cast<UINT>(m.wParam), m.LowLong(), m.HighLong());
    });
    set(AfxSig_mouse,
        [](W w, P p, M m) { return call<void, UINT, CPoint>(w, p, static_cast<UINT>(m.wParam), m.Point()); });
    set(AfxSig_wheel, [](W w, P p, M m) {
        return call<BOOL, UINT, short, CPoint>(w, p, m.Low(), static_cast<short>(m.High()), m.Point());
    });
    set(AfxSig_pointResult, [](W w, P p, M m) { return call<LRESULT, CPoint>(w, p, m.Point()); });
    set(AfxSig_timer, [](W w, P p, M m) { return call<void, UINT_PTR>(w, p, m.wParam); });
    set(AfxSig_uints,
        [](W w, P p, M m) { return call<void, UINT, UINT>(w, p, static_cast<UINT>(m.wParam), m.LowLong()); });
    set(AfxSig_codePosition, [](W w, P p, M m) { return call<void, UINT, UINT>(w, p, m.Low(), m.High()); });
    set(AfxSig_sysCommand,
        [](W w, P p, M m) { return call<void, UINT, LPARAM>(w, p, static_cast<UINT>(m.wParam), m.lParam); });
    set(AfxSig_drop,
        [](W w, P p, M m) { return call<void, HDROP>(w, p, reinterpret_cast<HDROP>(m.wParam)); });
    set(AfxSig_scroll, [](W w, P p, M m) {
        return call<void, UINT, UINT, void*>(w, p, m.Low(), m.High(), m.WindowInLong());
    });
    // Contexts and menus
    set(AfxSig_context, [](W w, P p, M m) { return call<BOOL, CDC*>(w, p, PassedContext(m.wParam)); });
    set(AfxSig_colour, [](W w, P p, M m) {
        return call<HBRUSH, CDC*, CWnd*, UINT>(w, p, PassedContext(m.wParam), m.WindowInLong(),
                                               m.number - WM_CTLCOLORMSGBOX);
    });
    set(AfxSig_colourReflect, [](W w, P p, M m) {
        return call<HBRUSH, CDC*, UINT>(w, p, PassedContext(m.wParam), m.number - WM_CTLCOLORMSGBOX);
    });
    set(AfxSig_menu, [](W w, P p, M m) { return call<void, CMenu*>(w, p, PassedMenu(m.wParam)); });
    set(AfxSig_menuPopup, [](W w, P p, M m) {
        return call<void, CMenu*, UINT, BOOL>(w, p, PassedMenu(m.wParam), m.LowLong(),
                                              static_cast<BOOL>(m.HighLong()));
    });
    set(AfxSig_menuSelect, [](W w, P p, M m) {
        return call<void, UINT, UINT, HMENU>(w, p, m.Low(), m.High(), reinterpret_cast<HMENU>(m.lParam));
    });
    return all;
}();
static_assert([] {
    for (const Invoker each : invokers)
        if (!each) return false;
    return true;
}());

constexpr UINT firstRegistered = 0xC000;

bool isColourQuestion(UINT message) { return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC; }

// The row of a registered message: it names the variable that holds the number.
const AFX_MSGMAP_ENTRY* findRegistered(const AFX_MSGMAP* map, UINT message)
{
    for (; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn; ++entry)
            if (entry->nMessage == firstRegistered && *reinterpret_cast<const UINT*>(entry->nSig) == message)
                return entry;
    return nullptr;
}

} // namespace

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (OnWndMsg(message, wParam, lParam, &result)) return result;
    return DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    LRESULT unused = 0;
    LRESULT& answer = result ? *result : unused;
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam)) return FALSE;
        answer = 1;
        return TRUE;
    }
    if (message == WM_NOTIFY) return lParam && OnNotify(wParam, lParam, &answer);
    const UINT row = isColourQuestion(message) ? WM_CTLCOLORBASE : message;
    const bool isRegistered = message >= firstRegistered && message <= 0xFFFF;
    const AFX_MSGMAP_ENTRY* entry =
        isRegistered ? findRegistered(GetMessageMap(), message) : FindMessageEntry(row, 0, 0);
    if (!entry) return FALSE;
    const UINT_PTR signature = isRegistered ? static_cast<UINT_PTR>(AfxSig_message) : entry->nSig;
    if (signature < AfxSig_first || signature >= AfxSig_end) return FALSE;
    answer = invokers[signature - AfxSig_first](this, entry->pfn, {message, wParam, lParam});
    return TRUE;
}
