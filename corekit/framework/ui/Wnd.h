// A window as an object.
//
// The object and its handle are two things. Create, or Attach to a handle that exists, binds them until the
// window is destroyed or Detach parts them; the object itself is deleted by its owner, or in PostNcDestroy by
// a class that owns itself. SubclassWindow binds to a window of another class and puts this object's messages
// before that class's own. FromHandle gives an object for any handle: the permanent one if there is one, else
// a temporary one that lasts until the program is idle again and is not to be kept.
//
// Messages go to WindowProc: from there by OnWndMsg to the message map (MessageMap.h), and what nobody
// handles to the class's own procedure. Commands go by OnCmdMsg; a frame lets its view and document have them
// first. User-interface thread only.
//
// A window in four lines:
//
//     class CPane : public CWnd { ... };
//     CPane pane;
//     pane.Create(AfxRegisterWndClass(CS_DBLCLKS), "", WS_VISIBLE, CRect(0, 0, 200, 100), &frame, 100);
#pragma once

#include "corekit/framework/String.h"
#include "corekit/framework/ui/MessageMap.h"
#include "corekit/framework/ui/WndMessages.h"
#include "corekit/platform/Caret.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Painting.h"
#include "corekit/platform/ScrollBars.h"
#include "corekit/platform/Timers.h"
#include "corekit/platform/Windows.h"

class CDataExchange;
class CFrameWnd;
struct CCreateContext;

class COREKIT_API CWnd : public CWndMessages {
    DECLARE_DYNAMIC(CWnd)
public:
    // An object without a window. Operations on it fail as those on a null handle do, and do no harm.
    CWnd() = default;
    ~CWnd() override; // ends the window that it made; one that it was attached to goes on without it

    HWND m_hWnd = nullptr;
    HWND GetSafeHwnd() const; // also through a null pointer: null
    operator HWND() const { return m_hWnd; }

    // ---- Handles and objects
    static CWnd* FromHandle(HWND window); // null for null
    // The object bound to the window, null without one.
    static CWnd* FromHandlePermanent(HWND window);
    static void DeleteTempMap(); // called when the program is idle
    // False, and nothing changes, for null, and where either has a partner already. Messages do not come
    // here.
    BOOL Attach(HWND window);
    // The window stays and goes on without an object.
    HWND Detach();
    // False where Attach is false.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent); // the control of that id
    HWND UnsubclassWindow();                     // messages go to the class's own procedure again

    // ---- Life. PreCreateWindow may change what is asked for. A child's id goes where a menu would.
    BOOL CreateEx(DWORD exStyle, const char* className, const char* name, DWORD style, int x, int y,
                  int width, int height, HWND parent, HMENU menuOrId, void* parameter = nullptr);
    BOOL CreateEx(DWORD exStyle, const char* className, const char* name, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, void* parameter = nullptr);
    virtual BOOL Create(const char* className, const char* name, DWORD style, const RECT& rect, CWnd* parent,
                        UINT id, CCreateContext* context = nullptr);
    // False without a window. The object is bound no longer when it returns, and may be gone.
    virtual BOOL DestroyWindow();
    virtual BOOL PreCreateWindow(CREATESTRUCTA& create);
    virtual void PreSubclassWindow() {} // bound, and no message has come yet
    virtual void PostNcDestroy() {}     // the last call; a class that owns itself deletes itself

