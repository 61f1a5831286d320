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

inline constexpr UINT SBPS_NORMAL = 0, SBPS_NOBORDERS = 0x100, SBPS_POPOUT = 0x200, SBPS_OWNERDRAW = 0x1000,
                      SBPS_DISABLED = 0x04000000, SBPS_STRETCH = 0x08000000;

class COREKIT_API CStatusBar : public CControlBar {
    DECLARE_DYNAMIC(CStatusBar)
public:
    using CControlBar::Create;
    BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM,
                UINT id = AFX_IDW_STATUS_BAR);

    BOOL SetIndicators(const UINT* ids, int count);
    int GetPaneCount() const { return static_cast<int>(m_panes.size()); }
    // Panes from 0. Operations on one that does not exist give 0.
    BOOL GetPaneInfo(int pane, UINT& id, UINT& style, int& width) const;
    BOOL SetPaneInfo(int pane, UINT id, UINT style, int width); // width of the text in pixels
    virtual BOOL SetPaneText(int pane, const char* text, BOOL update = TRUE);
    CString GetPaneText(int pane) const;
    UINT GetItemID(int pane) const;
    int CommandToIndex(UINT id) const;
    BOOL GetItemRect(int pane, RECT* rect) const;
    int PaneAt(CPoint client) const; // -1 for none

    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;

protected:
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    void OnPaint() { Default(); } // the control's own work
    void OnSize(UINT how, int width, int height);
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    // Brings style and text of a pane to the control.
    virtual void ShowPane(std::size_t pane);
    DECLARE_MESSAGE_MAP()

private:
    struct Pane {
        UINT id, style;
        int width;
        CString text;
    };
    friend class CStatusCmdUI;

    void LayPanes(int width);
    int TextWidth(const char* text);

    std::vector<Pane> m_panes;
};
