// The records of the items, and how items look.
#include "corekit/windows/ui/MVLBList.h"

#include "corekit/framework/ui/DC.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Runtime.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <algorithm>
#include <vector>

IMPLEMENT_DYNAMIC(CMVLBList, CListBox)

BEGIN_MESSAGE_MAP(CMVLBList, CListBox)
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONUP()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

namespace {

struct FontStyle {
    int bold, underline, italic;
};
constexpr FontStyle fontStyles[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1},
                                    {1, 1, 0}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}};

constexpr int captionMargin = 4; // of a caption that is too long, at either side
constexpr int cellMargin = 2;

} // namespace

// ---- Records

void CMVLBList::MakeFonts()
{
    CFontDescriptor font;
    CUnicodeManager::Initialise(1)->GetControlsFontDescriptor(font);
    for (std::size_t i = 0; i < m_fonts.size(); ++i)
        m_fonts[i].CreateFromDescriptor(font, fontStyles[i].bold, fontStyles[i].underline,
                                        fontStyles[i].italic);
}

int CMVLBList::GetRowHeight()
{
    int height = 0;
    for (CUniRender& font : m_fonts) height = std::max(height, font.GetHeight());
    return height;
}

bool CMVLBList::Append(int id)
{
    auto item = std::make_unique<MVLBItem>(id);
    if (SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.get())) < 0) return false;
    static_cast<void>(item.release()); // the entry's own from here
    return true;
}

const WCHAR* CMVLBList::Text(MVLBItem& item, int column)
{
    if (column < 0 || column >= MVLBItem::textCount) return u"";
    auto& text = item.texts[static_cast<std::size_t>(column)];
    if (!text) {
        StringW answer;
        m_owner.GetItemText(answer, item.id, column);
        text.reset(__safe_dupstring(static_cast<const WCHAR*>(answer), __FILE__, __LINE__));
    }
    return text.get();
}

const CDib* CMVLBList::Picture(MVLBItem& item)
{
    if (!item.picture) {
        auto picture = std::make_unique<CDib>();
        if (!m_owner.GetItemPicture(item.id, *picture)) picture->Empty();
        item.picture = std::move(picture); // also when it is none, so that it is asked for once
    }
    return item.picture->IsValid() ? item.picture.get() : nullptr;
}

int CMVLBList::CompareItem(COMPAREITEMSTRUCT* compare)
{
    const int column = std::max(m_view.sortColumn, 0);
    auto* first = reinterpret_cast<MVLBItem*>(compare->itemData1);
    auto* second = reinterpret_cast<MVLBItem*>(compare->itemData2);
    if (!m_view.isAscending) std::swap(first, second);
    return crt16::_wcsicmp(Text(*first, column), Text(*second, column));
}

int CMVLBList::ItemNumber(int index) const { return index >= 0 && index < GetCount() ? Item(index)->id : -1; }

int CMVLBList::SelectedCount() const { return m_view.isMultiSelect ? GetSelCount() : GetCurSel() >= 0; }

int CMVLBList::AppendSelected(CArray<int, int>& ids) const
{
    std::vector<int> selected(static_cast<std::size_t>(std::max(SelectedCount(), 0)));
    if (m_view.isMultiSelect)
        GetSelItems(static_cast<int>(selected.size()), selected.data());
    else if (!selected.empty())
        selected[0] = GetCurSel();
    for (const int index : selected) ids.Add(ItemNumber(index));
    return static_cast<int>(selected.size());
}

void CMVLBList::DeleteItem(DELETEITEMSTRUCT* gone) { delete reinterpret_cast<MVLBItem*>(gone->itemData); }

// ---- Drawing

void CMVLBList::DrawItem(DRAWITEMSTRUCT* draw)
{
    const CSysColourMetricCache& colours = SysColourMetricCache();
    const bool isSelected = draw->itemState & ODS_SELECTED;
    CDC& dc = *CDC::FromHandle(draw->hDC);
    const CRect place(draw->rcItem);
    dc.FillSolidRect(&place, isSelected ? colours.m_highlight : colours.m_window);
    dc.SetTextColor(isSelected ? colours.m_highlightText : colours.m_windowText);
    auto* const item = reinterpret_cast<MVLBItem*>(draw->itemData);
    if (static_cast<int>(draw->itemID) >= 0 && item) {
        m_fonts[0].AttachDC(draw->hDC);
        switch (m_view.mode) {
        case eMVLBMode_Grid:
            DrawGridItem(dc, place, *item);
            break;
        case eMVLBMode_Details:
            DrawDetails(place, *item);
            break;
        case eMVLBMode_List:
            m_fonts[0].DrawLogicalString(place.left, place.top, ETO_OPAQUE | ETO_CLIPPED, place,
                                         Text(*item, 0), -1, 0);
            break;
        }
        m_fonts[0].DetachDC();
    }
    if (draw->itemState & ODS_FOCUS) dc.DrawFocusRect(&place);
}

// The picture at the top, the caption in the middle of what is left below it.
void CMVLBList::DrawGridItem(CDC& dc, const CRect& place, MVLBItem& item)
{
    const CSize size = m_view.pictureSize;
    const CRect box(CPoint(place.left + (place.Width() - size.cx) / 2, place.top), size);
    if (const CDib* const picture = Picture(item)) {
        if (CSize(picture->GetSize()) == size)
            picture->DrawBitmap(dc, box.TopLeft());
        else
            picture->StretchBitmap(dc, box);
    }
    StringW glyphs;
    CUnicodeManager::GetObjectA()->ConvertToGlyphs(Text(item, 0), -1, glyphs);
    const CSize text = m_fonts[0].CalcGlyphStringSize(glyphs, -1, 0);
    CRect line(place.left + captionMargin, 0, place.right - captionMargin, 0);
    if (text.cx < place.Width() - 2 * captionMargin) {
        line.left = place.left + (place.Width() - text.cx) / 2;
        line.right = line.left + text.cx;
    }
    line.top = box.bottom + (place.bottom - box.bottom - text.cy) / 2;
    line.bottom = line.top + text.cy;
    CArray<int, int> types;
    m_fonts[0].DrawGlyphString(line.left, line.top, ETO_CLIPPED, line, glyphs, types, -1, 0);
}

void CMVLBList::DrawDetails(const CRect& place, MVLBItem& item)
{
    int x = place.left;
    for (int i = 0; i < m_view.columns.GetSize(); ++i) {
        const corekit::detail::MVLBColumn& column = m_view.columns.GetAt(i);
        const CRect cell(x + cellMargin, place.top, x + column.width - cellMargin, place.bottom);
        StringW glyphs;
        CUnicodeManager::GetObjectA()->ConvertToGlyphs(Text(item, column.dataColumn), -1, glyphs);
        const int free = cell.Width() - m_fonts[0].CalcGlyphStringSize(glyphs, -1, 0).cx;
        int left = cell.left;
        if (column.align == eMVLBAlign_Centre) left += free / 2;
        if (column.align == eMVLBAlign_Right) left += free;
        CArray<int, int> types;
        m_fonts[0].DrawGlyphString(left, cell.top, ETO_OPAQUE | ETO_CLIPPED, cell, glyphs, types, -1, 0);
        x = cell.right + cellMargin;
    }
}
