#include "corekit/framework/ui/DockBar.h"

#include "corekit/framework/BarLayout.h"
#include "corekit/framework/ui/FrameMessages.h"
#include "corekit/framework/ui/FrameWnd.h"

#include <algorithm>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CDockBar, CControlBar)

BEGIN_MESSAGE_MAP(CDockBar, CControlBar)
ON_MESSAGE(WM_SIZEPARENT, &CDockBar::OnSizeParent)
END_MESSAGE_MAP()

CDockBar::CDockBar(BOOL floating)
{
    if (floating) m_dwStyle = CBRS_FLOATING;
}

BOOL CDockBar::Create(CWnd* parent, DWORD style, UINT id)
{
    m_dwStyle = (m_dwStyle & CBRS_FLOATING) | (style & CBRS_ALL);
    return CWnd::Create(nullptr, nullptr, (style & ~CBRS_ALL) | WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                        CRect(), parent, id);
}

// ---- What stands here

int CDockBar::GetDockedCount() const
{
    std::size_t count = 0;
    for (const Row& row : m_rows) count += row.size();
    return static_cast<int>(count);
}

int CDockBar::GetDockedVisibleCount() const
{
    int count = 0;
    for (const Row& row : m_rows)
        count +=
            static_cast<int>(std::ranges::count_if(row, [](const Place& p) { return p.bar->IsVisible(); }));
    return count;
}

CControlBar* CDockBar::GetDockedControlBar(int index) const
{
    for (const Row& row : m_rows) {
        if (index >= 0 && index < static_cast<int>(row.size()))
            return row[static_cast<std::size_t>(index)].bar;
        index -= static_cast<int>(row.size());
    }
    return nullptr;
}

BOOL CDockBar::HasBar(const CControlBar* bar) const { return WantedPlace(bar).has_value(); }

std::optional<CPoint> CDockBar::WantedPlace(const CControlBar* bar) const
{
    for (const Row& row : m_rows)
        for (const Place& place : row)
            if (place.bar == bar) return place.wanted;
    return std::nullopt;
}

CPoint CDockBar::PlaceOf(const CControlBar& bar) const
{
    CRect rect;
    bar.GetWindowRect(&rect);
    ScreenToClient(&rect);
    return WantedPlace(&bar).value_or(rect.TopLeft());
}

void CDockBar::SetDockOf(CControlBar& bar, CDockBar* dock)
{
    bar.m_pDockBar = dock;
    bar.m_dock = dock;
}

void CDockBar::TakeIn(CControlBar* bar)
{
    CDockBar* const former = bar->m_pDockBar;
    const DWORD style = bar->GetBarStyle() & ~(CBRS_ALIGN_ANY | CBRS_FLOATING);
    bar->SetParent(this);
    if (former && former != this) former->RemoveControlBar(bar);
    SetDockOf(*bar, this);
    bar->SetBarStyle(style | (m_dwStyle & (CBRS_ALIGN_ANY | CBRS_FLOATING)) | CBRS_BORDER_ANY);
    if (bar->IsVisible() && !(bar->GetStyle() & WS_VISIBLE)) bar->ShowWindow(SW_SHOWNA);
}

std::vector<CDockBar::Row>::iterator CDockBar::RowAt(int across, bool& isWithin)
{
    isWithin = false;
    for (auto row = m_rows.begin(); row != m_rows.end(); ++row) {
        int low = longestBar, high = -longestBar;
        for (const Place& place : *row) {
            if (!place.bar->IsVisible()) continue;
            CRect rect;
            place.bar->GetWindowRect(&rect);
            ScreenToClient(&rect);
            low = std::min<int>(low, Lies() ? rect.top : rect.left);
            high = std::max<int>(high, Lies() ? rect.bottom : rect.right);
        }
        if (low > high) continue;
        isWithin = across >= low && across < high;
        if (across < high) return row;
    }
    return m_rows.end();
}

void CDockBar::DockControlBar(CControlBar* bar, const RECT* screen)
{
    CRect wanted;
    if (screen) wanted = CRect(*screen);
    ScreenToClient(&wanted);
    // A bar that moves within the dock leaves its place first; what stays has the places of the last layout.
    for (auto row = m_rows.begin(); row != m_rows.end();) {
        std::erase_if(*row, [bar](const Place& place) { return place.bar == bar; });
        row = row->empty() ? m_rows.erase(row) : row + 1;
    }
    TakeIn(bar);
    const Place place{bar, wanted.TopLeft()};
    if (!screen) {
        m_rows.push_back({{bar, CPoint()}});
        return;
    }
    if (!m_rows.empty()) Arrange(Lies() ? m_room.Width() : m_room.Height(), true);
    const CPoint middle = wanted.CenterPoint();
    bool isWithin = false;
    const auto row = RowAt(Lies() ? middle.y : middle.x, isWithin);
    if (!isWithin) {
        m_rows.insert(row, {place});
        return;
    }
    const auto along = [this](CPoint p) { return Lies() ? p.x : p.y; };
    const auto before = std::ranges::find_if(
        *row, [&](const Place& other) { return along(other.wanted) > along(place.wanted); });
    row->insert(before, place);
}

