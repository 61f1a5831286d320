#include "desk/StoryList.h"

#include "corekit/unicode/bidi/MirrorBrackets.h"
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/storage/StoredText.h"

#include <algorithm>
#include <string>
#include <utility>

namespace prompter {

IMPLEMENT_DYNAMIC(StoryList, CUnicodeListCtrl)

BEGIN_MESSAGE_MAP(StoryList, CUnicodeListCtrl)
ON_WM_SIZE()
ON_WM_LBUTTONUP()
ON_NOTIFY_REFLECT(LVN_ITEMCHANGED, &StoryList::OnItemChanged)
ON_NOTIFY_REFLECT(LVN_BEGINDRAG, &StoryList::OnBeginDrag)
END_MESSAGE_MAP()

namespace {

constexpr int numberWidth = 48, timeWidth = 56;

// A word of Hebrew is turned round when a cell is drawn, as letters without forms of their own are.
void TurnHebrewWords(StringW& text)
{
    constexpr char16_t first = 0x0590, last = 0x05FF;
    std::u16string units(text, static_cast<std::size_t>(text.GetLength()));
    const auto isHebrew = [](char16_t c) { return c >= first && c <= last; };
    for (auto at = units.begin(); at != units.end();) {
        const auto from = std::find_if(at, units.end(), isHebrew);
        at = std::find_if_not(from, units.end(), isHebrew);
        std::reverse(from, at);
    }
    text = StringW(units.data(), static_cast<int>(units.size()));
}

// Cells are drawn as they are stored, so they are stored as they are drawn.
StringW InDisplayOrder(const std::u16string& plain)
{
    StringW text = ToStoredText(plain.data(), static_cast<int>(plain.size()));
    CArray<int, int> order, types;
    ReorderToVisual(text, order, types, GetBaseLevel(text, text.GetLength()));
    MirrorRightToLeft(text, types);
    TurnHebrewWords(text);
    return text;
}

} // namespace

BOOL StoryList::CreatePane(CWnd* parent, UINT id)
{
    const DWORD style =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
    if (!Create(style, CRect(0, 0, 10, 10), parent, id)) return FALSE;
    InsertColumn(numberColumn, "No.", LVCFMT_LEFT, numberWidth);
    InsertColumn(titleColumn, "Story", LVCFMT_LEFT, 100);
    InsertColumn(timeColumn, "Time", LVCFMT_LEFT, timeWidth);
    return TRUE;
}

void StoryList::OnSize(UINT, int width, int)
{
    Default();
    SetColumnWidth(titleColumn, std::max(width - numberWidth - timeWidth, 40));
}

void StoryList::Refresh()
{
    if (GetCount() != m_script.Count()) {
        m_isRefreshing = true;
        ResetContent();
        for (int i = 0; i < m_script.Count(); ++i) AddString(u"", ulcPlain, i);
        m_isRefreshing = false;
    }
    Invalidate(FALSE);
}

void StoryList::Choose(int index)
{
    m_isRefreshing = true;
    if (GetCurSel() != index) SetCurSel(index);
    EnsureVisible(index, FALSE);
    m_isRefreshing = false;
}

void StoryList::GetColumnText(StringW& out, long itemData, int column)
{
    out = InDisplayOrder(
        StoryText(m_script, static_cast<int>(itemData), static_cast<StoryColumn>(column), m_times, m_rate));
}

void StoryList::OnListLButtonDown(UINT, CPoint) {}

void StoryList::OnItemChanged(NMHDR* header, LRESULT*)
{
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    const bool isChosen = (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
    if (isChosen && !m_isRefreshing && onChoose) onChoose(change.iItem);
}

void StoryList::OnBeginDrag(NMHDR* header, LRESULT*)
{
    m_dragged = reinterpret_cast<const NMLISTVIEW*>(header)->iItem;
    SetCapture();
}

void StoryList::OnLButtonUp(UINT, CPoint point)
{
    const int from = std::exchange(m_dragged, -1);
    if (from < 0) {
        Default();
        return;
    }
    ReleaseCapture();
    LVHITTESTINFO hit{};
    hit.pt = point;
    const int to = HitTest(&hit);
    if (to >= 0 && to != from && onMove) onMove(from, to);
}

} // namespace prompter
