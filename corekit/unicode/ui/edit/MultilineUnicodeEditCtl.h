// An edit window for short texts in any script: it draws and breaks its lines itself, by CUniRender.
//
// Return, Escape, Tab and moves past the first and last line go to a sink, so that a host can treat the
// window as a cell in a grid. There is one level of undo: it brings back the text before the last deletion of
// a selection or paste, and brings that away again.
//
// Keys: Left and Right follow the direction of the keyboard in use; Shift selects, Ctrl goes by words and to
// the ends; Shift+Return and Ctrl+Return break the line; Ctrl+A, C, V, X, Z, Ctrl+Insert, Shift+Insert,
// Shift+Delete and Alt+Backspace do as they do elsewhere. The host's loop must pass messages to
// PreTranslateMessage, as the framework's does. Meant for wrapping: without it a text of several lines edits
// at the wrong place.
//
// CUnicodeManager::Initialise is called by the window itself. User-interface thread only.
//
//     m_edit.Create(this, editId, place);
//     m_edit.RegisterSink(this);
//     m_edit.SetString(u"Good evening.");
//     ...
//     const StringW text = m_edit.GetString();
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/AccessibleText.h"
#include "corekit/unicode/ui/edit/EditModel.h"
#include "corekit/unicode/ui/edit/RendererRuler.h"
#include "corekit/unicode/ui/edit/ShownRows.h"
#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/UniRender.h"

#include <chrono>

class CMultilineUnicodeEditCtlSink;
class CUnicodeManager;

class COREKIT_API CMultilineUnicodeEditCtl : public CWnd, private corekit::detail::AccessibleText {
    DECLARE_DYNAMIC(CMultilineUnicodeEditCtl)
public:
    // No window yet. Create sets font and alignment; a text may be given before it.
    CMultilineUnicodeEditCtl();

    ~CMultilineUnicodeEditCtl() override;

    // A child, visible, with a vertical scroll bar and a tab stop. FALSE if its fonts cannot be made; the
    // thread's ProcessWndProcException hears why.
    BOOL Create(CWnd* parent, unsigned id, const CRect& rect);

    // Replaces the text, which undo does not bring back.
    void SetString(const WCHAR* text); // lines end with \n; cursor and selection stay as far as they can

    StringW GetString() const { return m_model.Text(); }
    // Puts text in the place of the selection and of one more character behind it. Nothing without one.
    // Undo does not bring the former text back.
    void ReplaceSel(const WCHAR* text);
    // What undo brings back next is the text as it is now.
    void CommitToUndoBuffer() { m_model.CommitToUndoBuffer(); }
    // To the clipboard as wide and as narrow text; 0 without a selection, when the clipboard stays.
    int CopySelectedText();
    // Behind the last character; a selection goes unless Shift is held.
    void MoveCursorToEnd();

    // The text of a CFontDescriptor. Throws CChainedException for a face that the machine does not have,
    // and then keeps the font that it had. The cursor goes to the start.
    void SetFontData(const char* combinedFont, int bold, int italic);

    int GetTextHeight(); // of a line, in pixels
    // Of text and ground; black on white at first. A selection has the system's colours.
    void SetColours(COLORREF text, COLORREF back);
    // Lines end where the window does, as at first, or with 0 only at their \n.
    void SetWrap(int wrap);
    // Characters; the text is cut to that, to nothing by 0, which then limits no typing. Pastes may exceed
    // it.
    void SetLimitText(short limit);
    void SetMakeUpper(int upper); // what is typed from here on, and all that is there
    // Both show at the next paint. Alignment: 0 left, 1 centred, 2 right.
    void SetBorder(int border);
    void SetAlignment(int alignment);
    void SetInitialHighlightOff(); // else all is selected when the window gets the focus

    // Not owned, one at a time; the window lets go of it when it is destroyed.
    void RegisterSink(CMultilineUnicodeEditCtlSink* sink) { m_sink = sink; }
    void RevokeSink() { m_sink = nullptr; }

    // Keyboards of the manager first, then the keys for copying, cutting and pasting.
    BOOL PreTranslateMessage(MSG* message) override;

    // What the window knows of its text, for hosts that show where the cursor is.
    const corekit::detail::EditModel& GetModel() const { return m_model; }
    int GetCursorIndex(); // into the string

    // ---- By index into the string, for hosts that edit by themselves.
    void GetSelection(int& from, int& to); // in ascending order; both are the cursor's without one
    void Select(int from, int to);         // the cursor goes to `to`
    void Replace(int from, int to,
                 const WCHAR* text); // the cursor goes behind the text; undo brings back what was
    void CopyText(int from, int to); // to the clipboard
    // Another spelling of what stands there, which undo does not bring back; the cursor goes to an index.
    void Respell(int from, int to, const StringW& text, int cursor);
    // Where the text has changed since this was called last: how many characters have come in the place of
    // how many. False if nowhere.
    bool TakeChange(int& from, int& removed, int& added);

