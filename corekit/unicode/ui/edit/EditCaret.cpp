// Where the caret stands, what is scrolled for it, and which position a point of the window means.
#include "corekit/unicode/ui/edit/EditModel.h"

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int margin = 4, bothMargins = 8; // left and right of a line
constexpr int topMargin = 2, bottomMargin = 2;

int lengthOf(std::u16string_view text) { return static_cast<int>(text.size()); }

} // namespace

EditModel::Place EditModel::PlaceOfCursor()
{
    const int line = GetCurrentCursorLine();
    return {line, m_cursor - m_lines.PositionOf(line)};
}

void EditModel::UpdateCaret()
{
    const auto [line, offset] = PlaceOfCursor();
    m_atFirstLine = line == 0;
    m_atLastLine = !m_lines.Has(line + 1);
    ScrollToLine(line);
    const std::u16string_view stored = LineText(line);
    m_caretLine.Set(stored, m_order);
    const int position = m_caretLine.PositionOf(offset);
    const int x = m_alignment == right ? CaretFromRight(position) - 2 : CaretFromLeft(position, stored);
    m_caret = CPoint(x, (line - m_top) * m_textHeight + topMargin);
}

void EditModel::ScrollToLine(int line)
{
    const int whole = m_textHeight > 0 ? (m_height - bottomMargin) / m_textHeight : 0;
    m_top = std::max(m_top, line + 1 - std::max(whole, 0));
    m_top = std::min(m_top, line);
}

// Aligned left or centred: x of a position in the caret's line. What is cut off at the left grows until the
// position is in view.
int EditModel::CaretFromLeft(int position, std::u16string_view stored)
{
    const WCHAR* const text = m_caretLine.Text();
    m_offset = std::min(m_offset, position);
    m_offset += longestFittingEnd(m_ruler, text + m_offset, position - m_offset, m_width - bothMargins);
    const int width = m_ruler.Width(text + m_offset, position - m_offset);
    if (m_alignment == left) return width + margin + 2;
    return (m_width - m_ruler.Width(stored.data(), lengthOf(stored))) / 2 + width - 2;
}

// Aligned right: what is cut off grows at the right.
int EditModel::CaretFromRight(int position)
{
    const WCHAR* const text = m_caretLine.Text();
    const int length = m_caretLine.Text().GetLength();
    int end = std::max(length - m_offset, position);
    end = position +
          std::max(longestFitting(m_ruler, text + position, end - position, m_width - bothMargins), 0);
    m_offset = length - end;
    return m_width - m_ruler.Width(text + position, end - position) - margin;
}

// The first line whose bottom lies at a height or below.
int EditModel::LineAtHeight(int y) const
{
    if (m_textHeight <= 0) return m_top;
    return m_top + (y > 0 ? (y - 1) / m_textHeight : y / m_textHeight - 1);
}

int EditModel::CursorPosFromPoint(CPoint point)
{
    DisplayLines& lines = ConvertDataToDisplayLines();
    if (!lines.Has(0)) return 0;
    const int line = lines.Nearest(LineAtHeight(point.y));
    const int start = lines.PositionOf(line);
    switch (m_alignment) {
    case left:
        return LeftHit(start, LineText(line), point.x - margin);
    case centred: {
        const std::u16string_view text = LineText(line);
        return LeftHit(start, text, point.x - (m_width - m_ruler.Width(text.data(), lengthOf(text))) / 2);
    }
    case right:
        return RightHit(start, LineText(line), m_width - bothMargins - point.x);
    default:
        return 0;
    }
}

int EditModel::LeftHit(int start, std::u16string_view line, int x)
{
    line.remove_prefix(static_cast<std::size_t>(std::min(m_offset, lengthOf(line))));
    const int beyond = leastBeyond(m_ruler, line.data(), lengthOf(line), x);
    return start + m_offset + std::max(beyond - 1, 0);
}

int EditModel::RightHit(int start, std::u16string_view line, int room)
{
    line.remove_suffix(static_cast<std::size_t>(std::min(m_offset, lengthOf(line))));
    const int fitting = longestFitting(m_ruler, line.data(), lengthOf(line), room - 1);
    return start + std::max(lengthOf(line) - fitting - 1, 0);
}

void EditModel::ScrollTo(int top)
{
    DisplayLines& lines = ConvertDataToDisplayLines();
    m_top = lines.Nearest(top);
    m_cursor = lines.PositionOf(m_top);
    UpdateCaret();
}

void EditModel::LimitTopLine() { m_top = ConvertDataToDisplayLines().Nearest(m_top); }

// Of the lines scrolled off only the characters are counted, not the position that each has more: so much too
// far behind is the selection shown in a window that is scrolled.
void EditModel::SelectionIn(int line, int& from, int& to)
{
    DisplayLines& lines = ConvertDataToDisplayLines();
    const int length = lines.LengthOf(line), start = lines.PositionOf(line) - m_top;
    from = std::clamp(std::min(m_anchor, m_end) - start, 0, length);
    to = std::clamp(std::max(m_anchor, m_end) - start, 0, length);
}

void EditModel::GetRow(int line, EditRow& row)
{
    int from = 0, to = 0;
    SelectionIn(line, from, to);
    row.line.Set(LineText(line), m_order);
    row.from = row.line.PositionOf(from);
    row.to = from == to ? row.from : row.line.PositionOf(to);
    if (row.from > row.to) std::swap(row.from, row.to);
    const int length = row.line.Text().GetLength(), cut = std::clamp(m_offset, 0, length);
    row.shown = length - cut;
    row.first = m_alignment == right ? 0 : cut;
    row.from = std::clamp(row.from - row.first, 0, row.shown);
    row.to = std::clamp(row.to - row.first, 0, row.shown);
}

} // namespace corekit::detail
