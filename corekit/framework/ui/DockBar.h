// A dock: the strip along one edge of a frame, or the inside of a floating frame, in which bars stand in
// rows.
//
// Bars keep the place along their row that the user gave them as far as there is room; a row that is too long
// goes on below. The dock does not own its bars. A frame makes its docks in EnableDocking; they delete
// themselves.
//
// User-interface thread. A frame's docks lie along its edges and take no room while they are empty.
#pragma once

#include "corekit/framework/ui/ControlBar.h"

#include <optional>
#include <vector>

class COREKIT_API CDockBar : public CControlBar, private corekit::detail::BarDock {
    DECLARE_DYNAMIC(CDockBar)
public:
    // With `floating` for the inside of a floating frame.
    explicit CDockBar(BOOL floating = FALSE);

    // `style`: WS_ and the side, CBRS_.
    using CWnd::Create;
    // `id`: AFX_IDW_DOCKBAR_, by which CFrameWnd finds it.
    BOOL Create(CWnd* parent, DWORD style, UINT id);

    // Takes a bar out of where it stood and puts it into the row below the middle of the screen rectangle,
    // at its left (standing: upper) edge; a rectangle above or below all rows, or none, begins a new row
    // there. The bar becomes a child of the dock and gets its side; nothing moves before the frame's next
    // layout.
    void DockControlBar(CControlBar* bar, const RECT* screen = nullptr);
    // False if the bar does not stand here. A floating frame goes with its last bar. The bar's window stays
    // the dock's child until it gets another parent.
    BOOL RemoveControlBar(CControlBar* bar) override;
    int GetDockedCount() const;                        // bars, shown or not
    int GetDockedVisibleCount() const;                 // those that are shown, or about to be
    CControlBar* GetDockedControlBar(int index) const; // row by row; null out of range
    BOOL HasBar(const CControlBar* bar) const;         // whether the bar stands in this dock
    // What the layout in hand leaves the dock, in the frame: a bar may take all of its length. Empty before
    // the first layout.
    const CRect& GetRoom() const { return m_room; }
    // Where the user put it, in this window; none for a bar that stands elsewhere.
    std::optional<CPoint> WantedPlace(const CControlBar* bar) const;

    // The rows from a record: the bars that `find` knows, which leave where they stood. An id of 0 begins a
    // row. Bars that `find` names twice, docks and bars without EnableDocking are passed over.
    void SetRows(const std::vector<UINT>& ids, const std::vector<CControlBarInfo>& places, CFrameWnd& site);

    BOOL IsDockBar() const override { return TRUE; }
    // Lays the bars out, and moves them unless only the size is asked for. 0 by 0, or longestBar along the
    // edge, while no bar is shown.
    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    // With the rows in m_arrBarID, and for a floating dock the corner of its frame.
    void GetBarInfo(CControlBarInfo& info) const override;
    // Nothing to do: a dock is there as long as its frame.
    void SetBarInfo(const CControlBarInfo& info) override;

protected:
    // Room at each side of the rows; none where no bar stands.
    virtual CRect RoomAround() const { return {}; }
    // Notes what room there is before it takes its own.
    LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    struct Place {
        CControlBar* bar; // not owned
        CPoint wanted;    // corner that the user gave it
    };
    using Row = std::vector<Place>;

    CPoint PlaceOf(const CControlBar& bar) const override;
    bool Floats() const override { return IsFloating(); }
    void SetDockOf(CControlBar& bar, CDockBar* dock);

    bool Lies() const { return (m_dwStyle & CBRS_ORIENT_HORZ) != 0; } // along the top or the bottom
    // Makes the bar this dock's: parent, side and borders.
    void TakeIn(CControlBar* bar);
    // The row whose span across the dock has that coordinate, before the first or behind the last.
    std::vector<Row>::iterator RowAt(int across, bool& isWithin);
    // The size that the rows take in so many pixels along the dock.
    CSize Arrange(int length, bool moves);

    std::vector<Row> m_rows;  // none is empty
    CRect m_room;             // of the layout in hand
    bool m_onlyAsked = false; // the layout in hand asks for sizes and moves nothing
};
