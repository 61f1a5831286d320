// An edit control of one line or many.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Edits.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Edits.h"

class COREKIT_API CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_EDITA, nullptr, style, rect, parent, id);
    }
    void GetSel(int& start, int& end) const
    {
        SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    }
    DWORD GetSel() const { return static_cast<DWORD>(SendMessage(EM_GETSEL, 0, 0)); }
    void SetSel(int start, int end, BOOL noScroll = FALSE)
    {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end);
        if (!noScroll) SendMessage(EM_SCROLLCARET);
    }
    void ReplaceSel(const char* text, BOOL canUndo = FALSE)
    {
        SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text));
    }
    BOOL GetModify() const { return SendMessage(EM_GETMODIFY, 0, 0) != 0; }
    void SetModify(BOOL modified = TRUE) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified), 0); }
    void SetLimitText(UINT units) { SendMessage(EM_SETLIMITTEXT, units, 0); }
    void LimitText(int units = 0) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(units), 0); }
    UINT GetLimitText() const { return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT, 0, 0)); }
    int GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT, 0, 0)); }
    int LineIndex(int line = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(line), 0));
    }
    int LineLength(int position = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(position), 0));
    }
    int LineFromChar(int position = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINEFROMCHAR, static_cast<WPARAM>(position), 0));
    }
    // Up to size bytes, without a zero; size at least 2.
    int GetLine(int line, char* buffer, int size) const;
    void LineScroll(int lines, int = 0) { SendMessage(EM_LINESCROLL, 0, lines); }
    int GetFirstVisibleLine() const { return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE, 0, 0)); }
    BOOL SetReadOnly(BOOL readOnly = TRUE)
    {
        return SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly), 0) != 0;
    }
    void SetPasswordChar(char shown)
    {
        SendMessage(EM_SETPASSWORDCHAR, static_cast<unsigned char>(shown), 0);
    }
    BOOL CanUndo() const { return SendMessage(EM_CANUNDO, 0, 0) != 0; }
    BOOL Undo() { return SendMessage(EM_UNDO, 0, 0) != 0; }
    void EmptyUndoBuffer() { SendMessage(EM_EMPTYUNDOBUFFER, 0, 0); }
    void Cut() { SendMessage(WM_CUT, 0, 0); }
    void Copy() { SendMessage(WM_COPY, 0, 0); }
    void Paste() { SendMessage(WM_PASTE, 0, 0); }
    void Clear() { SendMessage(WM_CLEAR, 0, 0); }
};
