// The strip of tabs along the bottom of a stack of panes: where tabs, scroll buttons and splitter lie, which
// tabs are in sight, what a point hits. Numbers only, in client pixels; CTabbedOverlayWnd draws it.
//
// Tabs have two places: in the strip, where they lie side by side, and in the window, where the strip is
// shifted to the left by the offset and begins at the tab area's left edge.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/platform/Export.h"

#include <span>
#include <vector>

namespace corekit::detail {

// The index that is active after a removal: the place of the removed one if that was active, else the same
// pane as before. -1 when none is left.
constexpr int activeAfterRemoval(int active, int removed, int remaining)
{
    return active > removed ? active - 1 : std::min(active, remaining - 1);
}

enum class TabStep { left, right };

// A plain value without tabs at first; the owner tells it what has changed and asks it where things are.
// One thread at a time.
class COREKIT_API TabStrip {
public:
    static constexpr int firstLeft = 6;       // of the first tab in the strip
    static constexpr int splitterWidth = 4;   // between tabs and scroll bar
    static constexpr int splitterMargin = 80; // from either end; the left one counts where both do not fit

    // Lays tabs of these widths side by side, from firstLeft on. Resize must follow.
    void SetTabs(std::span<const int> widths);
    // Fits everything into a client area whose lowest `stripHeight` pixels are the strip's; 0 hides it.
    // Tabs that do not fit bring two square scroll buttons at the left end, and leave no gap behind the
    // last tab.
    void Resize(CSize client, int stripHeight);
    // Both take effect with the next Resize. The splitter is where the tabs end and the scroll bar begins.
    void SetScrollBar(bool shown) { m_hasScrollBar = shown; }
    void MoveSplitter(int position) { m_splitter = position; }

    // Makes `tab` visible if the strip is, and its offset that of the first tab in sight.
    void BringIntoView(int tab);
    // Brings the next tab on that side to the front of the strip; false, and nothing changes, at the end.
    bool Step(TabStep direction);
    // Finds out which tab stands in front, after tabs have come or gone.
    void FindFirstVisible();
    // What has to stand in front when tabs before it go or come: -1 for none.
    int FirstVisible() const { return m_firstVisible; }

    // The tab at a point of the client area, -1 for none.
    int TabAt(POINT point) const;
    // Where a tab lies in the window, in full height.
    CRect TabRect(int tab) const;

    // What was laid out, in pixels; the edges of a tab are those in the strip.
    int Count() const { return static_cast<int>(m_tabs.size()); }
    int Left(int tab) const { return m_tabs[static_cast<std::size_t>(tab)].left; }
    int Right(int tab) const { return m_tabs[static_cast<std::size_t>(tab)].right; }
    int Width() const
    {
        return m_tabs.empty() ? firstLeft : m_tabs.back().right;
    }                                                         // right edge of the last tab
    int Offset() const { return m_offset; }                   // how far the strip is shifted
    int Splitter() const { return m_splitter; }               // its left edge in the window
    int Height() const { return m_height; }                   // of the strip; 0 hidden
    int PaneHeight() const { return m_client.cy - m_height; } // what the strip leaves above it

    const CRect& TabArea() const { return m_area; } // empty without a strip
    CRect ScrollBarRect() const;                    // empty without one
    CRect SplitterRect() const;                     // likewise
    CRect ButtonRect(TabStep button) const;         // empty while all tabs fit
    bool ButtonsShown() const { return m_buttonsShown; }
    bool ButtonEnabled(TabStep button) const; // false at that end of the tabs

private:
    struct Extent {
        int left, right;
    };
    // Moves the offset to where a tab begins.
    void Snap();

    std::vector<Extent> m_tabs;
    CSize m_client; // as given to Resize
    int m_height = 0;
    int m_offset = 0;
    int m_firstVisible = -1;
    int m_splitter = 0;
    bool m_hasScrollBar = false;
    bool m_buttonsShown = false;
    CRect m_area; // where tabs are, in the window
};

} // namespace corekit::detail
