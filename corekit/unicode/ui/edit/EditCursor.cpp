// Where the cursor goes, and the selection that follows it.
#include "corekit/unicode/ui/edit/EditModel.h"

#include <algorithm>

namespace corekit::detail {

void EditModel::SelectAll()
{
    HighlightAll();
    m_cursor = m_end;
}

void EditModel::HighlightAll()
{
    DisplayLines& lines = ConvertDataToDisplayLines();
    m_anchor = 0;
    m_end = lines.PositionOf(lines.Count());
}

void EditModel::MoveCursorLeft(HeldModifiers held)
{
    const int before = m_cursor;
    if (held.control)
        WordLeft();
    else
        m_cursor = std::max(m_cursor - 1, 0);
    EndMove(before, held);
}

void EditModel::MoveCursorRight(HeldModifiers held)
{
    const int before = m_cursor;
    const int limit = m_text.GetLength() + GetCurrentCursorLine();
    if (held.control)
        WordRight(limit);
    else
        m_cursor = std::min(m_cursor + 1, limit);
    EndMove(before, held);
}

// To just behind the previous blank; of the two positions there, at the start of a line.
void EditModel::WordLeft()
{
    int index = std::min(CursorIndex() - 2, m_text.GetLength() - 1);
    while (index >= 0 && m_text[index] != u' ') --index;
    m_cursor = std::max(index + 1, 0);
    if (index < 0) return;
    DisplayLines& lines = ConvertDataToDisplayLines();
    m_cursor += lines.LineBehind(m_cursor);
}

void EditModel::WordRight(int limit)
{
    const int line = GetCurrentCursorLine();
    int index = m_cursor - line + 1;
    while (index < m_text.GetLength() && m_text[index] != u' ') ++index;
    m_cursor = std::min(index + line, limit);
    m_cursor += GetCurrentCursorLine() - line;
}

bool EditModel::DoCursorUp(HeldModifiers held)
{
    if (m_atFirstLine && !held.shift) return false;
    const int before = m_cursor;
    m_cursor = CursorPosFromPoint(CPoint(m_caret.x, std::max(m_caret.y - m_textHeight, 0)));
    EndMove(before, held);
    return true;
}

bool EditModel::DoCursorDown(HeldModifiers held)
{
    if (m_atLastLine && !held.shift) return false;
    const int before = m_cursor;
    m_cursor = CursorPosFromPoint(CPoint(m_caret.x, m_caret.y + m_textHeight));
    EndMove(before, held);
    return true;
}

void EditModel::DoCursorHome(HeldModifiers held)
{
    const int before = m_cursor;
    m_cursor = held.control ? 0 : m_lines.PositionOf(GetCurrentCursorLine());
    EndMove(before, held);
}

void EditModel::DoCursorEnd(HeldModifiers held)
{
    const int before = m_cursor, line = GetCurrentCursorLine();
    if (held.control)
        m_cursor = std::max(m_text.GetLength() + m_lines.Count() - 1, 0);
    else
        m_cursor = m_lines.Has(line) ? m_lines.PositionOf(line) + m_lines.LengthOf(line) : m_text.GetLength();
    EndMove(before, held);
}

void EditModel::EndMove(int before, HeldModifiers held)
{
    UpdateCaret();
    if (!held.shift) {
        if (HasSelection()) ClearSelection();
        return;
    }
    if (m_anchor == 0 && m_end == 0) m_anchor = before;
    m_end = m_cursor;
}

void EditModel::PressAt(CPoint point)
{
    m_cursor = CursorPosFromPoint(point);
    UpdateCaret();
    m_anchor = m_end = m_cursor;
}

void EditModel::DragTo(CPoint point)
{
    m_cursor = CursorPosFromPoint(point);
    UpdateCaret();
    m_end = m_cursor;
}

void EditModel::SelectWord()
{
    const int length = m_text.GetLength();
    if (m_cursor >= length || m_text[m_cursor] == u' ') return;
    int from = m_cursor, to = m_cursor;
    while (from > 0 && m_text[from - 1] != u' ') --from;
    while (to < length && m_text[to] != u' ') ++to;
    m_anchor = from;
    m_end = m_cursor = to;
}

} // namespace corekit::detail
