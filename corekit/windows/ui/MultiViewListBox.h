// A list of items in one of three views: a grid of pictures with captions, a table under a header, or names
// in columns.
//
// Items are known by number. Their texts and pictures are asked of the derived class when they are first
// shown, and kept until ItemModified. Texts may be in any script. Items can be dragged out with either mouse
// button; a drag begins on an item that is selected.
//
// Create first. Indexes count from 0 in the order of the list. User-interface thread only.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/windows/ui/MVLBHeader.h"
#include "corekit/windows/ui/MVLBList.h"

#include <vector>

inline constexpr DWORD MVLBS_SORT = 1;        // window styles: kept in order of a column
inline constexpr DWORD MVLBS_MULTISELECT = 2; // several items may be selected

class COREKIT_API CMultiViewListBox : public CWnd, private corekit::detail::MVLBOwner {
    DECLARE_DYNAMIC(CMultiViewListBox)
public:
    CMultiViewListBox(); // details without columns; no window before Create
    ~CMultiViewListBox() override;

    // Makes the window with its header and list. `style` is a window style with MVLBS_ flags; 0 on failure.
    // Throws CChainedException if the font of controls cannot be had.
    BOOL Create(CWnd* parent, UINT id, DWORD style, const RECT& rect, eMVLBMode mode);

    // ---- The view
    eMVLBMode GetViewMode() const { return m_view.mode; }
    // Items and selected places stay; texts and pictures are forgotten on the way to and from details.
    void SetViewMode(eMVLBMode mode);
    // Sizes of the three views in pixels: 80 by 80 in cells of 100 by 100, columns of 100, and the width to
    // which details can be scrolled, 0 at first. A picture of another size is stretched.
    void SetGridSize(SIZE picture, SIZE cell);
    void SetListModeWidth(int width);
    void SetDetailsModeHorizontalExtent(int width);

    // The data column, from 0 to 31, is the number given to GetItemText; two columns may show the same.
    // Needs the window; the title is copied.
    void AppendColumn(eMVLBAlign align, int dataColumn, int width, const char* title);
    // Ignored for a column that does not exist. OnColumnWidthChange is called twice.
    void SetColumnWidth(int column, int width);
    int GetColumnWidth(int column) const; // 0 for one that does not exist
    int GetTotalColumnWidth() const;
    // A new column sorts upwards, the same one the other way round. The number is that of the data; a click
    // on the header gives the index of its column. Without MVLBS_SORT it is only remembered. Selected
    // places stay selected, whichever items come to stand there.
    void SetSortColumn(int column);

    // ---- Items
    // At the end, or in order with MVLBS_SORT, for which its text is asked at once. The number is the
    // host's; of items of one number the later one is meant below.
    void AppendItem(int id) { m_list.Append(id); }
    // Its texts and picture are asked for anew.
    void ItemModified(int id);

    void DeleteItem(int id); // nothing happens for a number that the list lacks
    int ItemExists(int id) const { return FindItem(id) >= 0; }
    void ResetContent();                // removes all items; columns and view stay
    int GetItemNumber(int index) const; // the id; -1 past the end
    // In client pixels of the list; -1 for an index outside.
    int GetItemRect(int index, RECT* rect) const { return m_list.GetItemRect(index, rect); }

    int GetCount() const { return m_list.GetCount(); }
    void GetItemIDList(CArray<int, int>& ids) const; // appends, in order of the list

    // ---- Selection
    int GetSelCount() const;
    // -1 unless exactly one is selected.
    int GetSelItemID() const;
    int GetSelItemIDList(CArray<int, int>& ids) const; // appends; the number of ids
    // Selects the item, in a list of several beside those that are; nothing outside the list. No
    // notification.
    void SetNewSelect(int index);

    // Off at first.
    void EnableDragging(int enable) { m_view.isDraggingEnabled = enable != 0; }
    int DraggingEnabled() const { return m_view.isDraggingEnabled; }

protected:
    // Asked once for a text, when it is first shown or compared; `out` is empty.
    void GetItemText(StringW& out, int id, int column) override = 0;
    int GetItemPicture(int id, CDib& out) override = 0; // 0: it has none
    // By the user, not by the operations above.
    virtual void OnSelectionChange() = 0;
    virtual void OnItemDoubleClick(int id) = 0; // -1 if several are selected
    virtual void OnListSetFocus() = 0;          // the list has got the focus

    void OnColumnWidthChange(int column, int width) override = 0;
    // What a drop at the point of the screen would do: 1 copy, 2 move, else nothing; bits 16 to 23 are free.
    DWORD GetDragEffect(int x, int y) override = 0;
    int CanDrag(CArray<int, int>& ids) override = 0; // nonzero lets the drag of the selected items begin
    void OnDragCancel() override = 0;                // ended without a drop
    // At the point of the screen, whatever GetDragEffect said last.
    void OnDrop(int x, int y, CArray<int, int>& ids, int rightButton) override = 0;
    // Creates the list and adds the image, then those for copying and moving.
    void MakeDragImage(CImageList* images) override = 0;

    int OnCreate(CREATESTRUCTA* create);
    // Header and list fill the window; the focus goes to the list.
    void OnSize(UINT how, int width, int height);
    void OnSetFocus(CWnd* before);

    void OnMeasureItem(int id, MEASUREITEMSTRUCT* measure);
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    DECLARE_MESSAGE_MAP()

private:
    struct ItemState {
        int id;
        bool isSelected;
    };

    void OnHeaderTrack(int column, int width) override { SetColumnWidth(column, width); }
    void OnHeaderClick(int column) override { SetSortColumn(column); }

    BOOL MakeList();                  // a window for the present view
    void ApplyMode(int headerHeight); // header, sizes, places
    void PlaceChildren(int headerHeight);
    int RowHeight();            // of the view, in pixels
    int FindItem(int id) const; // the last of that number, -1 for none
    void RepaintDetails();
    // For a list that is filled anew: what is in it, and back.
    std::vector<ItemState> TakeStates() const;
    void PutBack(const std::vector<ItemState>& states);

    corekit::detail::MVLBView m_view;
    CMVLBHeader m_header{*this};
    CMVLBList m_list{*this, m_view};
    int m_listColumnWidth = 100;
    int m_detailsExtent = 0;
};
