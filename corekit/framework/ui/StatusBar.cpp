#include "corekit/framework/ui/StatusBar.h"

#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/WindowDC.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CStatusBar, CControlBar)

BEGIN_MESSAGE_MAP(CStatusBar, CControlBar)
ON_WM_PAINT()
ON_WM_SIZE()
ON_MESSAGE(WM_SETTEXT, &CStatusBar::OnSetText)
END_MESSAGE_MAP()

namespace {

constexpr int paneMargin = 4;    // at each side of a pane's text
constexpr int leastMessage = 40; // of the pane that takes what is left

} // namespace

BOOL CStatusBar::Create(CWnd* parent, DWORD style, UINT id)
{
    m_dwStyle = style & CBRS_ALL;
    SetOwner(parent);
    return CWnd::Create(nullptr, nullptr, (style & ~CBRS_ALL) | CCS_NOPARENTALIGN, CRect(), parent, id);
}

BOOL CStatusBar::PreCreateWindow(CREATESTRUCTA& create)
{
    create.lpszClass = STATUSCLASSNAMEA;
    return TRUE;
}

// ---- Panes

BOOL CStatusBar::SetIndicators(const UINT* ids, int count)
{
    if (count < 1 || count > maximumStatusBarParts || !m_hWnd) return FALSE;
    m_panes.clear();
    for (int i = 0; i < count; ++i) {
        Pane pane{ids ? ids[i] : 0, SBPS_NORMAL, leastMessage, {}};
        if (pane.id == 0) {
            if (i == 0) pane.style = SBPS_STRETCH | SBPS_NOBORDERS;
        } else {
            pane.text.LoadString(pane.id);
            pane.width = TextWidth(pane.text);
        }
        m_panes.push_back(pane);
    }
    CRect client;
    GetClientRect(&client);
    LayPanes(client.Width());
    for (std::size_t i = 0; i < m_panes.size(); ++i) ShowPane(i);
    return TRUE;
}

BOOL CStatusBar::GetPaneInfo(int pane, UINT& id, UINT& style, int& width) const
{
    if (pane < 0 || pane >= GetPaneCount()) return FALSE;
    const Pane& one = m_panes[static_cast<std::size_t>(pane)];
    id = one.id;
    style = one.style;
    width = one.width;
    return TRUE;
}

BOOL CStatusBar::SetPaneInfo(int pane, UINT id, UINT style, int width)
{
    if (pane < 0 || pane >= GetPaneCount()) return FALSE;
    Pane& one = m_panes[static_cast<std::size_t>(pane)];
    const bool moves = one.width != width || ((one.style ^ style) & SBPS_STRETCH);
    one.id = id;
    one.style = style;
    one.width = std::clamp(width, 0, longestBar);
    CRect client;
    GetClientRect(&client);
    if (moves) LayPanes(client.Width());
    ShowPane(static_cast<std::size_t>(pane));
    return TRUE;
}

BOOL CStatusBar::SetPaneText(int pane, const char* text, BOOL update)
{
    if (pane < 0 || pane >= GetPaneCount()) return FALSE;
    Pane& one = m_panes[static_cast<std::size_t>(pane)];
    if (one.text == text) return TRUE;
    one.text = text;
    if (update) ShowPane(static_cast<std::size_t>(pane));
    return TRUE;
}

CString CStatusBar::GetPaneText(int pane) const
{
    return pane < 0 || pane >= GetPaneCount() ? CString() : m_panes[static_cast<std::size_t>(pane)].text;
}

UINT CStatusBar::GetItemID(int pane) const
{
    return pane < 0 || pane >= GetPaneCount() ? 0 : m_panes[static_cast<std::size_t>(pane)].id;
}

int CStatusBar::CommandToIndex(UINT id) const
{
    const auto found = std::ranges::find(m_panes, id, &Pane::id);
    return found == m_panes.end() ? -1 : static_cast<int>(found - m_panes.begin());
}

BOOL CStatusBar::GetItemRect(int pane, RECT* rect) const
{
    return SendMessage(SB_GETRECT, static_cast<WPARAM>(pane), reinterpret_cast<LPARAM>(rect)) != 0;
}

