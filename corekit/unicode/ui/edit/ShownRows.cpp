#include "corekit/unicode/ui/edit/ShownRows.h"

#include <algorithm>

namespace corekit::detail {

RowSpan ShownRows::Update(EditModel& model, int count)
{
    const Frame frame{model.ClientWidth(), model.Alignment(), model.Offset(),
                      model.TextHeight(),  model.Order(),     model.Border()};
    const auto rows = static_cast<std::size_t>(std::max(count, 0));
    const bool all = frame != m_frame || rows != m_rows.size();
    m_frame = frame;
    m_rows.resize(rows);
    RowSpan changed{count, 0};
    for (int i = 0; i < count; ++i) {
        const int line = model.TopLine() + i;
        m_now.there = model.ConvertDataToDisplayLines().Has(line);
        m_now.text.assign(model.LineText(line));
        model.SelectionIn(line, m_now.from, m_now.to);
        Row& shown = m_rows[static_cast<std::size_t>(i)];
        if (shown == m_now) continue;
        std::swap(shown, m_now);
        changed.first = std::min(changed.first, i);
        changed.last = i + 1;
    }
    if (all) return {0, count};
    return changed.last > changed.first ? changed : RowSpan{};
}

} // namespace corekit::detail
