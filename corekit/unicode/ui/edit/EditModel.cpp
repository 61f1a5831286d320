// The text as a whole: what it becomes, what is taken back, and its lines.
#include "corekit/unicode/ui/edit/EditModel.h"

#include "corekit/platform/Runtime.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace corekit::detail {

namespace {

constexpr int margins = 18, borderWidth = 5; // what lines leave free of the client's width

} // namespace

void EditModel::SetClientSize(int width, int height)
{
    m_width = width;
    m_height = height;
}

void EditModel::SetMakeUpper(bool upper)
{
    m_makeUpper = upper;
    if (upper) {
        StringW text = m_text;
        WCHAR* const buffer = text.GetBuffer(text.GetLength());
        for (int i = 0; i < text.GetLength(); ++i) buffer[i] = crt16::towupper(buffer[i]);
        Replace(text);
    }
    m_cursor = m_offset = 0;
}

void EditModel::SetLimit(int limit)
{
    m_limit = limit;
    Replace(m_text.Left(limit));
    m_cursor = m_offset = 0;
}

void EditModel::ForgetLines()
{
    m_lines.Forget();
    m_cursor = m_offset = 0;
}

DisplayLines& EditModel::ConvertDataToDisplayLines()
{
    m_lines.SetMode(m_wrapping, m_width - (m_border ? borderWidth : 0) - margins);
    m_lines.Update({m_text, static_cast<std::size_t>(m_text.GetLength())});
    return m_lines;
}

std::u16string_view EditModel::LineText(int line)
{
    DisplayLines& lines = ConvertDataToDisplayLines();
    const std::u16string_view text(static_cast<const WCHAR*>(m_text) + lines.StartOf(line),
                                   static_cast<std::size_t>(lines.LengthOf(line)));
    if (text.empty() || text.back() != u'\n') return text;
    m_lineText.assign(text);
    m_lineText.back() = u' ';
    return m_lineText;
}

void EditModel::Replace(StringW text)
{
    m_undo.TextChanges({m_text, static_cast<std::size_t>(m_text.GetLength())}, 0, m_text.GetLength());
    m_text = std::move(text);
    m_lines.Forget();
    m_sameHead = m_sameTail = 0;
}

// Room for more is taken along where the text needs a new place, so that typing in a long one does not copy
// it each time.
void EditModel::Splice(int from, int removed, std::u16string_view added)
{
    const int length = m_text.GetLength(), count = static_cast<int>(added.size());
    const int to = std::clamp(from + removed, std::clamp(from, 0, length), length);
    from = std::clamp(from, 0, length);
    removed = to - from;
    const int behind = length - from - removed, now = length - removed + count;
    m_undo.TextChanges({m_text, static_cast<std::size_t>(length)}, from, removed);
    const int room = std::max(length, now);
    WCHAR* const buffer = m_text.GetBuffer(room > m_text.GetAllocLength() ? room + room / 16 : room);
    std::memmove(buffer + from + count, buffer + from + removed,
                 static_cast<std::size_t>(behind) * sizeof(WCHAR));
    std::copy(added.begin(), added.end(), buffer + from);
    m_text.ReleaseBuffer(now);
    m_lines.TextChanges(from, behind);
    m_sameHead = std::min(m_sameHead, from);
    m_sameTail = std::min(m_sameTail, behind);
}

bool EditModel::TakeChange(TextChange& change)
{
    const int length = m_text.GetLength(), same = m_sameHead + m_sameTail;
    const bool isSame =
        m_sameHead == m_formerLength && m_sameTail == m_formerLength && length == m_formerLength;
    if (!isSame) change = {m_sameHead, m_formerLength - same, length - same};
    m_sameHead = m_sameTail = m_formerLength = length;
    return !isSame;
}

void EditModel::SetString(StringW text)
{
    Replace(std::move(text));
    m_cursor = std::min(m_cursor, m_text.GetLength());
    m_offset = std::min(m_offset, m_text.GetLength());
}

void EditModel::ReplaceSel(const WCHAR* text)
{
    if (!HasSelection()) return;
    const int line = GetCurrentCursorLine();
    const int from = std::min(m_anchor, m_end) - line, to = std::max(m_anchor, m_end) - line;
    SetString(m_text.Left(from) + text + m_text.Mid(to + 1));
}

void EditModel::UndoChanges()
{
    ClearSelection();
    const UndoText::Difference back = m_undo.Exchange({m_text, static_cast<std::size_t>(m_text.GetLength())});
    if (back.from != back.to || !back.kept.empty()) {
        UndoText undo = std::exchange(m_undo, {});
        Splice(back.from, back.to - back.from, back.kept);
        m_undo = std::move(undo);
    }
    m_cursor = std::min(m_cursor, m_text.GetLength());
}

} // namespace corekit::detail
