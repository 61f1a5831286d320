// What the multi-line edit control knows without a window: text, cursor, selection, one level of undo, which
// part of the lines is in view, and where the caret stands. Windows, keys, clipboard and paint are the
// control's.
//
// Cursor positions are no indexes into the text, see DisplayLines.h: the index is the position less the
// number of the cursor's line. Where an operation takes a position for an index it says so; an index or a
// length outside the text is cut to it.
//
// The lines are as if made anew at every use. One thread at a time.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/unicode/ui/edit/DisplayLines.h"
#include "corekit/unicode/ui/edit/UndoText.h"
#include "corekit/unicode/ui/edit/VisualLine.h"

namespace corekit::detail {

// Which keys are held with one that moves the cursor.
struct HeldModifiers {
    bool shift = false;
    bool control = false;
};

// Characters of a text that have come in the place of others.
struct TextChange {
    int from = 0, removed = 0, added = 0;
};

// A line as it is painted: in display order, cut to what is in view.
struct EditRow {
    VisualLine line;
    int from = 0, to = 0; // what of it is selected
    int shown = 0;        // characters in view, from `first` on
    int first = 0;
};

class COREKIT_API EditModel {
public:
    // Alignments.
    static constexpr int left = 0, centred = 1, right = 2;

    // An empty text, with a border, wrapped, aligned left. The ruler must outlive the model.
    explicit EditModel(TextRuler& ruler) : m_ruler(ruler), m_lines(ruler) {}

    // ---- What surrounds the text. Sizes in pixels; the room for lines follows from them.
    void SetClientSize(int width, int height);
    void SetTextHeight(int height) { m_textHeight = height; }
    void SetOrder(TextOrder order) { m_order = order; }
    void SetBorder(bool border) { m_border = border; }
    void SetWrapping(Wrapping wrapping) { m_wrapping = wrapping; }
    void SetAlignment(int alignment) { m_alignment = alignment; }
    // With true the text becomes upper case at once, and what is typed later. Cursor and offset go to 0 in
    // any case.
    void SetMakeUpper(bool upper);
    // In characters. The text is cut to the limit, to nothing by a limit of 0, which then limits no typing.
    // Cursor and offset go to 0.
    void SetLimit(int limit);
    // For another font: lines anew, cursor and offset 0.
    void ForgetLines();

    // The state: positions are cursor positions, sizes and places are in pixels of the client area.
    const StringW& Text() const { return m_text; }
    int Cursor() const { return m_cursor; }
    int Anchor() const { return m_anchor; }    // where the selection began
    int SelectionEnd() const { return m_end; } // may lie before the anchor
    bool HasSelection() const { return m_anchor != m_end; }
    int Alignment() const { return m_alignment; }
    TextOrder Order() const { return m_order; }
    bool Border() const { return m_border; }
    int ClientWidth() const { return m_width; }
    int ClientHeight() const { return m_height; }
    int TextHeight() const { return m_textHeight; }
    int Offset() const { return m_offset; } // characters cut from a line's start, aligned right from its end
    int TopLine() const { return m_top; }   // lines scrolled off
    CPoint Caret() const { return m_caret; }

    // Everything below that uses lines brings them up to date by this.
    DisplayLines& ConvertDataToDisplayLines();
    int GetCurrentCursorLine() { return ConvertDataToDisplayLines().LineAt(m_cursor); }
    // The characters of a line, a newline as a blank; until the next call.
    std::u16string_view LineText(int line);

    // ---- The whole text.
    // Cursor and offset are cut to the new length; the selection stays.
    void SetString(StringW text);
    // Puts text in the place of the selection and of one more character behind it. Nothing without one.
    void ReplaceSel(const WCHAR* text);
    // Both states change places, and the selection goes.
    void UndoChanges();
    // What undo brings back next is the text as it is now.
    void CommitToUndoBuffer() { m_undo.Commit(m_text.GetLength()); }

    // ---- Editing.
    // Nothing once the limit is reached, nor for a control character.
    void OnChar(WORD character);
    // A selection goes, else the character in front of the cursor.
    void DoBackspace();
    // A selection goes to the undo text; its ends are taken for indexes. Without one the character behind
    // the cursor goes, which undo does not bring back.
    void DoDelete();
    // A newline, with the cursor's position taken for an index; the hard return goes on to the next line.
    void OnSoftReturn();
    void OnHardReturn();
    // The selected text, counted from the line of the cursor; false without a selection.
    bool GetSelectedText(StringW& text);
    // The cursor ends behind the text. Neither the limit nor upper case are applied.
    void PasteText(const StringW& text);

