// A tool tip control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ToolTips.h. User-interface thread only.
//
// The object is as a rule a member of the window whose controls it explains. Tips come and go by the
// toolkit's timing.
//
//     m_tips.Create(this);
//     m_tips.AddTool(&m_play, "Starts the prompter");
//     m_tips.AddTool(this, "The script", &area, 1); // a part of this window
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ToolTips.h"

class COREKIT_API CToolTipCtrl : public CWnd {
    DECLARE_DYNAMIC(CToolTipCtrl)

    // TTS_NOPREFIX shows ampersands as they are.
    BOOL Create(CWnd* parent, DWORD style = 0)
    {
        return CreateEx(0, TOOLTIPS_CLASSA, nullptr, WS_POPUP | style, 0, 0, 0, 0, parent->GetSafeHwnd(),
                        nullptr);
    }
    // Null for the rectangle: the whole window is the tool. A number of the string table gives the text that
    // it has now. With an id the tool is the rectangle of the window's client area, which must be given;
    // with id 0 the window itself. A tool that is there already is changed. LPSTR_TEXTCALLBACK asks the
    // parent by TTN_GETDISPINFO.
    BOOL AddTool(CWnd* window, const char* text = LPSTR_TEXTCALLBACKA, const RECT* rect = nullptr,
                 UINT_PTR id = 0);
    BOOL AddTool(CWnd* window, UINT textId, const RECT* rect = nullptr, UINT_PTR id = 0);
    // By window and id, as the next ones; nothing happens for one that is not there.
    void DelTool(CWnd* window, UINT_PTR id = 0);
    // The next time that the tip shows.
    void UpdateTipText(const char* text, CWnd* window, UINT_PTR id = 0);
    void UpdateTipText(UINT textId, CWnd* window, UINT_PTR id = 0);
    // While it is off no tip shows.
    void Activate(BOOL active) { SendMessage(TTM_ACTIVATE, static_cast<WPARAM>(active), 0); }
    int GetToolCount() const { return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT, 0, 0)); }
    // Pixels at which text wraps, -1 never; answers the former.
    int SetMaxTipWidth(int pixels) { return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, pixels)); }
    // Accepted: the control watches the tools itself.
    void RelayEvent(MSG* message) { SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message)); }
    void Pop() { SendMessage(TTM_POP, 0, 0); } // hides the tip on show
};
