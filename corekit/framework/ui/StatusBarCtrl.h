// A status bar.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// StatusBars.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/StatusBars.h"

class COREKIT_API CStatusBarCtrl : public CWnd {
    DECLARE_DYNAMIC(CStatusBarCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(STATUSCLASSNAMEA, nullptr, style, rect, parent, id);
    }
    BOOL SetText(const char* text, int part, int how)
    {
        return SendMessage(SB_SETTEXTA, static_cast<WPARAM>(part | how), reinterpret_cast<LPARAM>(text)) != 0;
    }
    CString GetText(int part, int* how = nullptr) const;
    BOOL SetParts(int count, const int* rights)
    {
        return SendMessage(SB_SETPARTS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(rights)) != 0;
    }
    int GetParts(int count, int* rights) const
    {
        return static_cast<int>(
            SendMessage(SB_GETPARTS, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(rights)));
    }
    BOOL GetRect(int part, RECT* rect) const
    {
        return SendMessage(SB_GETRECT, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(rect)) != 0;
    }
    void SetMinHeight(int pixels) { SendMessage(SB_SETMINHEIGHT, static_cast<WPARAM>(pixels), 0); }
    BOOL SetSimple(BOOL simple = TRUE) { return SendMessage(SB_SIMPLE, static_cast<WPARAM>(simple), 0) != 0; }
    BOOL IsSimple() const { return SendMessage(SB_ISSIMPLE, 0, 0) != 0; }
    BOOL SetIcon(int part, HICON icon)
    {
        return SendMessage(SB_SETICON, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(icon)) != 0;
    }

    // Of parts that the owner draws; does nothing here.
    virtual void DrawItem(DRAWITEMSTRUCT*) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
