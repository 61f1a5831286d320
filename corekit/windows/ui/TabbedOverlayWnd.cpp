// The window's life, its panes and where everything lies.
#include "corekit/windows/ui/TabbedOverlayWnd.h"

#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/framework/Exception.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/framework/ui/View.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Cursors.h"
#include "corekit/resources/Messages.h"
#include "corekit/resources/TabKeys.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <algorithm>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CTabbedOverlayWnd, CWnd)

BEGIN_MESSAGE_MAP(CTabbedOverlayWnd, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PARENTNOTIFY()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
ON_WM_CONTEXTMENU()
ON_WM_TIMER()
ON_WM_HSCROLL()
ON_COMMAND(tabCommandNext, &CTabbedOverlayWnd::OnCTabOverlayNextTab)
ON_COMMAND(tabCommandPrevious, &CTabbedOverlayWnd::OnCTabOverlayPrevTab)
END_MESSAGE_MAP()

namespace {

constexpr UINT firstPaneId = 0x1001;
constexpr UINT horizontalBarId = 0xFF3;
constexpr int emptyBarPage = 50;
constexpr int fontMargin = 4;

} // namespace

CTabbedOverlayWnd::CTabbedOverlayWnd() = default;

CTabbedOverlayWnd::~CTabbedOverlayWnd()
{
    DestroyWindow();
    EnableKeyboardTabChange(0);
}

BOOL CTabbedOverlayWnd::Create(CWnd* parent, DWORD style, DWORD exStyle, const CRect& rect, UINT id)
{
    const char* const name =
        AfxRegisterWndClass(CS_DBLCLKS, LoadCursorA(nullptr, IDC_ARROW), GetSysColorBrush(COLOR_BTNFACE));
    return CreateEx(exStyle, name, "", style | WS_CLIPCHILDREN, rect, parent, id);
}

int CTabbedOverlayWnd::OnCreate(CREATESTRUCTA* create)
{
    if (CWnd::OnCreate(create) == -1) return -1;
    m_isDestroying = false;
    UpdateSysColourMetricCache();
    if (!MakeFonts()) return -1;
    if (!m_blackPen.m_hObject) {
        m_blackPen.CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
        m_greyPen.CreatePen(PS_SOLID, 1, RGB(0x80, 0x80, 0x80));
        m_whitePen.CreatePen(PS_SOLID, 1, RGB(0xFF, 0xFF, 0xFF));
    }
    if (!m_horizontal.Create(WS_CHILD, CRect(), this, horizontalBarId)) return -1;
    SCROLLINFO empty{sizeof empty, SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, emptyBarPage, 0, 0};
    m_horizontal.SetScrollInfo(&empty);
    return 0;
}

// Where the controls' font is not to be had, the usual face takes its place for good.
bool CTabbedOverlayWnd::MakeFonts()
{
    CUnicodeManager* const manager = CUnicodeManager::Initialise(1);
    const auto make = [&](const CFontDescriptor& font) {
        try {
            m_font.CreateFromDescriptor(font, FALSE, FALSE, FALSE);
            m_activeFont.CreateFromDescriptor(font, TRUE, FALSE, FALSE);
            return true;
        } catch (CException* error) {
            error->Delete();
            return false;
        }
    };
    CFontDescriptor font;
    manager->GetControlsFontDescriptor(font);
    if (make(font)) return true;
    CFontDescriptor usual;
    usual.SetSize(12);
    usual.AddFont("Arial");
    if (!make(usual)) return false;
    manager->SetControlsFontDescriptor(usual);
    AfxMessageBox(message::controlsFontReplaced);
    return true;
}

void CTabbedOverlayWnd::OnDestroy()
{
    m_isDestroying = true;
    EnableDragFocusSelect(0);
    CWnd::OnDestroy();
    m_panes.clear();
    m_active = -1;
    LayoutTabs();
}

// ---- Panes

UINT CTabbedOverlayWnd::FindFreeWindowID() const
{
    UINT id = firstPaneId;
    while (std::ranges::any_of(m_panes, [&](const PaneRecord& pane) { return pane.id == id; })) ++id;
    return id;
}

CWnd* CTabbedOverlayWnd::CreatePane(CRuntimeClass* paneClass, const WCHAR* title, int index,
                                    CCreateContext* context, UINT paneWidth, int activate)
{
    CObject* const made = paneClass ? paneClass->CreateObject() : nullptr;
    auto* const pane = dynamic_cast<CWnd*>(made);
    if (!pane) {
        delete made;
        return nullptr;
    }
    CRect client;
    GetClientRect(&client);
    const UINT id = FindFreeWindowID();
    if (!pane->Create(nullptr, "", WS_CHILD | WS_CLIPSIBLINGS, client, this, id, context)) return nullptr;
    const HWND window = pane->m_hWnd;
    ::SetWindowTextW(window, title);
    InsertPane(index, id, static_cast<int>(paneWidth), title, activate);
    return ::IsWindow(window) ? pane : nullptr;
}

CWnd* CTabbedOverlayWnd::CreatePane(CRuntimeClass* paneClass, UINT titleId, int index,
                                    CCreateContext* context, UINT paneWidth, int activate)
{
    CString title;
    title.LoadString(titleId);
    return CreatePane(paneClass, static_cast<const WCHAR*>(StringW(title)), index, context, paneWidth,
                      activate);
}

void CTabbedOverlayWnd::AttachPane(int index, CWnd* pane, int paneWidth, const WCHAR* title, int activate)
{
    const UINT id = FindFreeWindowID();
    pane->ShowWindow(SW_HIDE);
    pane->ModifyStyle(WS_POPUP, WS_CHILD);
    pane->SetParent(this);
    pane->SetDlgCtrlID(static_cast<int>(id));
    InsertPane(index, id, paneWidth, title, activate);
}

void CTabbedOverlayWnd::InsertPane(int index, UINT id, int width, const WCHAR* title, int activate)
{
    if (!Has(index)) index = GetPaneCount();
    m_panes.insert(m_panes.begin() + index, {id, width, title, CalcTextWidth(title), 0});
    if (m_active >= index) ++m_active;
    RecalcLayout();
    SetActivePane(activate || GetPaneCount() == 1 ? index : m_active);
}

CWnd* CTabbedOverlayWnd::DetachPane(int index, CWnd* newParent)
{
    CWnd* const pane = GetPane(index);
    if (!pane) return nullptr;
    pane->ShowWindow(SW_HIDE);
    pane->SetParent(newParent);
    RemovePane(index);
    Invalidate(TRUE);
    return pane;
}

void CTabbedOverlayWnd::OnParentNotify(UINT message, LPARAM lParam)
{
    CWnd::OnParentNotify(message, lParam);
    if (LOWORD(message) != WM_DESTROY || m_isDestroying) return;
    const auto gone =
        std::ranges::find_if(m_panes, [&](const PaneRecord& pane) { return pane.id == HIWORD(message); });
    if (gone != m_panes.end()) RemovePane(static_cast<int>(gone - m_panes.begin()));
}

void CTabbedOverlayWnd::RemovePane(int index)
{
    m_panes.erase(m_panes.begin() + index);
    m_active = activeAfterRemoval(m_active, index, GetPaneCount());
    if (m_mouse == Mouse::armed || m_mouse == Mouse::draggingTab) ReleaseCapture();
    LayoutTabs();
    m_strip.FindFirstVisible();
    RecalcLayout();
    if (m_panes.empty())
        OnChangeActivePane(nullptr, 0);
    else
        SetActivePane(m_active);
}

CWnd* CTabbedOverlayWnd::GetPane(int index) const
{
    return Has(index) ? GetDlgItem(static_cast<int>(Pane(index).id)) : nullptr;
}

int CTabbedOverlayWnd::GetPaneIndex(const WCHAR* title) const
{
    if (!title) title = u"";
    for (int index = GetPaneCount() - 1; index >= 0; --index)
        if (Pane(index).title.CompareNoCase(title) == 0) return index;
    return -1;
}

int CTabbedOverlayWnd::GetPaneIndex(const CWnd* pane) const
{
    if (!safeHandle(pane) || ::GetParent(pane->m_hWnd) != m_hWnd) return -1;
    const auto id = static_cast<UINT>(pane->GetDlgCtrlID());
    const auto found = std::ranges::find_if(m_panes, [&](const PaneRecord& p) { return p.id == id; });
    return found == m_panes.end() ? -1 : static_cast<int>(found - m_panes.begin());
}

StringW CTabbedOverlayWnd::GetPaneTitle(int index) const
{
    return Has(index) ? Pane(index).title : StringW();
}

void CTabbedOverlayWnd::SetPaneTitle(int index, const WCHAR* title)
{
    if (!Has(index)) return;
    Pane(index).title = title;
    Pane(index).textWidth = CalcTextWidth(title);
    RecalcLayout();
}

void CTabbedOverlayWnd::RenamePane(const WCHAR* oldTitle, const WCHAR* newTitle)
{
    if (const int index = GetPaneIndex(oldTitle); index >= 0) SetPaneTitle(index, newTitle);
}

void CTabbedOverlayWnd::ShowPane(int index)
{
    if (m_active >= 0) Pane(m_active).scrollPosition = m_horizontal.GetScrollPos();
    m_active = Has(index) ? index : -1;
    m_strip.BringIntoView(index);
    RedrawStrip();
    for (int other = 0; other < GetPaneCount(); ++other) {
        CWnd* const pane = other == index ? nullptr : GetPane(other);
        if (pane && pane->GetStyle() & WS_VISIBLE) pane->ShowWindow(SW_HIDE);
    }
    CWnd* const shown = GetPane(index);
    if (!shown) return;
    const HWND window = shown->m_hWnd;
    shown->ShowWindow(SW_SHOW);
    if (!::IsWindow(window) || !Has(index)) return; // it went while it was shown
    CRect client;
    GetClientRect(&client);
    const PaneRecord& pane = Pane(index);
    if (pane.width > client.Width()) {
        shown->MoveWindow(-pane.scrollPosition, 0, pane.width, m_strip.PaneHeight());
        shown->Invalidate();
    }
    RecalcScrollbars();
}

void CTabbedOverlayWnd::SetActivePane(int index)
{
    ShowPane(index);
    CWnd* const pane = GetPane(index);
    const HWND window = safeHandle(pane);
    auto* const view = dynamic_cast<CView*>(pane);
    if (CFrameWnd* const frame = view ? view->GetParentFrame() : nullptr)
        frame->SetActiveView(view);
    else if (window)
        ::SetFocus(window);
    if (window && ::IsWindow(window)) OnChangeActivePane(FromHandle(window), 1);
}

int CTabbedOverlayWnd::GetPaneWidth(int index) const
{
    return Has(index) ? m_strip.Right(index) - m_strip.Left(index) : 0;
}

int CTabbedOverlayWnd::SetPaneWidth(int, int width) { return SetActivePaneWidth(width); }

int CTabbedOverlayWnd::SetPaneWidth(const WCHAR* title, int width)
{
    return SetPaneWidth(GetPaneIndex(title), width);
}

int CTabbedOverlayWnd::SetActivePaneWidth(int width)
{
    CWnd* const pane = GetActivePane();
    if (!pane) return -1;
    const int former = std::exchange(Pane(m_active).width, width);
    CRect client;
    GetClientRect(&client);
    if (width)
        pane->MoveWindow(-m_horizontal.GetScrollPos(), 0, width, m_strip.PaneHeight());
    else
        pane->MoveWindow(0, 0, client.Width(), m_strip.PaneHeight());
    DoSize(client.Width(), client.Height());
    RecalcScrollbars();
    return former;
}

// ---- Layout

int CTabbedOverlayWnd::CalcTabsHeight()
{
    if (GetPaneCount() < (m_collapsesSingle ? 2 : 1)) return 0;
    return std::max(m_font.GetHeight(), m_activeFont.GetHeight()) + fontMargin;
}

int CTabbedOverlayWnd::CalcTextWidth(const WCHAR* title)
{
    CClientDC dc(nullptr);
    m_activeFont.AttachDC(dc);
    const int width = m_activeFont.CalcLogicalStringSize(title, -1, 0).cx;
    m_activeFont.DetachDC();
    return width;
}

void CTabbedOverlayWnd::LayoutTabs()
{
    std::vector<int> widths;
    widths.reserve(m_panes.size());
    for (const PaneRecord& pane : m_panes) widths.push_back(pane.textWidth + 2 * std::max(m_tabHeight, 0));
    m_strip.SetTabs(widths);
}

void CTabbedOverlayWnd::RecalcLayout()
{
    m_tabHeight = -1;
    Invalidate(FALSE);
    CRect client;
    GetClientRect(&client);
    DoSize(client.Width(), client.Height());
}

void CTabbedOverlayWnd::DoSize(int width, int height)
{
    if (m_tabHeight < 0) m_tabHeight = CalcTabsHeight();
    LayoutTabs();
    m_strip.Resize({width, height}, m_tabHeight);
    const CRect bar = m_strip.ScrollBarRect();
    if (!bar.IsRectEmpty()) m_horizontal.MoveWindow(&bar);
    m_horizontal.ShowWindow(bar.IsRectEmpty() ? SW_HIDE : SW_SHOW);
    PlacePanes(width);
}

void CTabbedOverlayWnd::PlacePanes(int width)
{
    for (int index = 0; index < GetPaneCount(); ++index) {
        CWnd* const pane = index == m_active ? nullptr : GetPane(index);
        if (pane) pane->MoveWindow(0, 0, width, m_strip.PaneHeight());
    }
    if (CWnd* const pane = GetActivePane())
        pane->MoveWindow(m_scrollsPanes ? -m_horizontal.GetScrollPos() : 0, 0,
                         std::max(Pane(m_active).width, width), m_strip.PaneHeight());
}

void CTabbedOverlayWnd::OnSize(UINT how, int width, int height)
{
    CWnd::OnSize(how, width, height);
    RecalcScrollbars(); // first, as the pane goes where its bar says
    DoSize(width, height);
    Invalidate(FALSE);
}

void CTabbedOverlayWnd::RecalcScrollbars()
{
    if (m_active < 0) return;
    CRect client;
    GetClientRect(&client);
    const int width = Pane(m_active).width;
    SCROLLINFO info{sizeof info, SIF_RANGE | SIF_PAGE | SIF_POS, 0, width, 0, 0, 0};
    info.nPage = static_cast<UINT>(std::min(width, client.Width()));
    m_horizontal.SetScrollInfo(&info);
    m_horizontal.Invalidate();
    const CRect splitter = m_strip.SplitterRect();
    if (!splitter.IsRectEmpty()) InvalidateRect(&splitter, FALSE);
}

void CTabbedOverlayWnd::EnableHorizScroll(int enable)
{
    if (m_scrollsPanes == (enable != 0)) return;
    m_scrollsPanes = enable != 0;
    CRect client;
    GetClientRect(&client);
    m_strip.SetScrollBar(m_scrollsPanes);
    m_strip.MoveSplitter(client.Width() / 2);
    RecalcLayout();
}

void CTabbedOverlayWnd::EnableSingleTabCollapse(int enable)
{
    if (m_collapsesSingle == (enable != 0)) return;
    m_collapsesSingle = enable != 0;
    RecalcLayout();
}

// ---- Keys, commands, focus

void CTabbedOverlayWnd::EnableKeyboardTabChange(int enable)
{
    if (enable && !m_accelerators) m_accelerators = AfxLoadAccelerators(tabKeys);
    if (!enable && m_accelerators) DestroyAcceleratorTable(std::exchange(m_accelerators, nullptr));
}

BOOL CTabbedOverlayWnd::PreTranslateMessage(MSG* message)
{
    if (m_accelerators && TranslateAcceleratorA(m_hWnd, m_accelerators, message)) return TRUE;
    return CWnd::PreTranslateMessage(message);
}

void CTabbedOverlayWnd::StepPane(int step)
{
    const int count = GetPaneCount();
    if (count > 0) SetActivePane((m_active + step + count) % count);
}

void CTabbedOverlayWnd::OnCTabOverlayNextTab() { StepPane(1); }
void CTabbedOverlayWnd::OnCTabOverlayPrevTab() { StepPane(-1); }

BOOL CTabbedOverlayWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    if (CWnd::OnCmdMsg(id, code, extra, info)) return TRUE;
    CWnd* const pane = GetActivePane();
    return pane && pane->OnCmdMsg(id, code, extra, info);
}

void CTabbedOverlayWnd::OnSetFocus(CWnd*)
{
    if (CWnd* const pane = GetActivePane()) pane->SetFocus();
}
