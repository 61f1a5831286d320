#include "corekit/unicode/ui/edit/UndoText.h"

#include <algorithm>
#include <utility>

namespace corekit::detail {

namespace {

std::u16string_view part(std::u16string_view text, int from, int to)
{
    return text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
}

} // namespace

void UndoText::TextChanges(std::u16string_view text, int from, int removed)
{
    const int length = static_cast<int>(text.size()), behind = length - from - removed;
    if (m_head + m_tail > length) {
        m_kept = part(text, from, from + removed);
        m_head = from;
        m_tail = behind;
        return;
    }
    if (from < m_head) m_kept.insert(0, part(text, from, m_head));
    if (behind < m_tail) m_kept += part(text, length - m_tail, length - behind);
    m_head = std::min(m_head, from);
    m_tail = std::min(m_tail, behind);
}

UndoText::Difference UndoText::Exchange(std::u16string_view text)
{
    const int length = static_cast<int>(text.size());
    if (m_head + m_tail > length) return {length, length, {}};
    const int to = length - m_tail;
    return {m_head, to, std::exchange(m_kept, std::u16string(part(text, m_head, to)))};
}

} // namespace corekit::detail
