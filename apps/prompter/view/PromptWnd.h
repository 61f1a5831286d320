// A window that shows the session's frame: a display in front of a camera, or the operator's copy of it.
// Keys, wheel and dragging drive the session. The owner deletes it, and the window goes with it;
// user-interface thread.
#pragma once

#include "model/FrameTransform.h"
#include "view/PromptCommands.h"
#include "view/Session.h"

#include "corekit/framework/ui/Wnd.h"

#include <functional>

namespace prompter {

class PromptWnd : public CWnd {
    DECLARE_DYNAMIC(PromptWnd)
public:
    PromptWnd(Session& session, FrameForm form) : m_session(session), m_form(form) {}
    ~PromptWnd() override { DestroyWindow(); }

    // A pane in a window of the desk.
    BOOL CreatePane(CWnd* parent, UINT id, const RECT& rect);
    // A window of its own that fills the rectangle of a display.
    BOOL CreateOutput(CWnd* owner, const RECT& display);

    // The frame has changed.
    void ShowFrame() { Invalidate(FALSE); }
    void SetForm(FrameForm form);
    FrameForm Form() const { return m_form; }

    std::function<void()> onLeave; // the command that leaves the view
    static std::int64_t Now();     // microseconds of the steady clock

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void OnPaint();
    BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd*) { m_dragging = false; }
    UINT OnGetDlgCode() { return DLGC_WANTALLKEYS; }
    DECLARE_MESSAGE_MAP()

private:
    void Perform(const PromptCommand& command);
    bool TakeStoryDigit(WPARAM key);
    double FramePixels(int windowPixels) const;

    Session& m_session;
    FrameForm m_form;
    FrameBuffer m_turned;
    bool m_dragging = false;
    CPoint m_lastPoint;
    int m_wheel = 0;        // part of a notch that is left over
    int m_storyDigits = -1; // the number typed so far, -1 while none is asked for
};

} // namespace prompter
