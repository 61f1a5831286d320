#include "corekit/unicode/ui/list/UnicodeListCtrl.h"

#include "corekit/foundation/WildCards.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/ListViews.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/keyboards/HeldKeys.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <algorithm>
#include <cstdlib>

IMPLEMENT_DYNAMIC(CUnicodeListCtrl, CListCtrl)

BEGIN_MESSAGE_MAP(CUnicodeListCtrl, CListCtrl)
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

namespace {

constexpr UINT wholeState = LVIS_FOCUSED | LVIS_SELECTED;
constexpr int cellMargin = 2;

std::size_t rendererOf(eULCItemStyle style)
{
    return static_cast<std::size_t>(std::abs(std::clamp<int>(style, -3, 3)));
}

} // namespace

CUnicodeListCtrl::CUnicodeListCtrl() = default;
CUnicodeListCtrl::~CUnicodeListCtrl() { DestroyWindow(); }

BOOL CUnicodeListCtrl::PreCreateWindow(CREATESTRUCTA& create)
{
    create.style |= static_cast<LONG>(LVS_OWNERDRAWFIXED);
    return CListCtrl::PreCreateWindow(create);
}

void CUnicodeListCtrl::PreSubclassWindow()
{
    CListCtrl::PreSubclassWindow();
    UpdateSysColourMetricCache();
    CFontDescriptor font;
    CUnicodeManager::Initialise(1)->GetControlsFontDescriptor(font);
    for (std::size_t style = 0; style < m_renderers.size(); ++style)
        m_renderers[style].CreateFromDescriptor(font, (style & ulcBold) != 0, 0, (style & ulcItalic) != 0);
    m_itemHeight = 0;
}

// ---- Rows and entries

CUnicodeListCtrl::__entry* CUnicodeListCtrl::EntryOf(int row) const
{
    return row < 0 ? nullptr : reinterpret_cast<__entry*>(CListCtrl::GetItemData(row));
}

int CUnicodeListCtrl::RowOf(const __entry* entry) const
{
    for (int row = entry ? GetItemCount() - 1 : -1; row >= 0; --row)
        if (EntryOf(row) == entry) return row;
    return -1;
}

int CUnicodeListCtrl::Insert(int index, const WCHAR* text, eULCItemStyle style, long data)
{
    std::unique_ptr<__entry> entry(new __entry{text, StringW(), style, data});
    CUnicodeManager::GetObjectA()->ConvertToGlyphs(entry->text, entry->text.GetLength(), entry->glyphs);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = index;
    item.pszText = const_cast<WCHAR*>(static_cast<const WCHAR*>(entry->text));
    item.lParam = reinterpret_cast<LPARAM>(entry.get());
    const __entry* const added = m_entries.emplace_back(std::move(entry)).get();
    const auto row = static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    if (row < 0) std::erase_if(m_entries, [&](const auto& e) { return e.get() == added; });
    return row;
}

int CUnicodeListCtrl::AddString(const WCHAR* text, eULCItemStyle style, long data)
{
    return Insert(GetItemCount(), text, style, data);
}

int CUnicodeListCtrl::InsertString(int index, const WCHAR* text, eULCItemStyle style, long data)
{
    Insert(index, text, style, data);
    return index;
}

void CUnicodeListCtrl::DeleteString(int row)
{
    const __entry* const entry = EntryOf(row);
    DeleteItem(row);
    std::erase_if(m_entries, [&](const auto& e) { return e.get() == entry; });
}

bool CUnicodeListCtrl::DeleteItemByData(long data)
{
    const int row = FindItemByData(data);
    if (row >= 0) DeleteString(row);
    return row >= 0;
}

void CUnicodeListCtrl::ResetContent()
{
    DeleteAllItems();
    m_entries.clear();
}

StringW CUnicodeListCtrl::GetText(int row) const
{
    const __entry* const entry = EntryOf(row);
    return entry ? entry->text : StringW();
}

void CUnicodeListCtrl::GetText(int row, StringW& text) const { text = GetText(row); }

eULCItemStyle CUnicodeListCtrl::GetItemStyle(int row) const
{
    const __entry* const entry = EntryOf(row);
    return entry ? entry->style : ulcPlain;
}

long CUnicodeListCtrl::GetItemData(int row) const
{
    const __entry* const entry = EntryOf(row);
    return entry ? entry->data : 0;
}

// The row counts in the order of adding, and only one beyond the entries would be taken, which there is not.
void CUnicodeListCtrl::SetItemData(int, long) {}

// ---- Selection

int CUnicodeListCtrl::GetCurSel() const
{
    return GetSelectedCount() == 1 ? GetNextItem(-1, LVNI_SELECTED) : -1;
}

StringW CUnicodeListCtrl::GetSelection() const { return GetText(GetCurSel()); }
long CUnicodeListCtrl::GetSelectedItemData() const { return GetItemData(GetCurSel()); }

