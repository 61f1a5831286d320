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
    // The owner and the view outlive the list; the owner makes the window, whose style depends on the view.
    CMVLBList(corekit::detail::MVLBOwner& owner, const corekit::detail::MVLBView& view)
        : m_owner(owner), m_view(view)
    {
    }
    ~CMVLBList() override { DestroyWindow(); }

    // From the font of controls, before the window is made. Throws CChainedException if one cannot be had.
    void MakeFonts();
    // That of the tallest font, in pixels.
    int GetRowHeight();

    // Takes a new record of that number, which the host chose; false if there is no room for it.
    bool Append(int id);
    // The record of an entry, which the list owns; good until the entry goes.
    MVLBItem* Item(int index) const { return static_cast<MVLBItem*>(GetItemDataPtr(index)); }
    // From the owner the first time, then from the record; empty for a column that records do not have.
    const WCHAR* Text(MVLBItem& item, int column);
    bool IsSelected(int index) const { return GetSel(index) > 0; } // false outside the list
    int ItemNumber(int index) const;                               // the id; -1 past the end
    int SelectedCount() const;
    int AppendSelected(CArray<int, int>& ids) const; // the number of ids

    // Ground, content by the owner's view, and the dotted frame of the entry with the focus.
    void DrawItem(DRAWITEMSTRUCT* draw) override;
    // By the text of the owner's sort column (column 0 if there is none), letter case aside.
    int CompareItem(COMPAREITEMSTRUCT* compare) override;

    void DeleteItem(DELETEITEMSTRUCT* gone) override; // frees the record

protected:
    // A press on a selected item arms a drag; all else is the list box's own.
    void OnLButtonDown(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point); // starts or moves the drag
    void OnLButtonUp(UINT flags, CPoint point); // ends it with a drop
    void OnRButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* next); // ends it without one
    DECLARE_MESSAGE_MAP()

private:
    enum class Button { none, left, right }; // of the mouse

    // Picture with caption, or the cells of a row; missing texts and pictures are asked of the owner.
    void DrawGridItem(CDC& dc, const CRect& place, MVLBItem& item);
    void DrawDetails(const CRect& place, MVLBItem& item);
    // Null for an item without one.
    const CDib* Picture(MVLBItem& item);

    // Left and right button alike. The operations of a drag call the owner, which may end the drag or the
    // window.
    bool Press(Button button, CPoint point);
    void Release(Button button, CPoint point);
    int SelectedItemAt(CPoint point) const; // -1 for none
    void StartDrag(CPoint point);
    void MoveDrag(CPoint point); // the image hangs below the mouse
    bool EndDrag();              // false if there was none

    corekit::detail::MVLBOwner& m_owner;
    const corekit::detail::MVLBView& m_view;
    // Of all styles; drawing takes the first, the others count for the height of a row.
    std::array<CUniRender, 8> m_fonts;

    Button m_dragging = Button::none;
    Button m_pressed = Button::none; // armed: leaving m_dragStart starts the drag
    CRect m_dragStart;
    std::unique_ptr<CImageList> m_dragImage; // during a drag
};
