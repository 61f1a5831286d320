#include "corekit/windows/ui/MultiViewListBox.h"

#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Cursors.h"

IMPLEMENT_DYNAMIC(CMultiViewListBox, CWnd)

BEGIN_MESSAGE_MAP(CMultiViewListBox, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

namespace {

constexpr UINT listId = 0x1001, headerId = 0x1002;
constexpr int headerHeight = 25, headerHeightOnChange = 20;
constexpr int otherRowHeight = 20;

constexpr DWORD listStyle =
    WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL | LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT;
constexpr DWORD headerStyle = WS_CHILD | HDS_BUTTONS | 1;

} // namespace

CMultiViewListBox::CMultiViewListBox() = default;

CMultiViewListBox::~CMultiViewListBox() { DestroyWindow(); }

BOOL CMultiViewListBox::Create(CWnd* parent, UINT id, DWORD style, const RECT& rect, eMVLBMode mode)
{
    m_view.mode = mode;
    m_view.isMultiSelect = style & MVLBS_MULTISELECT;
    m_view.isSorted = style & MVLBS_SORT;
    m_list.MakeFonts();
    UpdateSysColourMetricCache();
    const char* const name = AfxRegisterWndClass(0, LoadCursorA(nullptr, IDC_ARROW));
    return CWnd::Create(name, "multiview list box", style, rect, parent, id);
}

int CMultiViewListBox::OnCreate(CREATESTRUCTA* create)
{
    if (CWnd::OnCreate(create) == -1) return -1;
    const DWORD visible = m_view.mode == eMVLBMode_Details ? WS_VISIBLE : 0;
    if (!m_header.Create(headerStyle | visible, CRect(0, 0, 10, headerHeight), this, headerId)) return -1;
    if (!MakeList()) return -1;
    ApplyMode(headerHeight);
    return 0;
}

BOOL CMultiViewListBox::MakeList()
{
    DWORD style = listStyle;
    if (m_view.mode != eMVLBMode_Details) style |= LBS_MULTICOLUMN;
    if (m_view.isMultiSelect) style |= LBS_MULTIPLESEL | LBS_EXTENDEDSEL;
    if (m_view.isSorted) style |= LBS_SORT;
    return m_list.Create(style, CRect(), this, listId);
}

// ---- The view

void CMultiViewListBox::SetViewMode(eMVLBMode mode)
{
    if (mode == m_view.mode) return;
    const bool isRebuilt = mode == eMVLBMode_Details || m_view.mode == eMVLBMode_Details;
    m_view.mode = mode;
    if (isRebuilt) {
        const std::vector<ItemState> states = TakeStates();
        m_list.DestroyWindow();
        if (!MakeList()) return;
        PutBack(states);
    }
    ApplyMode(headerHeightOnChange);
}

int CMultiViewListBox::RowHeight()
{
    switch (m_view.mode) {
    case eMVLBMode_Grid:
        return m_view.cellSize.cy;
    case eMVLBMode_Details:
    case eMVLBMode_List:
        return m_list.GetRowHeight();
    }
    return otherRowHeight;
}

void CMultiViewListBox::ApplyMode(int height)
{
    m_header.ShowWindow(m_view.mode == eMVLBMode_Details ? SW_SHOW : SW_HIDE);
    if (m_view.mode == eMVLBMode_Details)
        m_list.SetHorizontalExtent(m_detailsExtent);
    else
        m_list.SetColumnWidth(m_view.mode == eMVLBMode_Grid ? m_view.cellSize.cx : m_listColumnWidth);
    m_list.SetItemHeight(0, static_cast<UINT>(RowHeight()));
    PlaceChildren(height);
    m_list.Invalidate();
}

void CMultiViewListBox::PlaceChildren(int height)
{
    CRect client;
    GetClientRect(&client);
    if (m_view.mode == eMVLBMode_Details) {
        m_header.MoveWindow(0, 0, client.Width(), height);
        CRect header;
        m_header.GetWindowRect(&header);
        client.top += header.Height();
    }
    m_list.MoveWindow(&client);
}

void CMultiViewListBox::OnSize(UINT how, int width, int height)
{
    CWnd::OnSize(how, width, height);
    if (m_list.m_hWnd) PlaceChildren(headerHeight);
}

void CMultiViewListBox::OnSetFocus(CWnd*) { m_list.SetFocus(); }

void CMultiViewListBox::OnMeasureItem(int id, MEASUREITEMSTRUCT* measure)
{
    if (id == static_cast<int>(listId))
        measure->itemHeight = static_cast<UINT>(RowHeight());
    else
        CWnd::OnMeasureItem(id, measure);
}

void CMultiViewListBox::SetGridSize(SIZE picture, SIZE cell)
{
    m_view.pictureSize = picture;
    m_view.cellSize = cell;
    if (m_view.mode == eMVLBMode_Grid) ApplyMode(headerHeight);
}

void CMultiViewListBox::SetListModeWidth(int width)
{
    m_listColumnWidth = width;
    if (m_view.mode == eMVLBMode_List) m_list.SetColumnWidth(width);
}

void CMultiViewListBox::SetDetailsModeHorizontalExtent(int width)
{
    m_detailsExtent = width;
    if (m_view.mode == eMVLBMode_Details) m_list.SetHorizontalExtent(width);
}

// ---- Columns

void CMultiViewListBox::RepaintDetails()
{
    if (m_view.mode == eMVLBMode_Details) m_list.Invalidate();
}

void CMultiViewListBox::AppendColumn(eMVLBAlign align, int dataColumn, int width, const char* title)
{
    m_view.columns.Add({align, dataColumn, width});
    m_header.AppendColumn(width, title);
    RepaintDetails();
}

void CMultiViewListBox::SetColumnWidth(int column, int width)
{
    if (column < 0 || column >= m_view.columns.GetSize()) return;
    m_view.columns[column].width = width;
    m_header.SetColumnWidth(column, width);
    RepaintDetails();
    OnColumnWidthChange(column, width);
}

int CMultiViewListBox::GetColumnWidth(int column) const
{
    return column >= 0 && column < m_view.columns.GetSize() ? m_view.columns.GetAt(column).width : 0;
}

int CMultiViewListBox::GetTotalColumnWidth() const
{
    int total = 0;
    for (int i = 0; i < m_view.columns.GetSize(); ++i) total += m_view.columns.GetAt(i).width;
    return total;
}

void CMultiViewListBox::SetSortColumn(int column)
{
    m_view.isAscending = column == m_view.sortColumn ? !m_view.isAscending : true;
    m_view.sortColumn = column;
    if (!m_view.isSorted) return;
    const std::vector<ItemState> states = TakeStates();
    m_list.SetRedraw(FALSE);
    m_list.ResetContent();
    PutBack(states);
    m_list.SetRedraw(TRUE);
    m_list.Invalidate();
}

// ---- Items

std::vector<CMultiViewListBox::ItemState> CMultiViewListBox::TakeStates() const
{
    std::vector<ItemState> states;
    for (int index = 0; index < GetCount(); ++index)
        states.push_back({m_list.Item(index)->id, m_list.IsSelected(index)});
    return states;
}

// What is selected is the place, whichever item comes to stand there.
void CMultiViewListBox::PutBack(const std::vector<ItemState>& states)
{
    for (const ItemState& state : states) m_list.Append(state.id);
    for (std::size_t index = 0; index < states.size(); ++index)
        if (states[index].isSelected) SetNewSelect(static_cast<int>(index));
}

int CMultiViewListBox::FindItem(int id) const
{
    for (int index = GetCount() - 1; index >= 0; --index)
        if (m_list.Item(index)->id == id) return index;
    return -1;
}

void CMultiViewListBox::ItemModified(int id)
{
    const int index = FindItem(id);
    if (index < 0) return;
    m_list.Item(index)->Forget();
    CRect place;
    m_list.GetItemRect(index, &place);
    m_list.InvalidateRect(&place);
}

void CMultiViewListBox::DeleteItem(int id)
{
    const int index = FindItem(id);
    if (index >= 0) m_list.DeleteString(static_cast<UINT>(index));
}

void CMultiViewListBox::ResetContent()
{
    for (int index = GetCount() - 1; index >= 0; --index) m_list.DeleteString(static_cast<UINT>(index));
}

int CMultiViewListBox::GetItemNumber(int index) const { return m_list.ItemNumber(index); }

void CMultiViewListBox::GetItemIDList(CArray<int, int>& ids) const
{
    for (int index = 0; index < GetCount(); ++index) ids.Add(m_list.Item(index)->id);
}

// ---- Selection

int CMultiViewListBox::GetSelCount() const { return m_list.SelectedCount(); }

int CMultiViewListBox::GetSelItemID() const
{
    if (GetSelCount() != 1) return -1;
    int index = m_list.GetCurSel();
    if (m_view.isMultiSelect) m_list.GetSelItems(1, &index);
    return GetItemNumber(index);
}

int CMultiViewListBox::GetSelItemIDList(CArray<int, int>& ids) const { return m_list.AppendSelected(ids); }

void CMultiViewListBox::SetNewSelect(int index)
{
    if (index < 0 || index >= GetCount()) return;
    if (m_view.isMultiSelect)
        m_list.SetSel(index);
    else
        m_list.SetCurSel(index);
}

BOOL CMultiViewListBox::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (LOWORD(wParam) != listId || !lParam) return CWnd::OnCommand(wParam, lParam);
    switch (HIWORD(wParam)) {
    case LBN_SELCHANGE:
        OnSelectionChange();
        return TRUE;
    case LBN_DBLCLK:
        OnItemDoubleClick(GetSelItemID());
        return TRUE;
    case LBN_SETFOCUS:
        OnListSetFocus();
        return TRUE;
    default:
        return CWnd::OnCommand(wParam, lParam);
    }
}
