// The status bar of a frame: panes of text at its lower edge.
//
//     static constexpr UINT panes[] = {0, idLine, idCaps}; // 0: for messages, takes the room that is left
//     bar.Create(&frame);
//     bar.SetIndicators(panes, 3);
//
// A pane's id is its text in the string table and its command: an update handler enables the pane, which
// shows its text, or disables it, which leaves it empty. User-interface thread only.
#pragma once

#include "corekit/framework/ui/ControlBar.h"
#include "corekit/platform/StatusBars.h"

// Looks of a pane: sunk, flat, raised, drawn by the owner; disabled shows no text, stretching takes what
// room is left.
inline constexpr UINT SBPS_NORMAL = 0, SBPS_NOBORDERS = 0x100, SBPS_POPOUT = 0x200, SBPS_OWNERDRAW = 0x1000,
                      SBPS_DISABLED = 0x04000000, SBPS_STRETCH = 0x08000000;

class COREKIT_API CStatusBar : public CControlBar {
    DECLARE_DYNAMIC(CStatusBar)
public:
    using CControlBar::Create;
    // 0 on failure. `style` has WS_ flags and the side, CBRS_BOTTOM as a rule.
    BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM,
                UINT id = AFX_IDW_STATUS_BAR);

    // 1 to 255 panes; those before are gone. The first pane with id 0 stretches; others are as wide as their
    // text. 0 without a window.
    BOOL SetIndicators(const UINT* ids, int count);
    int GetPaneCount() const { return static_cast<int>(m_panes.size()); }
    // Panes from 0. Operations on one that does not exist give 0. Id, SBPS_ style and width of the text in
    // pixels.
    BOOL GetPaneInfo(int pane, UINT& id, UINT& style, int& width) const;
    // The width is that of the text in pixels; a margin of four comes at each side.
    BOOL SetPaneInfo(int pane, UINT id, UINT style, int width); // width of the text in pixels
    // Without `update` it shows the next time that the pane changes.
    virtual BOOL SetPaneText(int pane, const char* text, BOOL update = TRUE);
    CString GetPaneText(int pane) const; // also of a disabled one
    UINT GetItemID(int pane) const;
    int CommandToIndex(UINT id) const; // -1 without one
    // In the bar's client area.
    BOOL GetItemRect(int pane, RECT* rect) const;
    int PaneAt(CPoint client) const; // -1 for none

    // A line of the font and eight pixels high.
    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    // Asks for each pane by its id; a pane whose command nobody updates keeps its state.
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;

protected:
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    void OnPaint() { Default(); } // the control's own work
    void OnSize(UINT how, int width, int height);
    // The window's text is that of the first pane (CFrameWnd::SetMessageText).
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    // Brings style and text of a pane to the control.
    virtual void ShowPane(std::size_t pane);
    DECLARE_MESSAGE_MAP()

private:
    struct Pane {
        UINT id, style;
        int width; // pixels of the text
        CString text;
    };
    friend class CStatusCmdUI;

    // Shares what is left among the panes that stretch, 40 pixels at least for each.
    void LayPanes(int width);
    // In the bar's font, in pixels.
    int TextWidth(const char* text);

    std::vector<Pane> m_panes;
};
