// An edit control of one line or many.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// Edits.h. User-interface thread only.
//
// Positions and limits count UTF-16 units, lines from 0; a line end counts as two units. Narrow text is in
// the active code page. The parent hears EN_CHANGE (ON_EN_CHANGE) and other EN_ codes.
//
//     CEdit notes;
//     notes.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | ES_MULTILINE, place, this, idNotes);
//     notes.SetWindowText("Line one\r\nLine two");
//     notes.SetSel(0, -1); // all of it
//     notes.ReplaceSel("Something else", TRUE);
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Edits.h"

class COREKIT_API CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)

    // A child of `parent`. ES_MULTILINE makes one of many lines; WS_BORDER draws a frame.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(WC_EDITA, nullptr, style, rect, parent, id);
    }
    // Without a selection both are the caret's place.
    void GetSel(int& start, int& end) const
    {
        SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    }
    // Start in the low and end in the high word; 0xFFFFFFFF where they lie beyond 65,535.
    DWORD GetSel() const { return static_cast<DWORD>(SendMessage(EM_GETSEL, 0, 0)); }
    // 0 and -1 select all, a start of -1 nothing. The caret stands at `end`, and comes into view unless
    // `noScroll`.
    void SetSel(int start, int end, BOOL noScroll = FALSE)
    {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end);
        if (!noScroll) SendMessage(EM_SCROLLCARET);
    }
    // Puts the text in place of the selection, or in at the caret. Without `canUndo` all undo is forgotten.
    // In one line the limit and the rules of the style (ES_NUMBER ...) hold.
    void ReplaceSel(const char* text, BOOL canUndo = FALSE)
    {
        SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text));
    }
    // Set by what the user enters and by ReplaceSel, cleared by setting the whole text.
    BOOL GetModify() const { return SendMessage(EM_GETMODIFY, 0, 0) != 0; }
    void SetModify(BOOL modified = TRUE) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified), 0); }
    // What the user can enter, 0 the greatest number; 30,000 at first. Text that stands there or is set
    // stays.
    void SetLimitText(UINT units) { SendMessage(EM_SETLIMITTEXT, units, 0); }
    void LimitText(int units = 0) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(units), 0); }
    UINT GetLimitText() const { return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT, 0, 0)); }
    // Lines on show: a wrapped paragraph has several. Linear in the text.
    int GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT, 0, 0)); }
    // The position at which the line begins, -1 for one that does not exist; line -1 is the caret's.
    int LineIndex(int line = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(line), 0));
    }
    // Of the line that holds the position, without its end. -1: what of the lines that the selection touches
    // is not selected.
    int LineLength(int position = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(position), 0));
    }
    // The line of a position; -1: of the selection's beginning.
    int LineFromChar(int position = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINEFROMCHAR, static_cast<WPARAM>(position), 0));
    }
    // Up to size bytes, without a zero; size at least 2. The bytes copied; 0 for a line that does not exist.
    int GetLine(int line, char* buffer, int size) const;
    // Down, or up for less than 0. Lines do not scroll sideways.
    void LineScroll(int lines, int = 0) { SendMessage(EM_LINESCROLL, 0, lines); }
    // In one line the first visible position.
    int GetFirstVisibleLine() const { return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE, 0, 0)); }
    // The user can select and copy then, and not change.
    BOOL SetReadOnly(BOOL readOnly = TRUE)
    {
        return SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly), 0) != 0;
    }
    // Hides what is entered behind the toolkit's sign; 0 shows it. One line only.
    void SetPasswordChar(char shown)
    {
        SendMessage(EM_SETPASSWORDCHAR, static_cast<unsigned char>(shown), 0);
    }
    BOOL CanUndo() const { return SendMessage(EM_CANUNDO, 0, 0) != 0; }
    // Undoes the last step; true in any case.
    BOOL Undo() { return SendMessage(EM_UNDO, 0, 0) != 0; }
    void EmptyUndoBuffer() { SendMessage(EM_EMPTYUNDOBUFFER, 0, 0); }
    // By way of the clipboard. A read-only control does not paste.
    void Cut() { SendMessage(WM_CUT, 0, 0); }
    void Copy() { SendMessage(WM_COPY, 0, 0); }
    void Paste() { SendMessage(WM_PASTE, 0, 0); }
    void Clear() { SendMessage(WM_CLEAR, 0, 0); } // deletes the selection
};
