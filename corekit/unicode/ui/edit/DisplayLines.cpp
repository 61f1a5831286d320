#include "corekit/unicode/ui/edit/DisplayLines.h"

#include <algorithm>
#include <climits>

namespace corekit::detail {

namespace {

constexpr int nearBreak = 64; // characters in which the end of a word is looked for
constexpr int leastGuess = 8;
constexpr int someLines = 2;
constexpr int atEnd = -1;

bool endsWord(WCHAR c) { return c == u' ' || c == u'\n'; }

} // namespace

void DisplayLines::SetMode(Wrapping wrapping, int room)
{
    if (wrapping == m_wrapping && (room == m_room || wrapping == Wrapping::off)) return;
    m_wrapping = wrapping;
    m_room = room;
    Forget();
}

void DisplayLines::TextChanges(int head, int tail)
{
    m_head = std::min(m_head, head);
    m_tail = std::min(m_tail, tail);
    m_text = {};
}

bool DisplayLines::Has(int line)
{
    while (Made() <= line && MakeSome()) {
    }
    return line >= 0 && line < Made();
}

int DisplayLines::LengthBefore(int line)
{
    if (line <= 0) return 0;
    if (m_wrapping == Wrapping::on) return StartOf(line);
    if (Has(line)) return m_lines[At(line)].start - line;
    return Made() > 0 ? m_lines.back().start + m_lines.back().length - (Made() - 1) : 0;
}

int DisplayLines::LineAt(int position)
{
    const auto endOf = [&](int line) { return PositionOf(line) + LengthOf(line); };
    while ((m_lines.empty() || endOf(Made() - 1) < position) && MakeSome()) {
    }
    int low = 0, high = Made();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (position <= endOf(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

// The last line for which it is true; it is true for all lines up to one.
template <class IsBefore>
int DisplayLines::LastLine(IsBefore isBefore)
{
    while ((m_lines.empty() || isBefore(Made() - 1)) && MakeSome()) {
    }
    int line = 0;
    for (int high = Made(); high - line > 1;) {
        const int middle = line + (high - line) / 2;
        (isBefore(middle) ? line : high) = middle;
    }
    return line;
}

int DisplayLines::LineOfIndex(int index)
{
    return LastLine([&](int line) { return StartOf(line) <= index; });
}

int DisplayLines::LineBehind(int characters)
{
    return LastLine([&](int line) { return LengthBefore(line) <= characters; });
}

void DisplayLines::Update(std::u16string_view text)
{
    const int length = static_cast<int>(text.size());
    m_text = text;
    if (m_head == m_length && length == m_length) return;
    m_tail = std::clamp(m_tail, 0, std::min(length, m_length) - std::min(m_head, std::min(length, m_length)));
    const auto touched =
        std::partition_point(m_lines.begin(), m_lines.end(), [&](const Line& l) { return l.seen <= m_head; });
    KeepFrom(static_cast<std::size_t>(touched - m_lines.begin()));
    m_head = m_length = length;
    m_hardEnd = 0;
    m_usual = leastGuess;
}

void DisplayLines::KeepFrom(std::size_t first)
{
    if (m_tail == 0) m_former.clear();
    while (!m_former.empty() && m_length - m_former.back().start < NextStart()) m_former.pop_back();
    while (m_lines.size() > first) {
        const Line& line = m_lines.back();
        const int seen = line.seen == INT_MAX ? atEnd : m_length - line.seen;
        if (m_tail > 0) m_former.push_back({m_length - line.start, line.length, seen});
        m_lines.pop_back();
    }
}

bool DisplayLines::MakeSome()
{
    for (int i = 0; i < someLines && NextStart() < static_cast<int>(m_text.size()); ++i) MakeLine();
    return NextStart() < static_cast<int>(m_text.size());
}

void DisplayLines::MakeLine()
{
    const int start = NextStart();
    if (start < m_length - m_tail || !TakeFormer(start))
        Add(m_wrapping == Wrapping::on ? Wrapped(start) : Delimited(start));
    if (NextStart() < m_length) return;
    m_former.clear();
    m_tail = m_length;
}

// Former lines have gaps where some were not made before the next change.
bool DisplayLines::TakeFormer(int start)
{
    const auto nextFormer = [&] { return m_former.empty() ? INT_MAX : m_length - m_former.back().start; };
    while (nextFormer() < start) m_former.pop_back();
    if (nextFormer() != start) return false;
    for (; nextFormer() == NextStart(); m_former.pop_back()) {
        const FormerLine& line = m_former.back();
        Add({m_length - line.start, line.length, line.seen == atEnd ? INT_MAX : m_length - line.seen});
    }
    return true;
}

void DisplayLines::Add(Line line)
{
    if (!m_lines.empty()) line.seen = std::max(line.seen, m_lines.back().seen);
    m_lines.push_back(line);
}

int DisplayLines::NextStart() const
{
    if (m_lines.empty()) return 0;
    const Line& line = m_lines.back();
    return line.start + line.length + (m_wrapping == Wrapping::off ? 1 : 0);
}

// Behind the next newline, or the end of the text.
int DisplayLines::HardEnd(int start)
{
    if (m_hardEnd <= start) {
        const std::size_t newline = m_text.find(u'\n', static_cast<std::size_t>(start));
        m_hardEnd = newline == m_text.npos ? m_length : static_cast<int>(newline) + 1;
    }
    return m_hardEnd;
}

DisplayLines::Line DisplayLines::Delimited(int start)
{
    const int end = HardEnd(start);
    const bool newline = m_text[At(end - 1)] == u'\n';
    return {start, end - start - newline, newline ? end : INT_MAX};
}

bool DisplayLines::Fits(int start, int end)
{
    const WCHAR* text = m_text.data() + start;
    if (m_text[At(end - 1)] == u'\n') {
        m_blanked.assign(text, At(end - start));
        m_blanked.back() = u' ';
        text = m_blanked.data();
    }
    return m_ruler.Width(text, end - start) <= m_room;
}

// Words are added until one does not fit, in steps of about a line.
DisplayLines::Line DisplayLines::Wrapped(int start)
{
    const int stop = HardEnd(start);
    int fits = start; // the words up to here do
    int reach = m_usual;
    for (int end = start;;) {
        const int from = std::min(stop - end > reach ? end + reach : stop, stop);
        end = BreakAt(from, std::min(stop, from + nearBreak));
        const bool whole = end == stop || endsWord(m_text[At(end - 1)]);
        if (!whole && BreakAt(start + 1, end) == end) { // one word so far
            const int length = Fitting(start, end);
            if (length < end - start) return Cut(start, length, end);
        } else if (!Fits(start, end)) {
            int beyond = end;
            fits = LastThatFits(start, fits, beyond);
            return Cut(start, fits > start ? fits - start : Fitting(start, beyond - 1), beyond);
        }
        if (whole) fits = end;
        if (end == stop) break;
        reach = std::max(leastGuess, (end - start) / 4);
    }
    const bool newline = m_text[At(stop - 1)] == u'\n';
    return {start, stop - start, newline ? stop : INT_MAX};
}

// The first end of a word from `from` on, or `limit`.
int DisplayLines::BreakAt(int from, int limit) const
{
    int end = from;
    while (end < limit && !endsWord(m_text[At(end - 1)])) ++end;
    return end;
}

// The last end of a word between one that fits and a place that does not; that place moves to the first that
// does not fit.
int DisplayLines::LastThatFits(int start, int fits, int& beyond)
{
    m_breaks.clear();
    for (int end = fits + 1; end < beyond; ++end)
        if (endsWord(m_text[At(end - 1)])) m_breaks.push_back(end);
    auto low = m_breaks.begin(), high = m_breaks.end();
    while (low < high) {
        const auto middle = low + (high - low) / 2;
        if (Fits(start, *middle)) {
            fits = *middle;
            low = middle + 1;
        } else {
            beyond = *middle;
            high = middle;
        }
    }
    return fits;
}

// As many characters of a word that is too wide for any line as fit.
int DisplayLines::Fitting(int start, int end)
{
    return longestFitting(m_ruler, m_text.data() + start, end - start, m_room, m_usual);
}

// One character is taken in any case.
DisplayLines::Line DisplayLines::Cut(int start, int length, int beyond)
{
    length = std::max(length, 1);
    m_usual = std::max(length, leastGuess);
    return {start, length, beyond};
}

} // namespace corekit::detail
