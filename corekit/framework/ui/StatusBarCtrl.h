// A status bar.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// StatusBars.h. User-interface thread only.
//
// Parts count from 0; one takes the whole bar at first. Text is in the active code page: behind one tab it
// is centred, behind two it stands at the right. CStatusBar is the bar of a frame, with panes that follow
// commands.
//
//     const int rights[] = {200, 280, -1};
//     bar.SetParts(3, rights);
//     bar.SetText("Ready", 0, 0);
//     bar.SetText("\tOVR", 1, SBT_POPOUT); // in the middle of a raised part
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/StatusBars.h"

class COREKIT_API CStatusBarCtrl : public CWnd {
    DECLARE_DYNAMIC(CStatusBarCtrl)

    // A child of `parent`. It lies at the lower edge of its parent and follows it; the rectangle does not
    // matter, unless CCS_NOPARENTALIGN is set.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(STATUSCLASSNAMEA, nullptr, style, rect, parent, id);
    }
    // `how`: SBT_, or-ed. False for a part that does not exist. SB_SIMPLEID is the one text of the simple
    // mode.
    BOOL SetText(const char* text, int part, int how)
    {
        return SendMessage(SB_SETTEXTA, static_cast<WPARAM>(part | how), reinterpret_cast<LPARAM>(text)) != 0;
    }
    // Up to 65,535 bytes; `how` may be null.
    CString GetText(int part, int* how = nullptr) const;
    // Right edges in pixels, -1 for the bar's end; 1 to 255 parts.
    BOOL SetParts(int count, const int* rights)
    {
        return SendMessage(SB_SETPARTS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(rights)) != 0;
    }
    // Stores at most `count` right edges; answers how many parts there are. `rights` may be null.
    int GetParts(int count, int* rights) const
    {
        return static_cast<int>(
            SendMessage(SB_GETPARTS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(rights)));
    }
    // In the client area.
    BOOL GetRect(int part, RECT* rect) const
    {
        return SendMessage(SB_GETRECT, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(rect)) != 0;
    }
    // Of a part, in pixels; the font may ask for more.
    void SetMinHeight(int pixels) { SendMessage(SB_SETMINHEIGHT, static_cast<WPARAM>(pixels), 0); }
    // Shows one text over the whole bar, or the parts again.
    BOOL SetSimple(BOOL simple = TRUE) { return SendMessage(SB_SIMPLE, static_cast<WPARAM>(simple), 0) != 0; }
    BOOL IsSimple() const { return SendMessage(SB_ISSIMPLE, 0, 0) != 0; }
    // In front of the part's text; null takes it away. Not owned.
    BOOL SetIcon(int part, HICON icon)
    {
        return SendMessage(SB_SETICON, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(icon)) != 0;
    }

    // Of parts that the owner draws; does nothing here. With SBT_OWNERDRAW: itemID is the part.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
