#include "corekit/framework/ui/View.h"

#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/ui/ViewFrame.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/SystemColours.h"

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PAINT()
ON_WM_MOUSEACTIVATE()
ON_MESSAGE(WM_INITIALUPDATE, &CView::OnInitialUpdateMessage)
END_MESSAGE_MAP()

namespace {

// The nearest above it; null without one.
corekit::detail::ViewFrame* frameOf(const CView& view)
{
    for (CWnd* above = view.GetParent(); above; above = above->GetParent())
        if (auto* const frame = dynamic_cast<corekit::detail::ViewFrame*>(above)) return frame;
    return nullptr;
}

} // namespace

void CDocument::AddView(CView* view) { Enlist(view, *view); }

CView::~CView()
{
    if (m_pDocument) m_pDocument->RemoveView(this);
}

BOOL CView::PreCreateWindow(CREATESTRUCTA& create)
{
    if (!create.lpszClass)
        create.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, LoadCursorA(nullptr, IDC_ARROW),
                                               reinterpret_cast<HBRUSH>(std::size_t{COLOR_WINDOW + 1}));
    return create.lpszClass != nullptr;
}

int CView::OnCreate(CREATESTRUCTA* create)
{
    if (CWnd::OnCreate(create) == -1) return -1;
    const auto* const context = static_cast<const CCreateContext*>(create->lpCreateParams);
    if (context && context->m_pCurrentDoc) context->m_pCurrentDoc->AddView(this);
    return 0;
}

void CView::OnDestroy()
{
    if (auto* const frame = frameOf(*this); frame && frame->GetActiveView() == this)
        frame->SetActiveView(nullptr);
    CWnd::OnDestroy();
}

void CView::PostNcDestroy() { delete this; }

void CView::OnPaint()
{
    PAINTSTRUCT paint;
    if (CDC* const dc = CDC::FromHandle(BeginPaint(&paint))) OnDraw(dc);
    if (m_hWnd) EndPaint(&paint);
}

int CView::OnMouseActivate(CWnd* top, UINT hit, UINT message)
{
    const int answer = CWnd::OnMouseActivate(top, hit, message);
    if (answer == MA_NOACTIVATE || answer == MA_NOACTIVATEANDEAT) return answer;
    auto* const frame = frameOf(*this);
    if (frame && frame->GetActiveView() != this) frame->SetActiveView(this);
    return answer;
}

LRESULT CView::OnInitialUpdateMessage(WPARAM, LPARAM)
{
    OnInitialUpdate();
    return 0;
}

BOOL CView::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    if (CWnd::OnCmdMsg(id, code, extra, info)) return TRUE;
    return m_pDocument && m_pDocument->OnCmdMsg(id, code, extra, info);
}

void CView::OnUpdate(CView*, LPARAM, CObject*)
{
    if (m_hWnd) Invalidate();
}

void CView::OnActivateView(BOOL activate, CView*, CView*)
{
    const CWnd* const top = activate ? GetTopLevelParent() : nullptr;
    if (top && top->m_hWnd == ::GetActiveWindow()) SetFocus();
}
