// What typing, deleting and pasting do to text and cursor.
#include "corekit/platform/Runtime.h"
#include "corekit/unicode/ui/edit/EditModel.h"

#include <algorithm>

namespace corekit::detail {

// A character may push its word to the next line, or draw it to the one before; the cursor goes along.
void EditModel::OnChar(WORD character)
{
    if (m_limit != 0 && m_text.GetLength() >= m_limit) return;
    if (character < 32 || character == 127) return;
    if (HasSelection()) DoDelete();
    const WCHAR c = m_makeUpper ? crt16::towupper(character) : character;
    const int line = GetCurrentCursorLine();
    Insert(m_cursor - line, &c, 1);
    ++m_cursor;
    m_cursor += GetCurrentCursorLine() - line;
}

// A position equal to the length of the text counts as its end, whatever line it lies on.
void EditModel::DoBackspace()
{
    if (HasSelection()) return DoDelete();
    if (m_cursor == 0) return;
    const int line = GetCurrentCursorLine();
    const int index = m_cursor == m_text.GetLength() ? m_cursor : m_cursor - line;
    Remove(index - 1, 1);
    m_cursor = index - 1 + line;
    const int now = GetCurrentCursorLine();
    if (now < line || !m_lines.Has(now)) m_cursor = std::max(m_cursor - 1, 0);
}

void EditModel::DoDelete()
{
    if (HasSelection()) {
        CommitToUndoBuffer();
        const int from = std::min(m_anchor, m_end);
        Remove(from, std::max(m_anchor, m_end) - from);
        m_cursor = from;
        ClearSelection();
    } else if (const int index = CursorIndex(); index < m_text.GetLength()) {
        Remove(index, 1);
    }
}

void EditModel::OnSoftReturn()
{
    Insert(m_cursor, u"\n", 1);
    ++m_cursor;
}

void EditModel::OnHardReturn()
{
    OnSoftReturn();
    const int line = GetCurrentCursorLine();
    if (m_lines.Has(line)) m_cursor = m_lines.PositionOf(line + 1);
}

bool EditModel::GetSelectedText(StringW& text)
{
    if (!HasSelection()) return false;
    const int from = std::min(m_anchor, m_end);
    text = m_text.Mid(from - GetCurrentCursorLine(), std::max(m_anchor, m_end) - from);
    return true;
}

// Each new line offers a position more. Where all the text is new its first line is none that came along.
void EditModel::PasteText(const StringW& text)
{
    CommitToUndoBuffer();
    if (HasSelection()) DoDelete();
    const int line = GetCurrentCursorLine(), count = m_lines.Count();
    Insert(m_cursor - line, text, text.GetLength());
    m_cursor += text.GetLength();
    const bool moved = GetCurrentCursorLine() != line;
    const int more = m_lines.Count() - count;
    if (moved && more > 0)
        m_cursor += m_text.GetLength() == text.GetLength() ? more - 1 : more;
    else if (moved && more == 0)
        ++m_cursor;
}

// ---- By index

int EditModel::IndexOf(int position)
{
    DisplayLines& lines = ConvertDataToDisplayLines();
    const int line = lines.LineAt(position);
    return std::clamp(lines.StartOf(line) + position - lines.PositionOf(line), 0, m_text.GetLength());
}

// Behind a newline at the end the cursor stands in a line beyond the last.
int EditModel::PositionAt(int index)
{
    DisplayLines& lines = ConvertDataToDisplayLines();
    const int length = m_text.GetLength();
    index = std::clamp(index, 0, length);
    if (index == length && length > 0 && m_text[length - 1] == u'\n') return lines.PositionOf(lines.Count());
    const int line = lines.LineOfIndex(index);
    return lines.PositionOf(line) + index - lines.StartOf(line);
}

void EditModel::Select(int from, int to)
{
    m_anchor = PositionAt(from);
    m_cursor = m_end = PositionAt(to);
    if (from == to) ClearSelection();
}

void EditModel::ReplaceRange(int from, int to, const WCHAR* text)
{
    const StringW added(text);
    CommitToUndoBuffer();
    ClearSelection();
    Splice(from, to - from, {added, static_cast<std::size_t>(added.GetLength())});
    m_cursor = PositionAt(from + added.GetLength());
}

void EditModel::Respell(int from, int to, std::u16string_view text, int cursor)
{
    ClearSelection();
    Splice(from, to - from, text);
    m_cursor = PositionAt(cursor);
}

} // namespace corekit::detail