    static CString m_strClassName; // of the window class

protected:
    // Life and focus. With the focus the caret is shown and, unless that is off, all is selected; without
    // it the sink hears of it, but not when the focus goes to a window that contains this one.
    int OnCreate(CREATESTRUCTA* create);
    void OnDestroy();
    void OnSize(UINT how, int width, int height); // lines anew
    void OnSetFocus(CWnd* before);
    void OnKillFocus(CWnd* next);
    UINT OnGetDlgCode(); // wants all keys

    // Frame, ground and the rows that are in view and invalid.
    void OnPaint();
    // A part of a row in display order, in the colours of the selection or not.
    void DrawStringPortion(HDC dc, StringW& text, int selected, const CRect& rect, CArray<int, int>& types);

    // Typing. Keys that keyRows has do what stands there; others replace a selection and go on.
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnSysKeyDown(UINT key, UINT repeat, UINT flags); // Alt and Backspace undo
    void OnCCopy();
    void OnCCut();
    void OnCPaste();

    // A press sets the cursor and a drag selects; a second press within the double-click time takes the
    // word. The sink hears of presses and releases; the focus comes with the release.
    void OnLButtonDown(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    // By lines, by two lines, or to a line; the cursor goes with it.
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    void OnTimer(UINT_PTR id);
    DECLARE_MESSAGE_MAP()

private:
    using Sink = CMultilineUnicodeEditCtlSink;
    using Action = void (CMultilineUnicodeEditCtl::*)();
    struct KeyRow; // a key, what is held with it, and what it does
    static const KeyRow keyRows[];

    // Both alike; throws where a face is missing.
    void MakeRenderers(const CFontDescriptor& font, int bold, int italic);
    // Takes account of what may have changed outside: size, font, settings.
    void LookAround();
    // After the text has changed; after the cursor or the selection has.
    void TextChanged();
    void CursorMoved();
    void UpdateScrollBar(); // by the number of lines
    void PaintRows(HDC dc, const CRect& frame, const RECT& invalid);
    void CutToFrame(const CRect& frame, corekit::detail::EditRow& row);
    // Three parts: before, in and behind the selection.
    void PaintRow(HDC dc, const CRect& frame, int top, corekit::detail::EditRow& row);
    bool RunKey(UINT key);            // false for a key without a row
    bool IsSecondPress(CPoint point); // within 2 pixels and the double-click time
    void OfferSelection();            // for the middle button elsewhere

    // For programs that read out what is on the screen.
    std::u16string text() override;
    int cursor() override { return GetCursorIndex(); }
    void selection(int& from, int& to) override { GetSelection(from, to); }
    void select(int from, int to) override { Select(from, to); }

    // What keys do.
    void DoBackspace();
    void DoDelete();
    void OnSoftReturn();
    void OnHardReturn();
    void DoCursorLeft();
    void DoCursorRight();
    void DoCursorUp();
    void DoCursorDown();
    void DoCursorHome();
    void DoCursorEnd(int toEnd);
    void DoCursorEndKey() { DoCursorEnd(0); }
    void CopyKey() { CopySelectedText(); }
    void CutSelectedText(); // nothing without a selection
    void PasteText();       // wide text of the clipboard, else narrow
    void SelectAllText();
    void UndoChanges();
    void TellReturn(); // the sink, as the next two
    void TellEscape();
    void TellTab();
    void IgnoreKey() {}

    Sink* m_sink = nullptr; // not owned
    CUnicodeManager* m_manager = nullptr;
    CUniRender m_measureRenderer, m_paintRenderer; // one for layout, so that it never disturbs a paint
    corekit::detail::RendererRuler m_ruler{m_measureRenderer};
    corekit::detail::EditModel m_model{m_ruler};
    corekit::detail::ShownRows m_shown;
    corekit::detail::EditRow m_row; // scratch
    StringW m_portion, m_glyphs;    // scratch
    CArray<int, int> m_portionTypes;
    CFontDescriptor m_font; // in use, to fall back to
    COLORREF m_textColour = 0, m_backColour = 0xFFFFFF;
    HACCEL m_accelerators = nullptr; // copy, cut, paste
    int m_textHeight = 0;            // 0: to be measured
    int m_bold = 0, m_italic = 0;
    bool m_caretShown = false; // the window has the focus
    bool m_dragging = false;   // the button is held
    bool m_inPaint = false;
    bool m_highlightsAtFocus = true;
    std::chrono::steady_clock::time_point m_pressTime; // of the last press, to tell a double click
    CPoint m_pressPoint;
};
