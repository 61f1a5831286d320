#include "model/LineStarts.h"

namespace prompter {

void LineStarts::Set(std::u16string_view text)
{
    m_starts = {0};
    m_length = 0;
    Replace(0, 1, text);
}

std::size_t LineStarts::LineAt(std::size_t offset) const
{
    return static_cast<std::size_t>(std::ranges::upper_bound(m_starts, offset) - m_starts.begin()) - 1;
}

void LineStarts::Replace(std::size_t first, std::size_t count, std::u16string_view lines)
{
    const std::size_t from = Start(first), to = Start(first + count);
    const bool isLast = first + count >= Count();
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < lines.size() || (isLast && at == lines.size());) {
        starts.push_back(from + at);
        const std::size_t end = lines.find(u'\n', at);
        if (end == lines.npos) break;
        at = end + 1;
    }
    m_length = m_length - (to - from) + lines.size();
    for (std::size_t i = first + count; i < Count(); ++i)
        m_starts[i] = m_starts[i] - (to - from) + lines.size();
    PutInPlace(m_starts, first, count, starts);
}

} // namespace prompter