    // ---- Cursor and selection. All but the first three end with the selection step: without Shift a
    // selection goes, with it the selection grows from where the cursor was.
    void SelectAll(); // and the cursor behind the end
    void HighlightAll();
    void ClearSelection() { m_anchor = m_end = 0; }
    void MoveCursorLeft(HeldModifiers held);  // by one position, with Ctrl to the previous blank
    void MoveCursorRight(HeldModifiers held); // with Ctrl to the next blank
    // False, and nothing else happens, on the first or last line without Shift.
    bool DoCursorUp(HeldModifiers held);
    bool DoCursorDown(HeldModifiers held);
    // To the ends of the line, with Ctrl to those of the text.
    void DoCursorHome(HeldModifiers held);
    void DoCursorEnd(HeldModifiers held);

    // ---- The pointer.
    // The cursor position at a client point, by the widths of the line's beginnings in stored order.
    int CursorPosFromPoint(CPoint point);
    void PressAt(CPoint point); // both ends of the selection follow
    void DragTo(CPoint point);  // one end follows
    void SelectWord();          // round the cursor, whose position is taken for an index

    // ---- View.
    // Puts line `top` at the top as far as there are lines, and the cursor at its start.
    void ScrollTo(int top);
    // Scrolls the cursor's line into view and finds the caret's place.
    void UpdateCaret();
    // Lines that no longer exist are not scrolled to. No notification.
    void LimitTopLine();
    // What of a line is painted as selected, from and to which character.
    void SelectionIn(int line, int& from, int& to);
    // Fills in what is painted of a line.
    void GetRow(int line, EditRow& row);
    // The cursor as an index into the string.
    int CursorIndex() { return m_cursor - GetCurrentCursorLine(); }

    // ---- By index into the string, for hosts that edit by themselves.
    int IndexOf(int position);
    // Of the two positions where a line begins, the one in that line.
    int PositionAt(int index);
    void Select(int from, int to); // the cursor goes to `to`
    // The cursor goes behind the new text and the selection goes; undo brings back what was.
    void ReplaceRange(int from, int to, const WCHAR* text);
    // Another spelling of what stands there, which undo does not bring back; the cursor goes to an index.
    void Respell(int from, int to, std::u16string_view text, int cursor);
    // What has changed of the text since this was called last; false if nothing.
    bool TakeChange(TextChange& change);

private:
    // A line with a place in it.
    struct Place {
        int line, offset;
    };
    Place PlaceOfCursor(); // the line, and the offset in it
    void Insert(int index, const WCHAR* text, int count)
    {
        Splice(index, 0, {text, static_cast<std::size_t>(count)});
    }
    void Remove(int index, int count) { Splice(index, count, {}); }
    void Splice(int from, int removed, std::u16string_view added); // indexes are cut to the text
    void Replace(StringW text);                                    // all of it; lines are made anew
    void EndMove(int before, HeldModifiers held);                  // caret and selection
    void WordLeft();
    void WordRight(int limit);
    void ScrollToLine(int line); // as little as it takes
    int CaretFromLeft(int position, std::u16string_view stored);
    int CaretFromRight(int position);
    int LineAtHeight(int y) const;
    int LeftHit(int start, std::u16string_view line, int x);
    int RightHit(int start, std::u16string_view line, int room);

    TextRuler& m_ruler;
    DisplayLines m_lines; // of m_text, when they are asked for
    StringW m_text;
    UndoText m_undo;
    int m_sameHead = 0, m_sameTail = 0, m_formerLength = 0; // at either end, since TakeChange
    int m_cursor = 0;
    int m_anchor = 0, m_end = 0; // equal without a selection
    int m_offset = 0;
    int m_top = 0;
    CPoint m_caret; // its upper left corner
    int m_width = 0, m_height = 0, m_textHeight = 0;
    int m_alignment = left;
    int m_limit = 0; // 0: none
    bool m_border = true;
    bool m_makeUpper = false;
    bool m_atFirstLine = true, m_atLastLine = true;
    Wrapping m_wrapping = Wrapping::on;
    TextOrder m_order = TextOrder::asStored;
    VisualLine m_caretLine; // scratch
    std::u16string m_lineText;
};

} // namespace corekit::detail