void CUnicodeListCtrl::SetCurSel(int row)
{
    for (int other = -1; (other = GetNextItem(other, LVNI_SELECTED)) >= 0;)
        if (other != row) SetItemState(other, 0, LVIS_SELECTED);
    if (row >= 0) SetItemState(row, wholeState, wholeState);
}

bool CUnicodeListCtrl::SelectString(const WCHAR* pattern)
{
    const auto found = std::ranges::find_if(
        m_entries, [&](const auto& entry) { return MatchWildCardString(entry->text, pattern, 1) >= 0; });
    const bool matches = found != m_entries.end();
    SetCurSel(matches ? RowOf(found->get()) : -1);
    return matches;
}

int CUnicodeListCtrl::FindItemByData(long data) const
{
    const auto last = std::find_if(m_entries.rbegin(), m_entries.rend(),
                                   [&](const auto& entry) { return entry->data == data; });
    return last == m_entries.rend() ? -1 : RowOf(last->get());
}

bool CUnicodeListCtrl::SelectByItemData(long data)
{
    const int row = FindItemByData(data);
    if (row < 0) return false;
    SetSelectionMark(row);
    SetCurSel(row);
    return true;
}

// ---- Drawing

BOOL CUnicodeListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message == WM_MEASUREITEM) {
        MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return TRUE;
    }
    if (message == WM_COMPAREITEM && result) {
        *result = CompareItem(reinterpret_cast<COMPAREITEMSTRUCT*>(lParam));
        return TRUE;
    }
    return CListCtrl::OnChildNotify(message, wParam, lParam, result);
}

void CUnicodeListCtrl::MeasureItem(MEASUREITEMSTRUCT* item)
{
    if (m_itemHeight == 0)
        for (CUniRender& renderer : m_renderers) m_itemHeight = std::max(m_itemHeight, renderer.GetHeight());
    item->itemHeight = static_cast<UINT>(m_itemHeight);
}

int CUnicodeListCtrl::CompareItem(COMPAREITEMSTRUCT* items)
{
    const auto* const a = reinterpret_cast<const __entry*>(items->itemData1);
    const auto* const b = reinterpret_cast<const __entry*>(items->itemData2);
    return a && b ? a->text.CompareNoCase(b->text) : 0;
}

void CUnicodeListCtrl::DrawItem(DRAWITEMSTRUCT* item)
{
    const bool selected = (item->itemState & ODS_SELECTED) != 0;
    const HDC dc = item->hDC;
    const CSysColourMetricCache& system = SysColourMetricCache();
    SetTextColor(dc, selected ? system.m_highlightText : system.m_windowText);
    SetBkColor(dc, selected ? system.m_highlight : system.m_window);
    if (const auto* const entry = reinterpret_cast<const __entry*>(item->itemData)) {
        CUniRender& renderer = m_renderers[rendererOf(entry->style)];
        renderer.AttachDC(dc);
        DrawColumns(*item, *entry, renderer);
        renderer.DetachDC();
    }
    if (item->itemState & ODS_FOCUS) DrawFocusRect(dc, &item->rcItem);
}

void CUnicodeListCtrl::DrawColumns(DRAWITEMSTRUCT& item, const __entry& entry, CUniRender& renderer)
{
    const CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    CArray<int, int> noTypes;
    CRect cell(item.rcItem);
    LVCOLUMN column{};
    column.mask = LVCF_WIDTH;
    for (int i = 0, x = item.rcItem.left; GetColumn(i, &column); ++i, x += column.cx) {
        cell.left = x + cellMargin;
        cell.right = x + column.cx - cellMargin;
        m_cell.Empty();
        m_cellGlyphs.Empty();
        GetColumnText(m_cell, entry.data, i);
        manager->ConvertToGlyphs(m_cell, m_cell.GetLength(), m_cellGlyphs);
        noTypes.RemoveAll();
        renderer.DrawGlyphString(cell.left, cell.top, ETO_OPAQUE | ETO_CLIPPED, cell, m_cellGlyphs, noTypes,
                                 -1, 0);
    }
}

// ---- Keys and mouse. The host's answer may be the end of the window.

void CUnicodeListCtrl::OnKeyDown(UINT key, UINT repeat, UINT flags)
{
    if (key == 'A' && corekit::detail::isKeyDown(VK_CONTROL)) {
        for (int row = 0; row < GetCount(); ++row) SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
        return;
    }
    const HWND window = m_hWnd;
    OnListKeyDown(key, repeat, flags);
    if (::IsWindow(window)) Default();
}

void CUnicodeListCtrl::OnChar(UINT character, UINT repeat, UINT flags)
{
    const HWND window = m_hWnd;
    OnListChar(character, repeat, flags);
    if (::IsWindow(window)) Default();
}

void CUnicodeListCtrl::OnLButtonDown(UINT flags, CPoint point)
{
    const HWND window = m_hWnd;
    Default();
    if (::IsWindow(window)) OnListLButtonDown(flags, point);
}

void CUnicodeListCtrl::OnLButtonDblClk(UINT flags, CPoint point)
{
    const HWND window = m_hWnd;
    Default();
    if (::IsWindow(window)) OnListLButtonDblClk(flags, point);
}