int CStatusBar::PaneAt(CPoint client) const
{
    CRect rect;
    for (int i = 0; i < GetPaneCount(); ++i)
        if (GetItemRect(i, &rect) && rect.PtInRect(client)) return i;
    return -1;
}

void CStatusBar::ShowPane(std::size_t pane)
{
    const Pane& one = m_panes[pane];
    const WPARAM how = one.style & (SBPS_NOBORDERS | SBPS_POPOUT | SBPS_OWNERDRAW);
    const char* const text = one.style & SBPS_DISABLED ? "" : static_cast<const char*>(one.text);
    SendMessage(SB_SETTEXTA, pane | how, reinterpret_cast<LPARAM>(text));
}

// The bar's text is that of its first pane.
LRESULT CStatusBar::OnSetText(WPARAM, LPARAM lParam)
{
    if (m_panes.empty()) return Default();
    const auto* const text = reinterpret_cast<const char*>(lParam);
    return SetPaneText(0, text ? text : "");
}

// ---- Layout

int CStatusBar::TextWidth(const char* text)
{
    CClientDC dc(this);
    const HGDIOBJ former = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    const int width = dc.GetTextExtent(text, static_cast<int>(std::char_traits<char>::length(text))).cx;
    if (former) ::SelectObject(dc, former);
    return width;
}

void CStatusBar::LayPanes(int width)
{
    int fixed = 0, stretching = 0;
    for (const Pane& pane : m_panes) {
        fixed += pane.style & SBPS_STRETCH ? 0 : pane.width + 2 * paneMargin;
        stretching += pane.style & SBPS_STRETCH ? 1 : 0;
    }
    const int share = stretching ? std::max((width - fixed) / stretching, leastMessage) : 0;
    std::vector<int> rights;
    int right = 0;
    for (const Pane& pane : m_panes)
        rights.push_back(right += pane.style & SBPS_STRETCH ? share : pane.width + 2 * paneMargin);
    if (!rights.empty()) SendMessage(SB_SETPARTS, rights.size(), reinterpret_cast<LPARAM>(rights.data()));
}

void CStatusBar::OnSize(UINT how, int width, int height)
{
    CControlBar::OnSize(how, width, height);
    LayPanes(width);
}

CSize CStatusBar::CalcFixedLayout(BOOL stretch, BOOL)
{
    CClientDC dc(this);
    const HGDIOBJ former = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    TEXTMETRICA metrics{};
    dc.GetTextMetrics(&metrics);
    if (former) ::SelectObject(dc, former);
    return {stretch ? longestBar : 0, metrics.tmHeight + 8};
}

// ---- State of the panes

class CStatusCmdUI final : public CCmdUI {
public:
    explicit CStatusCmdUI(CStatusBar& bar) : m_bar(bar) { m_pOther = &bar; }

    void Enable(BOOL on) override
    {
        m_bEnableChanged = TRUE;
        Set(on ? 0 : SBPS_DISABLED, SBPS_DISABLED);
    }
    void SetCheck(int check) override { Set(check ? SBPS_POPOUT : 0, SBPS_POPOUT); }
    void SetText(const char* text) override { m_bar.SetPaneText(static_cast<int>(m_nIndex), text); }

private:
    void Set(UINT style, UINT mask)
    {
        UINT id = 0, former = 0;
        int width = 0;
        const auto pane = static_cast<int>(m_nIndex);
        if (!m_bar.GetPaneInfo(pane, id, former, width)) return;
        if ((former & mask) != style) m_bar.SetPaneInfo(pane, id, (former & ~mask) | style, width);
    }
    CStatusBar& m_bar;
};

void CStatusBar::OnUpdateCmdUI(CFrameWnd* target, BOOL)
{
    CStatusCmdUI state(*this);
    for (int i = 0; i < GetPaneCount(); ++i) {
        state.m_nIndex = static_cast<UINT>(i);
        state.m_nID = GetItemID(i);
        state.DoUpdate(target, FALSE);
    }
}
