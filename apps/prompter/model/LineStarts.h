// Where the lines of a text begin, which an edit tells of instead of its being read again. A line is what
// stands up to a line end and with it; behind the last line end stands one more, which may be empty.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace prompter {

// Puts others in the place of `count` elements from `first` on, and moves what is behind as little as it can.
template <class T>
void PutInPlace(std::vector<T>& all, std::size_t first, std::size_t count, const std::vector<T>& others)
{
    const auto at = [&](std::size_t i) { return all.begin() + static_cast<std::ptrdiff_t>(i); };
    const auto same = static_cast<std::ptrdiff_t>(std::min(count, others.size()));
    std::copy_n(others.begin(), same, at(first));
    if (others.size() > count)
        all.insert(at(first + count), others.begin() + same, others.end());
    else
        all.erase(at(first) + same, at(first + count));
}

class LineStarts {
public:
    void Set(std::u16string_view text);
    std::size_t Count() const { return m_starts.size(); }
    // The line that holds a unit of the text; the last for its end.
    std::size_t LineAt(std::size_t offset) const;
    // The length of the text for a line beyond the last.
    std::size_t Start(std::size_t line) const { return line < Count() ? m_starts[line] : m_length; }
    // Other whole lines stand in the place of `count` from `first` on.
    void Replace(std::size_t first, std::size_t count, std::u16string_view lines);

private:
    std::vector<std::size_t> m_starts{0};
    std::size_t m_length = 0;
};

} // namespace prompter
