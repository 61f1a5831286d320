#include "corekit/windows/ui/MVLBHeader.h"

IMPLEMENT_DYNAMIC(CMVLBHeader, CHeaderCtrl)

void CMVLBHeader::AppendColumn(int width, const char* title)
{
    CString text(title);
    HDITEMA item{};
    item.mask = HDI_WIDTH | HDI_TEXT | HDI_FORMAT;
    item.cxy = width;
    item.pszText = text.GetBuffer(0);
    item.fmt = HDF_CENTER | HDF_STRING;
    InsertItem(GetItemCount(), &item);
}

void CMVLBHeader::SetColumnWidth(int column, int width)
{
    HDITEMA item{};
    item.mask = HDI_WIDTH;
    item.cxy = width;
    SetItem(column, &item);
    m_owner.OnColumnWidthChange(column, width);
}

BOOL CMVLBHeader::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message != WM_NOTIFY) return CHeaderCtrl::OnChildNotify(message, wParam, lParam, result);
    const auto& told = *reinterpret_cast<const NMHEADERA*>(lParam);
    switch (told.hdr.code) {
    case HDN_ENDTRACK:
        if (told.pitem) m_owner.OnHeaderTrack(told.iItem, told.pitem->cxy);
        return TRUE;
    case HDN_ITEMCLICK:
        m_owner.OnHeaderClick(told.iItem);
        return TRUE;
    default:
        return CHeaderCtrl::OnChildNotify(message, wParam, lParam, result);
    }
}
