#include "corekit/framework/ui/FrameWnd.h"

#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/ControlBarStyles.h"
#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/framework/ui/View.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/SystemColours.h"

IMPLEMENT_DYNAMIC(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SETFOCUS()
ON_WM_ACTIVATE()
ON_WM_SIZE()
ON_WM_INITMENUPOPUP()
ON_WM_ERASEBKGND()
ON_WM_MENUSELECT()
ON_WM_SHOWWINDOW()
ON_MESSAGE(WM_IDLEUPDATECMDUI, &CFrameWnd::OnIdleUpdateCmdUI)
END_MESSAGE_MAP()

CFrameWnd* CWnd::GetParentFrame() const
{
    for (CWnd* above = GetParent(); above; above = above->GetParent())
        if (auto* const frame = dynamic_cast<CFrameWnd*>(above)) return frame;
    return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const
{
    CFrameWnd* frame = dynamic_cast<CFrameWnd*>(const_cast<CWnd*>(this));
    if (!frame) frame = GetParentFrame();
    while (frame)
        if (CFrameWnd* const above = frame->GetParentFrame())
            frame = above;
        else
            break;
    return frame;
}

BOOL CFrameWnd::Create(const char* className, const char* title, DWORD style, const RECT* rect, CWnd* parent,
                       HMENU menu, DWORD exStyle, CCreateContext* context)
{
    const bool isPlaced = rect && rect->right > rect->left;
    return CreateEx(exStyle, className, title, style, isPlaced ? rect->left : CW_USEDEFAULT,
                    isPlaced ? rect->top : CW_USEDEFAULT, isPlaced ? rect->right - rect->left : CW_USEDEFAULT,
                    isPlaced ? rect->bottom - rect->top : CW_USEDEFAULT, corekit::detail::safeHandle(parent),
                    menu, context);
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCTA& create)
{
    if (!create.lpszClass)
        create.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, LoadCursorA(nullptr, IDC_ARROW),
                                               reinterpret_cast<HBRUSH>(std::size_t{COLOR_WINDOW + 1}));
    return create.lpszClass != nullptr;
}

void CFrameWnd::PostNcDestroy() { delete this; }

int CFrameWnd::OnCreate(CREATESTRUCTA* create)
{
    if (CWnd::OnCreate(create) == -1) return -1;
    if (!OnCreateClient(create, static_cast<CCreateContext*>(create->lpCreateParams))) return -1;
    PostMessage(WM_IDLEUPDATECMDUI, TRUE);
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(CREATESTRUCTA*, CCreateContext* context)
{
    return !context || !context->m_pNewViewClass || CreateView(context);
}

CWnd* CFrameWnd::CreateView(CCreateContext* context, UINT id)
{
    if (!context || !context->m_pNewViewClass ||
        !context->m_pNewViewClass->IsDerivedFrom(RUNTIME_CLASS(CWnd)))
        return nullptr;
    auto* const view = static_cast<CWnd*>(context->m_pNewViewClass->CreateObject());
    // One that cannot be made deletes itself.
    if (!view || !view->Create(nullptr, nullptr, WS_VISIBLE, CRect(0, 0, 0, 0), this, id, context))
        return nullptr;
    return view;
}

void CFrameWnd::InitialUpdateFrame(CDocument*, BOOL makeVisible)
{
    if (!m_pViewActive)
        if (auto* const view = dynamic_cast<CView*>(GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE)))
            SetActiveView(view, FALSE);
    SendMessageToDescendants(WM_INITIALUPDATE);
    if (!makeVisible || !m_hWnd) return;
    ShowWindow(SW_SHOW);
    if (m_pViewActive) m_pViewActive->OnActivateView(TRUE, m_pViewActive, m_pViewActive);
}

void CFrameWnd::OnDestroy()
{
    m_pViewActive = nullptr;
    CWnd::OnDestroy();
}

void CFrameWnd::SetActiveView(CView* view, BOOL notify)
{
    CView* const former = m_pViewActive;
    if (view == former) return;
    m_pViewActive = nullptr;
    if (former && notify) former->OnActivateView(FALSE, view, former);
    if (m_pViewActive) return; // another one took the place meanwhile
    m_pViewActive = view;
    if (view && notify) view->OnActivateView(TRUE, view, former);
}

CDocument* CFrameWnd::GetActiveDocument() { return m_pViewActive ? m_pViewActive->GetDocument() : nullptr; }

void CFrameWnd::OnSetFocus(CWnd* former)
{
    m_pViewActive ? static_cast<void>(m_pViewActive->SetFocus()) : CWnd::OnSetFocus(former);
}

void CFrameWnd::OnActivate(UINT state, CWnd* other, BOOL minimised)
{
    CWnd::OnActivate(state, other, minimised);
    if (state != WA_INACTIVE && m_pViewActive)
        m_pViewActive->OnActivateView(TRUE, m_pViewActive, m_pViewActive);
}

void CFrameWnd::OnSize(UINT how, int width, int height)
{
    CWnd::OnSize(how, width, height);
    if (how != SIZE_MINIMIZED) RecalcLayout();
}

// A view covers the frame.
BOOL CFrameWnd::OnEraseBkgnd(CDC* dc) { return m_pViewActive ? TRUE : CWnd::OnEraseBkgnd(dc); }

// Bars that float come and go with the frame.
void CFrameWnd::OnShowWindow(BOOL show, UINT why)
{
    CWnd::OnShowWindow(show, why);
    DelayRecalcLayout();
}

// ---- What the status bar says

void CFrameWnd::SetMessageText(const char* text)
{
    if (CWnd* const bar = GetDlgItem(static_cast<int>(AFX_IDW_STATUS_BAR))) bar->SetWindowText(text);
}

void CFrameWnd::SetMessageText(UINT stringId)
{
    CString text;
    text.LoadString(stringId);
    const int end = text.Find('\n');
    SetMessageText(end < 0 ? text : text.Left(end));
}

void CFrameWnd::OnMenuSelect(UINT id, UINT flags, HMENU menu)
{
    constexpr UINT idleMessage = 0xE001, menuClosed = 0xFFFF;
    const bool isCommand = flags != menuClosed && !(flags & (MF_POPUP | MF_SEPARATOR));
    SetMessageText(isCommand ? id : idleMessage);
    CWnd::OnMenuSelect(id, flags, menu);
}

void CFrameWnd::OnInitMenuPopup(CMenu* menu, UINT, BOOL isSystemMenu)
{
    if (isSystemMenu) return;
    CCmdUI state;
    state.m_pMenu = menu;
    for (UINT i = 0; i < menu->GetMenuItemCount(); ++i) {
        state.m_nIndex = i;
        state.m_nID = menu->GetMenuItemID(static_cast<int>(i));
        constexpr UINT opensMenu = 0xFFFFFFFF;
        if (state.m_nID == 0 || state.m_nID == opensMenu) continue;
        state.DoUpdate(this, m_bAutoMenuEnable && state.m_nID < 0xF000);
    }
}

BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    if (m_pViewActive && m_pViewActive->OnCmdMsg(id, code, extra, info)) return TRUE;
    if (CWnd::OnCmdMsg(id, code, extra, info)) return TRUE;
    CWinApp* const app = AfxGetApp();
    return app && app->OnCmdMsg(id, code, extra, info);
}

BOOL CFrameWnd::PreTranslateMessage(MSG* message)
{
    if (CWnd::PreTranslateMessage(message)) return TRUE;
    return m_hAccelTable && m_hWnd && ::TranslateAcceleratorA(m_hWnd, m_hAccelTable, message);
}