    // ---- Messages
    // At once; 0 without a window, or from another thread.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // From any thread; FALSE with the last error if the window has gone.
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // Children first, then theirs; windows may go meanwhile.
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL deep = TRUE);
    LRESULT Default() override;
    static const MSG* GetCurrentMessage(); // the one in hand
    // True: the message is consumed. Asked for each message of the queued kind, from its window upwards.
    virtual BOOL PreTranslateMessage(MSG* message);
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
    // Enables and checks what the window holds by the update handlers of `target`; items without one are
    // disabled where `disableIfNoHandler` says so.
    void UpdateDialogControls(CCmdTarget* target, BOOL disableIfNoHandler);

    // ---- The tree
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* SetParent(CWnd* parent);       // the former one
    CWnd* GetOwner() const;              // the parent, if none is set
    void SetOwner(const CWnd* owner);    // null: the parent again
    CWnd* GetTopLevelParent() const;     // the outermost owner
    CFrameWnd* GetParentFrame() const;   // null without one
    CFrameWnd* GetTopLevelFrame() const; // the outermost frame; may be this one
    CWnd* GetWindow(UINT which) const { return FromHandle(::GetWindow(m_hWnd, which)); }
    CWnd* GetTopWindow() const { return GetWindow(GW_CHILD); }
    CWnd* GetNextWindow(UINT which = GW_HWNDNEXT) const { return GetWindow(which); }
    BOOL IsChild(const CWnd* window) const;                                         // at any depth
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); } // null without one
    CWnd* GetDescendantWindow(int id, BOOL onlyPermanent = FALSE) const;            // at any depth
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    // Answers the former id.
    int SetDlgCtrlID(int id) { return static_cast<int>(::SetWindowLongPtrA(m_hWnd, GWLP_ID, id)); }
    static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
    // Null where no window of this program is.
    static CWnd* WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }
    CWnd* ChildWindowFromPoint(POINT point) const; // in the client area; this one if no child is there

    // ---- Style, place, state
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_EXSTYLE)); }
    // Whether anything changed. Without `flags` (SWP_) nothing is sent beside the change of style.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0);
    BOOL ShowWindow(int how) { return ::ShowWindow(m_hWnd, how); }     // SW_; whether it was visible
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); } // with all its parents
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
    // Child: the parent's client area; top window: the screen, with its frame. Pixels.
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags);
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const RECT* rect, BOOL repaint = TRUE);
    void BringWindowToTop() { ::BringWindowToTop(m_hWnd); } // and active, if it is a top window
    void CenterWindow(CWnd* over = nullptr);                // null: the owner, or the screen
    void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); } // on the screen
    void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); } // left and top are 0
    void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
    void ClientToScreen(RECT* rect) const;
    void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
    void ScreenToClient(RECT* rect) const;
    void MapWindowPoints(CWnd* to, POINT* points, UINT count) const; // null: the screen
    void MapWindowPoints(CWnd* to, RECT* rect) const;
    // Whether it was disabled.
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    static const CWnd wndTop, wndBottom, wndTopMost, wndNoTopMost; // places for SetWindowPos

    // ---- Text and font
    // Caption or contents, in the active code page.
    void SetWindowText(const char* text) { ::SetWindowTextA(m_hWnd, text); }
    // Copies at most size - 1 bytes and a terminator; answers the bytes copied.
    int GetWindowText(char* buffer, int size) const { return ::GetWindowTextA(m_hWnd, buffer, size); }
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const { return ::GetWindowTextLengthA(m_hWnd); } // in bytes
    void SetDlgItemText(int id, const char* text);
    int GetDlgItemText(int id, CString& text) const; // its length
    void SetFont(HFONT font, BOOL redraw = TRUE);    // not owned
    HFONT GetFont() const { return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)); }

    // ---- Painting
    CDC* GetDC();           // temporary, to be given back
    CDC* GetWindowDC();     // with borders
    int ReleaseDC(CDC* dc); // 0: not from here
    HDC BeginPaint(PAINTSTRUCT* paint) { return ::BeginPaint(m_hWnd, paint); }
    void EndPaint(const PAINTSTRUCT* paint) { ::EndPaint(m_hWnd, paint); }
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); } // painted when idle
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
    void ValidateRect(const RECT* rect) { ::ValidateRect(m_hWnd, rect); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); } // paints now
    BOOL RedrawWindow(const RECT* rect = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE)
    {
        return ::RedrawWindow(m_hWnd, rect, region, flags);
    }
    void SetRedraw(BOOL redraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
    BOOL GetUpdateRect(RECT* rect, BOOL erase = FALSE) { return ::GetUpdateRect(m_hWnd, rect, erase); }
    // What comes into view is invalid.
    void ScrollWindow(int dx, int dy, const RECT* part = nullptr, const RECT* clip = nullptr);

    // ---- Input
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); } // the former; temporary
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); } // the former
    static CWnd* GetCapture() { return FromHandle(::GetCapture()); }
    CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
    // WM_TIMER every so many milliseconds, 10 at least; answers the id, 0 on failure.
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure = nullptr);
    BOOL KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }
    void CreateSolidCaret(int width, int height) { ::CreateCaret(m_hWnd, nullptr, width, height); }
    static void SetCaretPos(POINT point) { ::SetCaretPos(point.x, point.y); }
    static CPoint GetCaretPos();
    void ShowCaret() { ::ShowCaret(m_hWnd); }
    void HideCaret() { ::HideCaret(m_hWnd); }
    BOOL OpenClipboard();                     // FALSE: open already
    void DragAcceptFiles(BOOL accept = TRUE); // WM_DROPFILES comes

    // ---- Scroll bars and menus
    BOOL SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw = TRUE);        // fills cbSize in
    BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL) const; // mask: SIF_
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);              // the former
    int GetScrollPos(int bar) const { return ::GetScrollPos(m_hWnd, bar); }
    void SetScrollRange(int bar, int minimum, int maximum, BOOL redraw = TRUE);
    void ShowScrollBar(UINT bar, BOOL show = TRUE);
    void EnableScrollBarCtrl(int bar, BOOL enable = TRUE); // shows or hides it
    CMenu* GetMenu() const;                                // temporary; null without one
    BOOL SetMenu(CMenu* menu);                             // owned by the window from then on

    // ---- Dialogs and modal loops
    BOOL UpdateData(BOOL saveAndValidate = TRUE); // FALSE where a value is refused or its control is missing
    virtual void DoDataExchange(CDataExchange*) {}
    // Runs the toolkit's loop until EndModalLoop, and returns its result. The window need not be a dialog.
    int RunModalLoop();
    virtual void EndModalLoop(int result);
    BOOL ContinueModal() const { return m_modalDepth > 0; } // a modal loop of this window runs
    // Blocks until the user answers; the caption is the program's name, whatever `caption` says.
    int MessageBox(const char* text, const char* caption = nullptr, UINT type = 0);

