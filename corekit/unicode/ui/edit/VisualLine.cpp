#include "corekit/unicode/ui/edit/VisualLine.h"

#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/tables/CharacterCodes.h"

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr WCHAR endMark = 0x200C; // zero-width non-joiner: neutral, so that it stands where the line ends

} // namespace

void VisualLine::Set(std::u16string_view line, TextOrder order)
{
    m_length = m_end = static_cast<int>(line.size());
    m_order.RemoveAll();
    m_types.RemoveAll();
    if (order == TextOrder::asStored || line.empty()) {
        m_text.AssignCopy(m_length, line.data());
        return;
    }
    WCHAR* const buffer = m_text.GetBuffer(m_length + 1);
    std::copy(line.begin(), line.end(), buffer);
    buffer[m_length] = endMark;
    m_text.ReleaseBuffer(m_length + 1);
    ReorderToVisual(m_text, m_order, m_types, GetBaseLevel(m_text, m_text.GetLength()));
    TakeEndMarkAway();
}

void VisualLine::TakeEndMarkAway()
{
    const int* const order = m_order.GetData();
    m_end = static_cast<int>(std::find(order, order + m_order.GetSize(), m_length) - order);
    WCHAR* const text = m_text.GetBuffer(m_length + 1);
    std::copy(text + m_end + 1, text + m_length + 1, text + m_end);
    m_text.ReleaseBuffer(m_length);
    m_order.RemoveAt(m_end);
    m_types.RemoveAt(m_end);
}

int VisualLine::PositionOf(int offset) const
{
    if (offset >= m_length) return m_end;
    if (m_order.IsEmpty() || offset < 0) return std::max(offset, 0);
    const int* const order = m_order.GetData();
    const int at = static_cast<int>(std::find(order, order + m_length, offset) - order);
    const int type = m_types[at];
    return type == bidi::R || type == bidi::AN ? at + 1 : at;
}

} // namespace corekit::detail
