// The text as a whole: what it becomes, what is taken back, and its lines.
#include "corekit/unicode/ui/edit/EditModel.h"

#include "corekit/platform/Runtime.h"

#include <algorithm>

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

const DisplayLines& EditModel::ConvertDataToDisplayLines()
{
    m_lines.SetMode(m_wrapping, m_width - (m_border ? borderWidth : 0) - margins);
    m_lines.Update({m_text, static_cast<std::size_t>(m_text.GetLength())});
    return m_lines;
}

std::u16string_view EditModel::LineText(int line)
{
    const DisplayLines& lines = ConvertDataToDisplayLines();
    const std::u16string_view text(static_cast<const WCHAR*>(m_text) + lines.StartOf(line),
                                   static_cast<std::size_t>(lines.LengthOf(line)));
    if (text.empty() || text.back() != u'\n') return text;
    m_lineText.assign(text);
    m_lineText.back() = u' ';
    return m_lineText;
}

void EditModel::Replace(StringW text)
{
    m_text = std::move(text);
    m_lines.Forget();
}

void EditModel::Insert(int index, const WCHAR* text, int count)
{
    const int length = m_text.GetLength();
    index = std::clamp(index, 0, length);
    WCHAR* const buffer = m_text.GetBuffer(length + count);
    std::copy_backward(buffer + index, buffer + length, buffer + length + count);
    std::copy_n(text, count, buffer + index);
    m_text.ReleaseBuffer(length + count);
    m_lines.TextChanges(index, length - index);
}

void EditModel::Remove(int index, int count)
{
    const int length = m_text.GetLength();
    const int from = std::clamp(index, 0, length), to = std::clamp(index + count, from, length);
    WCHAR* const buffer = m_text.GetBuffer(length);
    std::copy(buffer + to, buffer + length, buffer + from);
    m_text.ReleaseBuffer(length - (to - from));
    m_lines.TextChanges(from, length - to);
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
    std::swap(m_text, m_undo);
    m_lines.Forget();
    m_cursor = std::min(m_cursor, m_text.GetLength());
}

} // namespace corekit::detail