protected:
    // Each message of the window; a CException* that leaves it is shown and freed.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    // The class's own procedure, or the platform's.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);                 // TRUE: done
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result); // TRUE: done
    // A message that this window sent its parent comes back; true: it is handled.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    // Sends a message back to the child that it came from.
    static BOOL ReflectLastMsg(HWND child, LRESULT* result = nullptr);
    BOOL SendChildNotifyLastMsg(LRESULT* result = nullptr);

    void OnDestroy();
    void OnNcDestroy(); // parts handle and object, then PostNcDestroy
    DECLARE_MESSAGE_MAP()

private:
    friend class CWndDispatch;
    friend class CWndMaps;

    explicit CWnd(HWND window) : m_hWnd(window) {}

    WNDPROC m_pfnSuper = nullptr; // the class's own procedure
    HWND m_hWndOwner = nullptr;
    bool m_hasMade = false;                  // the window, which goes with it
    int m_modalDepth = 0, m_modalResult = 0; // the depth is that of the loops which still run
};

// A class of windows made up from what it needs; the same needs give the same name. Kept for good.
COREKIT_API const char* AfxRegisterWndClass(UINT classStyle, HCURSOR cursor = nullptr,
                                            HBRUSH background = nullptr, HICON icon = nullptr);
COREKIT_API BOOL AfxRegisterClass(WNDCLASSA* windowClass); // true also if it is registered already
// The procedure of windows that have an object.
COREKIT_API LRESULT AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
COREKIT_API CWnd* AfxGetMainWnd(); // the thread's main window, null without one
