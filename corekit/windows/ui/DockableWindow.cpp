#include "corekit/windows/ui/DockableWindow.h"

#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Gdi.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CDockableWindow, CControlBar)

BEGIN_MESSAGE_MAP(CDockableWindow, CControlBar)
ON_WM_CREATE()
ON_WM_SIZE()
END_MESSAGE_MAP()

CString CDockableWindow::m_strClass;

namespace {
constexpr int sideMargin = 6, endMargin = 4;
constexpr CSize margins(2 * sideMargin, 2 * endMargin);
} // namespace

CDockableWindow::CDockableWindow()
{
    if (m_strClass.IsEmpty())
        m_strClass =
            AfxRegisterWndClass(CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS, LoadCursorA(nullptr, IDC_ARROW),
                                static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
}

BOOL CDockableWindow::Create(CWnd* parent, UINT id, const char* name, const CRect& rect, DWORD style,
                             CCreateContext* context)
{
    m_dwStyle = style & CBRS_ALL;
    SetOwner(parent);
    return CWnd::Create(m_strClass, name, (style & ~CBRS_ALL) | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, rect,
                        parent, id, context);
}

int CDockableWindow::OnCreate(CREATESTRUCTA* create)
{
    if (CControlBar::OnCreate(create) == -1) return -1;
    m_size = m_savedSize = CSize(create->cx, create->cy);
    return OnCreateContents(create, create->lpCreateParams) > 0 ? 0 : -1;
}

CSize CDockableWindow::CalcFixedLayout(BOOL stretch, BOOL horizontal)
{
    return CalcContentSize(stretch, horizontal) + margins;
}

CSize CDockableWindow::CalcDynamicLayout(int length, DWORD mode)
{
    if (!(m_dwStyle & CBRS_SIZE_DYNAMIC)) return CalcFixedLayout(mode & LM_STRETCH, (mode & LM_HORZ) != 0);
    CSize size = m_savedSize;
    if (mode & LM_MRUWIDTH) {
        // as it is
    } else if (mode & (LM_HORZDOCK | LM_VERTDOCK)) {
        size = CalcDockedSize((mode & LM_HORZ) != 0, m_savedSize.cx, m_savedSize.cy);
    } else {
        size = m_size =
            mode & LM_LENGTHY ? CalcFloatingSize(m_size.cx, length) : CalcFloatingSize(length, m_size.cy);
        if (mode & LM_COMMIT) m_savedSize = m_size;
    }
    return size + margins;
}

void CDockableWindow::OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler)
{
    UpdateDialogControls(target, disableIfNoHandler);
}

void CDockableWindow::OnSize(UINT how, int width, int height) { ChangeSize(how, width, height); }

void CDockableWindow::ChangeSize(UINT, int, int)
{
    Default();
    CWnd* const contents = GetDlgItem(static_cast<int>(contentsId));
    if (!contents) return;
    CRect inside;
    GetClientRect(&inside);
    inside.DeflateRect(sideMargin, endMargin);
    contents->MoveWindow(inside.left, inside.top, std::max(inside.Width(), 0), std::max(inside.Height(), 0));
}
