// A dialog that docks to an edge of the screen and keeps that strip for itself, floats, or hides on its edge
// until the mouse comes near.
//
//     class CClockBar : public CAppBar {
//     public:
//         CClockBar() : CAppBar(IDD_CLOCK) { m_dwFlags = appBarAllowTopBottom | appBarAllowAutohide; }
//     };
//     CClockBar bar;
//     bar.Create(IDD_CLOCK, &frame);
//     bar.SetState(ABE_TOP);
//
// The template is a pop-up without caption, with WS_THICKFRAME if the bar may be sized: it is moved by its
// body and sized by its inner side. The host keeps an APPBARSTATE from run to run. A host that allows sizing
// sets the increments above 0. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Dialog.h"
#include "corekit/windows/AppBarGeometry.h"

class COREKIT_API CAppBar : public CDialog {
    DECLARE_DYNAMIC(CAppBar)
public:
    static UINT s_uAppBarNotifyMsg; // by which the desktop calls back

    // Docked at the bottom at first, with a breadth of 0: a host that has no APPBARSTATE yet sets one.
    explicit CAppBar(UINT templateId, CWnd* parent = nullptr);

    ~CAppBar() override;

    using CDialog::Create;
    // Makes the window and tells the desktop of it; SetState brings it to its place. 0 on failure.
    BOOL Create(UINT templateId, CWnd* parent = nullptr);

    // Puts a state in force: an edge, appBarFloat, appBarUnknown; or the present one once more. A bar that
    // shall hide itself on an edge where another one does is docked instead (OnAppBarForcedToDocked).
    // OnAppBarStateChange follows. Before Create an APPBARSTATE is only kept, and the others have no use.
    void SetState() { SetState(GetState()); }
    void SetState(UINT state);
    void SetState(const APPBARSTATE& state);
    // The state in force, or while the user drags the bar the one that it would get.
    UINT GetState() const { return m_proposed != appBarUnknown ? m_proposed : m_state.uState; }
    void GetState(APPBARSTATE* state) const; // as many bytes as its first member says

    BOOL IsBarAutohide() const { return m_state.fAutohide; } // also while it is not docked
    // Above other windows, but for full-screen ones.
    BOOL IsBarAlwaysOnTop() const { return m_state.fAlwaysOnTop; }

    void GetFloatRect(CRect* rect) const { *rect = CRect(m_state.rcFloat); }
    // Pixels across an edge; 0 for a state that is none.
    UINT GetDockedDim(UINT edge) const { return edge <= ABE_BOTTOM ? m_state.auDimsDock[edge] : 0; }

    UINT GetAutohideEdge(); // on which the bar hides itself, appBarUnknown for none

    static bool IsEdgeLeftOrRight(UINT edge) { return corekit::detail::isSideEdge(edge); }
    static bool IsEdgeTopOrBottom(UINT edge) { return corekit::detail::isEndEdge(edge); }
    // The state for a bar that is dragged to the point of the screen, by appBarAllow flags.
    static UINT GetEdgeFromPoint(DWORD flags, CPoint point);

    static void ResetSystemKnowledge() {}
    // Follows the task bar where the options allow it: bit 0 hides itself, bit 1 always on top. `changed`
    // says which bits count.
    void MimicState(DWORD changed, DWORD state);

    // The host's answers. What the user is moving the bar to (1), or the state now in force (0).
    virtual void OnAppBarStateChange(int proposed, UINT state);
    virtual void OnAppBarForcedToDocked();     // another bar hides on the edge: says so in a box
    virtual void OnABNFullScreenApp(int open); // gives way, or comes back
    virtual void OnABNPosChanged();            // another bar or the screen: docks anew
    virtual void OnABNStateChange(DWORD changed, DWORD state); // the task bar's: MimicState
    virtual void OnABNWindowArrange(int beginning); // before (1) and after the desktop arranges windows

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // To the desktop, for this window.
    UINT_PTR SHAppBarMessage(DWORD message, UINT edge = 0, LONG param = 0, CRect* rect = nullptr);

    UINT CalcProposedState(const CPoint& point) const;
    // Where a bar of that state goes; left as it is for a state that is no edge.
    void GetRect(UINT state, CRect* rect);

    int AdjustLocationForAutohide(int show, CRect* rect) const; // 0: the bar does not hide itself
    // Slides a bar that hides itself into sight, or with 0 out of it; nothing while it slides.
    void ShowHiddenAppBar(int show = 1);

    void SlideWindow(const CRect& end); // blocks for 400 ms; at once where windows move as outlines

    int OnCreate(CREATESTRUCTA* create); // tells the desktop that the bar comes
    void OnDestroy();                    // and that it goes
    void OnWindowPosChanged(WINDOWPOS* place);
    void OnActivate(UINT state, CWnd* other, BOOL minimised); // a bar that is left hides
    // Every 400 ms: hides a bar that is not active and that the mouse has left.
    void OnTimer(UINT_PTR id);
    // The body moves the bar, the inner side of a docked one sizes it.
    LRESULT OnNcHitTest(CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point); // ends what the press began
    void OnCaptureChanged(CWnd* other);

    LRESULT OnNcMouseMove(WPARAM wParam, LPARAM lParam); // shows it
    LRESULT OnEnterSizeMove(WPARAM wParam, LPARAM lParam);
    LRESULT OnMoving(WPARAM wParam, LPARAM lParam);            // proposes the state for where the mouse is
    LRESULT OnSizing(WPARAM wParam, LPARAM lParam);            // whole increments
    LRESULT OnExitSizeMove(WPARAM wParam, LPARAM lParam);      // puts the proposed state in force
    LRESULT OnAppBarCallbackMsg(WPARAM wParam, LPARAM lParam); // calls the answers above
    DECLARE_MESSAGE_MAP()

    DWORD m_taskBarState = 0; // bit 0 hides itself, bit 1 on top
    APPBARSTATE m_state{};
    DWORD m_dwFlags = 0;             // appBarAllow...
    CSize m_increment;               // of the client area while the user sizes the bar
    UINT m_proposed = appBarUnknown; // while the user moves the bar
    BOOL m_fullScreenOpen = FALSE, m_visibleWhileHidden = FALSE;

private:
    void Track(CPoint screen);

    UINT m_trackedHit = 0;             // what the user holds, 0 for nothing
    CPoint m_trackedFrom, m_trackedAt; // on the screen
    CRect m_trackedRect;
    bool m_slides = false, m_isPressed = false;
};
