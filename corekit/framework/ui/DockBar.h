// A dock: the strip along one edge of a frame, or the inside of a floating frame, in which bars stand in
// rows.
//
// Bars keep the place along their row that the user gave them as far as there is room; a row that is too long
// goes on below. The dock does not own its bars. A frame makes its docks in EnableDocking; they delete
// themselves.
#pragma once

#include "corekit/framework/ui/ControlBar.h"

#include <optional>
#include <vector>

class COREKIT_API CDockBar : public CControlBar, private corekit::detail::BarDock {
    DECLARE_DYNAMIC(CDockBar)
public:
    explicit CDockBar(BOOL floating = FALSE);

    // `style`: WS_ and the side, CBRS_.
    using CWnd::Create;
    BOOL Create(CWnd* parent, DWORD style, UINT id);

    // Takes a bar out of where it stood and puts it into the row below the middle of the screen rectangle, at
    // its left (standing: upper) edge; a rectangle above or below all rows, or none, begins a new row there.
    void DockControlBar(CControlBar* bar, const RECT* screen = nullptr);
    // False if the bar does not stand here. A floating frame goes with its last bar.
    BOOL RemoveControlBar(CControlBar* bar) override;
    int GetDockedCount() const;
    int GetDockedVisibleCount() const;
    CControlBar* GetDockedControlBar(int index) const; // row by row; null out of range
    BOOL HasBar(const CControlBar* bar) const;
    // What the layout in hand leaves the dock, in the frame: a bar may take all of its length.
    const CRect& GetRoom() const { return m_room; }
    // Where the user put it, in this window; none for a bar that stands elsewhere.
    std::optional<CPoint> WantedPlace(const CControlBar* bar) const;

    // The rows from a record: the bars that `find` knows, which leave where they stood.
    void SetRows(const std::vector<UINT>& ids, const std::vector<CControlBarInfo>& places, CFrameWnd& site);

    BOOL IsDockBar() const override { return TRUE; }
    // Lays the bars out, and moves them unless only the size is asked for.
    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    void GetBarInfo(CControlBarInfo& info) const override;
    void SetBarInfo(const CControlBarInfo& info) override;

protected:
    // Room at each side of the rows; none where no bar stands.
    virtual CRect RoomAround() const { return {}; }
    LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    struct Place {
        CControlBar* bar;
        CPoint wanted;
    };
    using Row = std::vector<Place>;

    CPoint PlaceOf(const CControlBar& bar) const override;
    bool Floats() const override { return IsFloating(); }
    void SetDockOf(CControlBar& bar, CDockBar* dock);

    bool Lies() const { return (m_dwStyle & CBRS_ORIENT_HORZ) != 0; }
    void TakeIn(CControlBar* bar);
    // The row whose span across the dock has that coordinate, before the first or behind the last.
    std::vector<Row>::iterator RowAt(int across, bool& isWithin);
    CSize Arrange(int length, bool moves);

    std::vector<Row> m_rows; // none is empty
    CRect m_room;            // of the layout in hand
    bool m_onlyAsked = false;
};
