#include "corekit/windows/controls/ui/ColourListBox.h"

#include "corekit/framework/ui/DC.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"

IMPLEMENT_DYNAMIC(CColourListBox, CListBox)

CColourListBox::CColourListBox()
{
    [[maybe_unused]] static const bool isRead = (UpdateSysColourMetricCache(), true);
}

int CColourListBox::AddColour(const char* name, COLORREF colour)
{
    const int row = AddString(name);
    if (row >= 0) SetItemData(row, colour);
    return row;
}

BOOL CColourListBox::GetSelectedColour(COLORREF& colour) const
{
    const int row = GetCurSel();
    if (row < 0) return FALSE;
    colour = GetColour(row);
    return TRUE;
}

int CColourListBox::SelectColour(COLORREF colour)
{
    int row = GetCount() - 1;
    while (row >= 0 && GetColour(row) != colour) --row;
    SetCurSel(row);
    return row;
}

void CColourListBox::MeasureItem(MEASUREITEMSTRUCT* item) { item->itemHeight = 18; }

void CColourListBox::DrawItem(DRAWITEMSTRUCT* item)
{
    if (static_cast<int>(item->itemID) < 0) return;
    const CSysColourMetricCache& system = SysColourMetricCache();
    const bool isSelected = item->itemState & ODS_SELECTED;
    CDC& dc = *CDC::FromHandle(item->hDC);
    CRect rect(item->rcItem);
    dc.FillSolidRect(&rect, isSelected ? system.m_highlight : system.m_window);
    CRect patch = rect;
    patch.DeflateRect(2, 2);
    patch.right = patch.left + 2 * patch.Height();
    dc.FillSolidRect(&patch, static_cast<COLORREF>(item->itemData));
    dc.Draw3dRect(&patch, system.m_windowFrame, system.m_windowFrame);
    CString name;
    GetText(static_cast<int>(item->itemID), name);
    rect.left = patch.right + 4;
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(isSelected ? system.m_highlightText : system.m_windowText);
    dc.DrawText(name, &rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}
