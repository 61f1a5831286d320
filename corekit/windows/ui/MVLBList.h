// The list inside a multi-view list box: keeps the item records, draws them as the owner's mode says, and
// starts drags.
//
// Each entry's data is its record, which the list owns and frees when the entry goes.
#pragma once

#include "corekit/framework/ui/ImageList.h"
#include "corekit/framework/ui/ListBox.h"
#include "corekit/unicode/ui/UniRender.h"
#include "corekit/windows/ui/MVLBItem.h"
#include "corekit/windows/ui/MVLBOwner.h"

#include <array>
#include <memory>

class COREKIT_API CMVLBList : public CListBox {
    DECLARE_DYNAMIC(CMVLBList)
public:
    CMVLBList(corekit::detail::MVLBOwner& owner, const corekit::detail::MVLBView& view)
        : m_owner(owner), m_view(view)
    {
    }
    ~CMVLBList() override { DestroyWindow(); }

    // From the font of controls, before the window is made. Throws CChainedException if one cannot be had.
    void MakeFonts();
    int GetRowHeight(); // that of the tallest font

    // Takes a new record; false if there is no room for it.
    bool Append(int id);
    MVLBItem* Item(int index) const { return static_cast<MVLBItem*>(GetItemDataPtr(index)); }
    // From the owner the first time, then from the record; empty for a column that records do not have.
    const WCHAR* Text(MVLBItem& item, int column);
    bool IsSelected(int index) const { return GetSel(index) > 0; }
    int ItemNumber(int index) const; // the id; -1 past the end
    int SelectedCount() const;
    int AppendSelected(CArray<int, int>& ids) const; // the number of ids

    void DrawItem(DRAWITEMSTRUCT* draw) override;
    int CompareItem(COMPAREITEMSTRUCT* compare) override;
    void DeleteItem(DELETEITEMSTRUCT* gone) override;

protected:
    void OnLButtonDown(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnRButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* next);
    DECLARE_MESSAGE_MAP()

private:
    enum class Button { none, left, right };

    void DrawGridItem(CDC& dc, const CRect& place, MVLBItem& item);
    void DrawDetails(const CRect& place, MVLBItem& item);
    const CDib* Picture(MVLBItem& item);

    bool Press(Button button, CPoint point);
    void Release(Button button, CPoint point);
    int SelectedItemAt(CPoint point) const;
    void StartDrag(CPoint point);
    void MoveDrag(CPoint point);
    bool EndDrag();

    corekit::detail::MVLBOwner& m_owner;
    const corekit::detail::MVLBView& m_view;
    // Of all styles; drawing takes the first, the others count for the height of a row.
    std::array<CUniRender, 8> m_fonts;

    Button m_dragging = Button::none;
    Button m_pressed = Button::none; // armed: leaving m_dragStart starts the drag
    CRect m_dragStart;
    std::unique_ptr<CImageList> m_dragImage;
};