BOOL CDockBar::RemoveControlBar(CControlBar* bar)
{
    bool found = false;
    for (Row& row : m_rows)
        found |= std::erase_if(row, [bar](const Place& place) { return place.bar == bar; }) > 0;
    if (!found) return FALSE;
    std::erase_if(m_rows, [](const Row& row) { return row.empty(); });
    if (bar->m_pDockBar == this) SetDockOf(*bar, nullptr);
    if (!m_rows.empty() || !IsFloating() || !m_hWnd) return TRUE;
    if (CFrameWnd* const frame = GetParentFrame()) frame->DestroyWindow();
    return TRUE;
}

// ---- Layout

CSize CDockBar::Arrange(int length, bool moves)
{
    std::vector<std::vector<DockedBar>> rows;
    std::vector<CControlBar*> bars;
    for (const Row& row : m_rows) {
        std::vector<DockedBar> line;
        for (const Place& place : row) {
            if (!place.bar->IsVisible()) continue;
            const DWORD style = place.bar->GetBarStyle();
            DWORD mode = Lies() ? LM_HORZ | LM_HORZDOCK : LM_VERTDOCK;
            if (IsFloating() && style & CBRS_SIZE_DYNAMIC) mode = LM_HORZ | LM_MRUWIDTH;
            DockedBar bar;
            bar.size = place.bar->CalcDynamicLayout(-1, mode);
            bar.wanted = Lies() ? place.wanted.x : place.wanted.y;
            line.push_back(bar);
            bars.push_back(place.bar);
        }
        if (!line.empty()) rows.push_back(std::move(line));
    }
    const CRect around = bars.empty() ? CRect() : RoomAround();
    const int inside = length - (Lies() ? around.left + around.right : around.top + around.bottom);
    const CSize size = layOutDockRows(rows, Lies() ? Lying::horizontal : Lying::vertical, inside);
    std::size_t next = 0;
    for (const auto& row : rows) {
        for (const DockedBar& bar : row) {
            if (!moves) break;
            CRect at = bar.rect + around.TopLeft(), now;
            CControlBar* const window = bars[next++];
            window->GetWindowRect(&now);
            ScreenToClient(&now);
            if (at != now)
                window->SetWindowPos(nullptr, at.left, at.top, at.Width(), at.Height(),
                                     SWP_NOACTIVATE | SWP_NOZORDER);
        }
    }
    return size + CSize(around.left + around.right, around.top + around.bottom);
}

CSize CDockBar::CalcFixedLayout(BOOL stretch, BOOL horizontal)
{
    if (!m_hWnd || GetDockedVisibleCount() == 0)
        return {stretch && horizontal ? longestBar : 0, stretch && !horizontal ? longestBar : 0};
    const bool knowsRoom = !m_room.IsRectEmpty();
    const int length = !knowsRoom ? longestBar : Lies() ? m_room.Width() : m_room.Height();
    CSize size = Arrange(length, !m_onlyAsked);
    if (stretch) (horizontal ? size.cx : size.cy) = longestBar;
    return size;
}

LRESULT CDockBar::OnSizeParent(WPARAM wParam, LPARAM lParam)
{
    const auto& room = *reinterpret_cast<const AFX_SIZEPARENTPARAMS*>(lParam);
    m_onlyAsked = !room.hDWP;
    m_room = CRect(room.rect);
    const LRESULT result = CControlBar::OnSizeParent(wParam, lParam);
    m_onlyAsked = false;
    return result;
}

// ---- Records

void CDockBar::GetBarInfo(CControlBarInfo& info) const
{
    CControlBar::GetBarInfo(info);
    info.m_bDocking = FALSE;
    info.m_bDockBar = TRUE;
    info.m_bHorz = Lies();
    info.m_bFloating = IsFloating();
    if (info.m_bFloating) {
        CRect frame;
        GetParent()->GetWindowRect(&frame);
        info.m_pointPos = frame.TopLeft();
    }
    info.m_arrBarID.assign(1, 0);
    for (const Row& row : m_rows) {
        for (const Place& place : row)
            info.m_arrBarID.push_back(static_cast<UINT>(place.bar->GetDlgCtrlID()));
        info.m_arrBarID.push_back(0);
    }
}

// A dock is there as long as its frame.
void CDockBar::SetBarInfo(const CControlBarInfo&) {}

void CDockBar::SetRows(const std::vector<UINT>& ids, const std::vector<CControlBarInfo>& places,
                       CFrameWnd& site)
{
    // What stands here already leaves its place for the one that is named.
    std::vector<Row> rows;
    bool startsRow = true;
    for (const UINT id : ids) {
        CControlBar* const bar = id ? site.GetControlBar(id) : nullptr;
        startsRow |= id == 0;
        if (!bar || bar->IsDockBar() || bar->m_dwDockStyle == 0) continue;
        const auto isBar = [bar](const Place& place) { return place.bar == bar; };
        if (std::ranges::any_of(rows, [&](const Row& row) { return std::ranges::any_of(row, isBar); }))
            continue;
        for (Row& row : m_rows) std::erase_if(row, isBar);
        const auto known = std::ranges::find(places, id, &CControlBarInfo::m_nBarID);
        TakeIn(bar);
        if (startsRow) rows.emplace_back();
        rows.back().push_back({bar, known == places.end() ? CPoint() : known->m_pointPos});
        startsRow = false;
    }
    std::erase_if(m_rows, [](const Row& row) { return row.empty(); });
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
}
