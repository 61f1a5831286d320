// A tool tip control.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ToolTips.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ToolTips.h"

class COREKIT_API CToolTipCtrl : public CWnd {
    DECLARE_DYNAMIC(CToolTipCtrl)

    BOOL Create(CWnd* parent, DWORD style = 0)
    {
        return CreateEx(0, TOOLTIPS_CLASSA, nullptr, WS_POPUP | style, 0, 0, 0, 0, parent->GetSafeHwnd(),
                        nullptr);
    }
    // Null for the rectangle: the whole window is the tool. A number of the string table gives the text that
    // it has now.
    BOOL AddTool(CWnd* window, const char* text = LPSTR_TEXTCALLBACKA, const RECT* rect = nullptr,
                 UINT_PTR id = 0);
    BOOL AddTool(CWnd* window, UINT textId, const RECT* rect = nullptr, UINT_PTR id = 0);
    void DelTool(CWnd* window, UINT_PTR id = 0);
    void UpdateTipText(const char* text, CWnd* window, UINT_PTR id = 0);
    void UpdateTipText(UINT textId, CWnd* window, UINT_PTR id = 0);
    void Activate(BOOL active) { SendMessage(TTM_ACTIVATE, static_cast<WPARAM>(active), 0); }
    int GetToolCount() const { return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT, 0, 0)); }
    int SetMaxTipWidth(int pixels) { return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, pixels)); }
    void RelayEvent(MSG* message) { SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message)); }
    void Pop() { SendMessage(TTM_POP, 0, 0); }
};
