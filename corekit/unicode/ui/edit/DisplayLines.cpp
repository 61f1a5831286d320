#include "corekit/unicode/ui/edit/DisplayLines.h"

#include <algorithm>
#include <climits>

namespace corekit::detail {

namespace {

constexpr int nearBreak = 64; // characters in which the end of a word is looked for
constexpr int leastGuess = 8;

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
}

int DisplayLines::LengthBefore(int line) const
{
    if (line <= 0) return 0;
    if (m_wrapping == Wrapping::on) return StartOf(line);
    if (line < Count()) return StartOf(line) - line;
    return Count() > 0 ? m_lines.back().start + m_lines.back().length - (Count() - 1) : 0;
}

int DisplayLines::LineAt(int position) const
{
    int low = 0, high = Count();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (position <= PositionOf(middle) + LengthOf(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

void DisplayLines::Update(std::u16string_view text)
{
    const int length = static_cast<int>(text.size());
    if (m_head == m_length && m_tail == m_length && length == m_length) return;
    const int delta = length - m_length;
    m_tail = std::clamp(m_tail, 0, std::min(length, m_length) - std::min(m_head, std::min(length, m_length)));
    m_text = text;
    m_length = length;
    m_hardEnd = 0;
    m_usual = leastGuess;
    const auto touched =
        std::partition_point(m_lines.begin(), m_lines.end(), [&](const Line& l) { return l.seen <= m_head; });
    auto first = static_cast<std::size_t>(touched - m_lines.begin());
    m_made.clear();
    std::size_t old = first;
    int start = first < m_lines.size() ? m_lines[first].start : first ? NextStart(m_lines[first - 1]) : 0;
    while (start < length) {
        if (start >= length - m_tail) {
            while (old < m_lines.size() && m_lines[old].start + delta < start) ++old;
            if (old < m_lines.size() && m_lines[old].start + delta == start) break;
        }
        m_made.push_back(m_wrapping == Wrapping::on ? Wrapped(start) : Delimited(start));
        start = NextStart(m_made.back());
    }
    if (start >= length) old = m_lines.size();
    Replace(first, old, delta);
    m_text = {};
    m_head = m_tail = m_length;
}

// Puts the lines made in the place of those from `first` to `old`; the ones behind move by `delta`
// characters.
void DisplayLines::Replace(std::size_t first, std::size_t old, int delta)
{
    if (delta != 0)
        for (std::size_t i = old; i < m_lines.size(); ++i) {
            m_lines[i].start += delta;
            if (m_lines[i].seen != INT_MAX) m_lines[i].seen += delta;
        }
    const auto at = [&](std::size_t i) { return m_lines.begin() + static_cast<std::ptrdiff_t>(i); };
    const std::size_t room = old - first, made = m_made.size(), same = std::min(room, made);
    std::copy_n(m_made.begin(), same, at(first));
    if (made > room)
        m_lines.insert(at(old), m_made.begin() + static_cast<std::ptrdiff_t>(same), m_made.end());
    else
        m_lines.erase(at(first + made), at(old));
    int seen = first ? m_lines[first - 1].seen : 0;
    for (std::size_t i = first; i < m_lines.size(); ++i)
        seen = m_lines[i].seen = std::max(seen, m_lines[i].seen);
}

int DisplayLines::NextStart(const Line& line) const
{
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
